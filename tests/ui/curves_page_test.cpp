#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>

#include "app/commands.h"
#include "app/view_commands.h"
#include "core/files.h"
#include "core/project_file.h"
#include "records/header_words.h"
#include "records/su_file.h"
#include "records/su_loading.h"
#include "support/su_builder.h"
#include "traveltime/curves.h"
#include "traveltime/zoom.h"
#include "window_fixture.h"

namespace tarnvik {
namespace {

/// The window over the small line with its project file and, on demand, its field records.
class CurvesTab : public Window {
  protected:
    CurvesTab() {
        Program.Work.Project.CurrentFile = Folder / "line.tv5";
        Dromo = Find<PictureBox>("Dromo");
    }
    void Give_Records() {
        test::SuBuilder records(36, 150);
        records.Records(12);
        Program.Work.Project.SuFile = records.Write(Folder / "line.su");
        Program.Work.Record.TwinSuFile = records.Write(Folder / "twin.su");
        Program.Work.Record.ChannelsPerRecord = 12;
        Program.Work.Edits.Start(Program.Work.Project, true);
    }
    double Word(const char* file, int trace) {
        return SuTraces(Folder / file).Word_Or_Zero(trace, words::First_Breaks);
    }
    QPoint At(double distance, double ms) {
        return Pixel(Dromo, distance * 96 / 55, ms / Program.Work.Curves.TimeFactor);
    }
    /// Catches a pick, and presses and lets go of the button at two places.
    void Move_Pick(QPoint pick, QPoint press, QPoint release) {
        QTest::mouseDClick(Dromo, Qt::LeftButton, {}, pick);
        EXPECT_EQ(Program.Work.Curves.PickMoving, 1);
        QTest::mousePress(Dromo, Qt::LeftButton, {}, press);
        QTest::mouseMove(Dromo, release);
        QTest::mouseRelease(Dromo, Qt::LeftButton, {}, release);
    }
    /// Height of a world place on the screen, in pixels of the widget.
    static double Row(PictureBox* box, double y) {
        return box->Canvas().Window().top() + box->Canvas().Current_Frame().To_Pixel_Y(y);
    }
    PictureBox* Dromo = nullptr;
};

TEST_F(CurvesTab, a_pick_moved_by_the_mouse_is_one_edit_of_project_file_and_twin) {
    Give_Records();
    Project& project = Program.Work.Project;
    const float before = project.ShotTimes(2, 4);  // 28 ms at 15 m
    Move_Pick(At(15, before), At(15, before), At(16, 40));
    const double moved = project.ShotTimes(2, 4);
    EXPECT_NEAR(moved, 40, 1);
    EXPECT_EQ(Word("line.su", 16), std::nearbyint(moved * 10));
    EXPECT_EQ(Word("twin.su", 16), Word("line.su", 16));
    EXPECT_EQ(Word("line.su", 15), 0);
    EXPECT_EQ(Word("line.su", 28), 0);
    EXPECT_TRUE(File_Exists(project.CurrentFile)) << "saved at once";
    EXPECT_EQ(Program.Work.Edits.Undo_Name(), "Move pick of shot 2, receiver 4");
    EXPECT_EQ(Program.Work.Curves.PickMoving, 0);

    // Press and release at one place: deleted when the user says so.
    Prompts.Expect("Delete geophone 4 of shot 2", Answer::Yes);
    Move_Pick(At(15, moved), At(30, 60), At(30, 60));
    EXPECT_EQ(project.ShotTimes(2, 4), 0);
    EXPECT_EQ(Word("twin.su", 16), 0);
    EXPECT_EQ(Program.Work.Edits.Undo(project), "");
    EXPECT_EQ(project.ShotTimes(2, 4), static_cast<float>(moved));
    EXPECT_EQ(Word("twin.su", 16), std::nearbyint(moved * 10));
    EXPECT_EQ(Program.Work.Edits.Go_To(project, 0), "");
    EXPECT_EQ(project.ShotTimes(2, 4), before);
    EXPECT_EQ(Word("line.su", 16), 0);
    // Nothing is near here, and the pick stays where it is.
    QTest::mouseDClick(Dromo, Qt::LeftButton, {}, At(15, 90));
    EXPECT_EQ(Program.Work.Curves.PickMoving, 0);
}

TEST_F(CurvesTab, the_band_follows_the_mouse_and_the_keys) {
    QTest::mousePress(Dromo, Qt::LeftButton, {}, At(10, 20));
    QTest::mouseMove(Dromo, At(40, 60));
    EXPECT_TRUE(Program.Work.Fields.Text1.starts_with("Velocity= 7")) << Program.Work.Fields.Text1;
    QTest::mouseRelease(Dromo, Qt::LeftButton, {}, At(40, 60));
    const CurveView& view = Program.Work.Curves;
    EXPECT_TRUE(view.Band.Stands);
    EXPECT_NEAR(view.Band.X2, 40 * 96 / 55.0, 0.2);
    const auto end = [&view](int key, PictureBox* box) {
        QTest::keyClick(box, static_cast<Qt::Key>(key));
        return std::pair(view.Band.X2, view.Band.Y2);
    };
    const auto [x, y] = std::pair<double, double>(view.DragEndX, view.DragEndY);
    EXPECT_EQ(end(Qt::Key_Right, Dromo), std::pair(x + 0.5, y));
    EXPECT_EQ(end(Qt::Key_Left, Dromo), std::pair(x, y));
    EXPECT_EQ(end(Qt::Key_Up, Dromo), std::pair(x, y + 0.5));
    EXPECT_EQ(end(Qt::Key_Down, Dromo), std::pair(x, y));
    EXPECT_EQ(end(Qt::Key_PageUp, Dromo), std::pair(x, y + 1));
    EXPECT_EQ(end(Qt::Key_Plus, Dromo), std::pair(x, y + 1));
    EXPECT_EQ(end(Qt::Key_Right, Dromo), std::pair(x + 1, y + 1)) << "the step is doubled";
    EXPECT_EQ(end(Qt::Key_Minus, Dromo), std::pair(x + 1, y + 1));
    EXPECT_EQ(end(Qt::Key_PageDown, Dromo), std::pair(x + 1, y));
    QTest::mousePress(Dromo, Qt::RightButton, {}, At(20, 20));
    EXPECT_TRUE(view.Band.Stands) << "the other button begins none";
    // A redraw takes the band away, and the keys find none.
    Display.Show_Curves();
    QTest::keyClick(Dromo, Qt::Key_Up);
    EXPECT_FALSE(view.Band.Stands);
}

TEST_F(CurvesTab, changed_picks_are_redrawn_to_the_same_pixels) {
    Project& project = Program.Work.Project;
    project.ShotDistance(3) = 70;  // beyond the line: its number stands beside its last pick
    project.ReceiverData(ReceiverIntercept, 5) = 30;
    for (int receiver = 5; receiver <= 9; ++receiver)
        project.ShotTimes(1, receiver) = 0;  // a curve across a gap
    Program.Work.Curves.ShowReceiverIntercepts = true;
    for (const bool by_velocity : {false, true}) {
        Program.Work.Settings.ColorChoice = by_velocity;
        Display.Show_Curves();
        for (int i = 0; i < 48; ++i) {
            const PickPlace pick{1 + i % 3, 1 + i * 7 % 12};
            float& time = project.ShotTimes(pick.Shot, pick.Receiver);
            time = i % 4 == 0 || (i > 30 && pick.Receiver > 8) ? 0 : std::max(5.0F, time * 0.8F);
            Refresh_Curves(Program.Work, Program.Outside, std::span(&pick, 1));
            const QImage refreshed = Dromo->Canvas().Image().copy();
            Display.Show_Curves();
            ASSERT_EQ(refreshed, Dromo->Canvas().Image()) << by_velocity << " " << i;
        }
    }
}

TEST_F(CurvesTab, a_time_factor_of_a_half_keeps_its_scroll_bar) {
    auto* bar = Find<QScrollBar>("VScroll1");
    Display.Open_Dialog(Dialog::Zoom, false);
    Form* form = Display.Open_Form(Dialog::Zoom);
    form->findChild<QComboBox*>("Combo2")->setEditText("0.5");
    form->findChild<QPushButton*>("Command1")->click();
    ASSERT_TRUE(bar->isVisible());
    EXPECT_EQ(bar->minimum(), -100);
    EXPECT_EQ(bar->maximum(), 0);
    EXPECT_EQ(Dromo->Canvas().Current_Frame().Top, 200);
    bar->setValue(-60);
    EXPECT_EQ(Dromo->Canvas().Current_Frame().Top, 140);
    EXPECT_EQ(Dromo->Canvas().Current_Frame().Bottom, -60);
}

TEST_F(CurvesTab, the_ruler_stands_on_the_rows_of_the_curves_and_of_the_record_at_any_size) {
    Give_Records();
    Display.Open_Dialog(Dialog::RulerF, false);
    Form* form = Display.Open_Form(Dialog::RulerF);
    auto* strip = form->findChild<PictureBox*>("regle");
    const auto same_rows = [&](PictureBox* other, std::initializer_list<double> rows) {
        QApplication::processEvents();
        for (const double row : rows)
            EXPECT_NEAR(strip->mapToGlobal(QPoint()).y() + Row(strip, row),
                        other->mapToGlobal(QPoint()).y() + Row(other, row), 0.01)
                << row;
    };
    for (const QSize size : {QSize(1100, 700), QSize(900, 560), QSize(1250, 900)}) {
        Screen->resize(size);
        same_rows(Dromo, {0, 20, 50, 99});
    }
    qobject_cast<QWidget*>(form->parent())->resize(90, 200);
    same_rows(Dromo, {0, 20, 50, 99});
    Set_Zoom(Program.Work.Curves, 1, 4);
    VScroll1_Change(Program.Work, Program.Outside, 40);
    same_rows(Dromo, {42, 50, 64});
    Toggle_Zero_On_Top(Program);
    same_rows(Dromo, {42, 50, 64});

    Display.Select_Tab(Tab::Record);
    QApplication::processEvents();
    Open_Records(Program.Work, Program.Outside);
    Display.Display_Record();
    form->findChild<QToolButton*>("ruler_record")->click();
    ASSERT_GT(Program.Work.Record.LastSample, 0);
    same_rows(Find<PictureBox>("Echelle3"), {1, 60, 140});
    EXPECT_FALSE(Blank(strip));
}

TEST_F(CurvesTab, the_field_that_the_picture_serves_is_lit_and_no_other) {
    Display.Open_Dialog(Dialog::SpeedF, false);
    Form* speed = Display.Open_Form(Dialog::SpeedF);
    auto* from = speed->findChild<QLabel*>("From");
    auto* to = speed->findChild<QLabel*>("To");
    EXPECT_TRUE(from->isVisible());
    EXPECT_FALSE(to->isVisible());
    Display.Open_Dialog(Dialog::Fcalcul, false);
    Form* depth = Display.Open_Form(Dialog::Fcalcul);
    auto* intercept = depth->findChild<QLineEdit*>("Text31");
    const QColor plain = depth->palette().color(QPalette::Base);
    const auto lit = [&] { return intercept->palette().color(QPalette::Base) != plain; };
    EXPECT_FALSE(from->isVisible()) << "the picture has gone to the depths";
    QFocusEvent enter(QEvent::FocusIn);
    QApplication::sendEvent(intercept, &enter);
    EXPECT_TRUE(lit());
    Display.Show_Curves();
    EXPECT_TRUE(lit()) << "a redraw changes nothing";
    Program.Speed.Enter_Receiver(SpeedF::ReceiverBox::To);
    Display.Show_Fields();
    EXPECT_FALSE(lit());
    EXPECT_TRUE(to->isVisible());
    // The command of an open dialog brings it to the front, and the picture with it.
    Run_Command(Program, "sum");
    EXPECT_TRUE(Program.Work.Mode.Held_By(Dialog::Fcalcul));
    Display.Close_Dialog(Dialog::Fcalcul);
    Display.Show_Fields();
    EXPECT_TRUE(to->isVisible()) << "given back";
    Display.Close_Dialog(Dialog::SpeedF);
    EXPECT_EQ(Program.Work.Mode.Current(), DisplayMode::Dromo);
}

TEST_F(CurvesTab, a_velocity_goes_from_the_drag_to_the_file_and_a_refused_save_is_not_recorded) {
    Display.Open_Dialog(Dialog::SpeedF, false);
    Form* form = Display.Open_Form(Dialog::SpeedF);
    form->findChild<QComboBox*>("Combo2")->setEditText("1");
    Program.Speed.FirstReceiver = "2";
    Program.Speed.LastReceiver = "9";
    Program.Speed.Command5();
    auto* mark = form->findChild<QLabel*>("NotRecorded");
    auto* save = form->findChild<QPushButton*>("Command1");
    EXPECT_TRUE(mark->isVisible());
    Program.Work.Project.CurrentFile = Folder / "no folder/line.tv5";
    Program.Record.Load();
    Program.Record.Layer = "2";
    Program.Record.Command1();
    EXPECT_TRUE(mark->isVisible());
    EXPECT_TRUE(save->isEnabled());
    EXPECT_EQ(Program.Work.Edits.Undo_Name(), "Velocity of shot 1, layer 2");
    Program.Work.Project.CurrentFile = Folder / "line.tv5";
    Program.Record.Command1();
    EXPECT_FALSE(mark->isVisible());
    EXPECT_FALSE(save->isEnabled());
    Project written;
    Parse_Project(*Read_File(Folder / "line.tv5"), written);
    EXPECT_EQ(written.VelocityA(1, 2), 500);
    EXPECT_EQ(written.VelocityB(1, 2), 500);
    Program.Speed.Command5();
    EXPECT_TRUE(save->isEnabled()) << "each result can be saved";
}

}  // namespace
}  // namespace tarnvik
