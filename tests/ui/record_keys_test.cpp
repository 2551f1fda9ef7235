#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <random>

#include "app/commands.h"
#include "core/edits/project_block.h"
#include "records/header_words.h"
#include "records/record_files.h"
#include "records/su_loading.h"
#include "setup/build_grid.h"
#include "support/su_builder.h"
#include "ui/picking_menu.h"
#include "window_fixture.h"

namespace tarnvik {
namespace {

/// Three records of 12 channels, 800 samples at 0.25 ms, with noise: direct wave and refractor, the shots at
/// both ends and in the middle of the line.
class RecordKeysTest : public Window {
  protected:
    static constexpr int channels = 12;
    static constexpr int records = 3;
    static constexpr int samples = 800;
    static constexpr double interval = 0.25;

    RecordKeysTest() {
        Project& line = Program.Work.Project;
        std::fill(line.ShotTimes.Values().begin(), line.ShotTimes.Values().end(), 0.0F);
        test::SuBuilder file(channels * records, samples, 250);
        file.Records(channels);
        std::mt19937 random(5);
        std::normal_distribution<double> noise(0, 0.01);
        for (int trace = 1; trace <= channels * records; ++trace) {
            for (int sample = 1; sample <= samples; ++sample) {
                const double after = sample * interval - Break_Of(trace);
                const double wave = after <= 0 ? 0 : std::sin(after * 0.3) * std::exp(-after / 20);
                file.Sample(trace, sample, static_cast<float>(1000 * (wave + noise(random))));
            }
        }
        line.SuFile = Path = file.Write(Folder / "line.su");
        QApplication::setActiveWindow(Screen.get());
        Start_With_SU_File(Program.Work, Path);
        Scan_Channels(Program.Work, Path);
        Fill_Grid(Program.Work);
        Display.Select_Tab(Tab::Record);
        Display.Display_Record();
        QApplication::processEvents();
        Program.Work.Edits.Start(line, true);
        Ecran = Find<PictureBox>("Ecran");
    }

    static double Break_Of(int trace) {
        const int shot = (trace - 1) / channels;
        const double offset = std::abs(5.0 * ((trace - 1) % channels) - 27.5 * shot);
        return 3 + std::min(offset / 0.5, 12 + offset / 2.0);
    }
    double Pick(int trace) { return SuTraces(Path).Pick_Ms(trace); }
    int Life(int trace) { return static_cast<int>(SuTraces(Path).Word_Or_Zero(trace, words::trid)); }
    void Press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(Screen->focusWidget(), Qt::Key(key), modifiers);
        ++Strokes;
    }
    QPoint Place(int trace, double ms) {
        return Pixel(Ecran, trace * trace_width + trace_width / 2, ms / interval);
    }
    double Cursor_Ms() const { return Program.Work.Record.Picking.Sample * interval; }
    std::string State() const { return test::Content_Of(Path) + Project_Block(Program.Work.Project); }

    std::string Path;
    PictureBox* Ecran = nullptr;
    int Strokes = 0;
};

TEST_F(RecordKeysTest, a_whole_line_is_picked_by_keys_alone_and_taken_back_by_undo) {
    const std::string before = State();
    EXPECT_TRUE(Ecran->hasFocus()) << "the keys belong to the record as soon as it shows";
    Press(Qt::Key_Space);  // shows the cursor
    EXPECT_EQ(State(), before);
    for (int record = 1; record <= records; ++record) {
        for (int channel = 1; channel <= channels; ++channel)
            Press(Qt::Key_Space);
        if (record < records) Press(Qt::Key_PageDown);
    }
    EXPECT_EQ(Strokes, channels * records + records);
    for (int trace = 1; trace <= channels * records; ++trace) {
        EXPECT_NEAR(Pick(trace), Break_Of(trace), 0.6) << trace;
        const int shot = (trace - 1) / channels + 1;
        EXPECT_NEAR(Program.Work.Project.ShotTimes(shot, (trace - 1) % channels + 1), Pick(trace), 0.051);
    }
    EXPECT_EQ(Program.Work.Edits.Undo_Name(), "Pick shot 3, receiver 12");
    EXPECT_EQ(Program.Work.Edits.Done(), std::size_t(channels * records));
    while (Program.Work.Edits.Can_Undo())
        Run_Command(Program, "Undo_M");
    EXPECT_EQ(State(), before);
}

TEST_F(RecordKeysTest, arrows_snap_delete_and_kill_work_at_the_cursor) {
    Press(Qt::Key_Right);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(Program.Work.Record.Picking.Trace, 11);
    Press(Qt::Key_Left);
    EXPECT_EQ(Program.Work.Record.Picking.Trace, 10);
    EXPECT_NEAR(Cursor_Ms(), Break_Of(10), 0.6);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_Up);
    const double placed = Cursor_Ms();
    EXPECT_NEAR(placed, Break_Of(10) + 9 * interval, 0.7);
    Press(Qt::Key_Space);
    EXPECT_NEAR(Pick(10), placed, 0.051);
    Press(Qt::Key_Left);
    EXPECT_NEAR(Cursor_Ms(), placed, 0.051) << "a trace that is picked shows its pick";
    Press(Qt::Key_S);
    EXPECT_NEAR(Cursor_Ms(), Break_Of(10), 0.6);
    EXPECT_NEAR(Pick(10), placed, 0.051) << "snapping moves the cursor alone";
    Press(Qt::Key_Delete);
    EXPECT_EQ(Pick(10), 0);
    EXPECT_EQ(Life(10), 1);
    EXPECT_EQ(Program.Work.Edits.Undo_Name(), "Remove pick of shot 1, receiver 10");
    Press(Qt::Key_K);
    EXPECT_EQ(Life(10), 2);
    Press(Qt::Key_Left);
    Press(Qt::Key_Space);
    EXPECT_EQ(Program.Work.Record.Picking.Trace, 11) << "a dead trace is passed over";
    Press(Qt::Key_Left);
    Press(Qt::Key_K);
    EXPECT_EQ(Life(10), 1);
    EXPECT_TRUE(Prompts.Messages.empty()) << "keys ask nothing";

    Run_Command(Program, "Snap_Peak");
    Run_Command(Program, "Snap_Every");
    Press(Qt::Key_Space);
    EXPECT_GT(Pick(10), Break_Of(10) + 2);
    QTest::mouseClick(Ecran, Qt::LeftButton, {}, Place(3, Break_Of(3) + 3));
    EXPECT_NEAR(Pick(3) - Break_Of(3), Pick(10) - Break_Of(10), 1.3) << "the mouse snaps as the keys do";
}

TEST_F(RecordKeysTest, fields_keep_their_keys_and_give_them_back) {
    auto* gain = Find<QLineEdit>("Text11");
    gain->setFocus();
    gain->selectAll();
    for (const char letter : {'1', 'k', 's', 'p', 'm'})
        QTest::keyClick(gain, letter);
    Press(Qt::Key_Left);
    Press(Qt::Key_Space);
    EXPECT_FALSE(Program.Work.Record.Picking.Active);
    EXPECT_FALSE(Program.Work.Record.Picking.Magnifier);
    EXPECT_EQ(gain->text(), "1ksp m");
    Press(Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_TRUE(Ecran->hasFocus());
    gain->setFocus();
    QTest::keyClick(gain, '7');
    Press(Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_TRUE(Ecran->hasFocus());
    EXPECT_EQ(Program.Work.Record.AmplitudeGain, 1) << "Escape takes back what was typed";

    gain->setFocus();
    QTest::mouseClick(Ecran, Qt::LeftButton, {}, Place(4, 30));
    EXPECT_EQ(Pick(4), 0) << "this click only left the field";
    QTest::mouseClick(Ecran, Qt::LeftButton, {}, Place(4, 30));
    EXPECT_NEAR(Pick(4), 30, 0.5);
}

TEST_F(RecordKeysTest, p_held_paints_picks_along_the_line_as_one_edit) {
    const std::string before = State();
    QTest::keyPress(Ecran, Qt::Key_P);
    QTest::mousePress(Ecran, Qt::LeftButton, {}, Place(3, 20));
    for (const auto& [trace, ms] : {std::pair(5, 40.0), {8, 40.0}, {9, 60.0}}) {
        QMouseEvent move(QEvent::MouseMove, Place(trace, ms), Ecran->mapToGlobal(Place(trace, ms)),
                         Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(Ecran, &move);
    }
    EXPECT_EQ(State(), before) << "not before the button is let go";
    QTest::mouseRelease(Ecran, Qt::LeftButton, {}, Place(9, 60));
    QTest::keyRelease(Ecran, Qt::Key_P);
    const std::vector<double> expected = {0, 0, 20, 30, 40, 40, 40, 40, 60, 0, 0, 0};
    for (int trace = 1; trace <= channels; ++trace)
        EXPECT_NEAR(Pick(trace), expected[static_cast<std::size_t>(trace) - 1], 0.8) << trace;
    EXPECT_EQ(Program.Work.Edits.Undo_Name(), "Paint picks of record 1");
    Run_Command(Program, "Undo_M");
    EXPECT_EQ(State(), before);
    QTest::mouseClick(Ecran, Qt::LeftButton, {}, Place(4, 30));
    EXPECT_EQ(Program.Work.Edits.Undo_Name(), "Pick shot 1, receiver 4");
}

TEST_F(RecordKeysTest, the_pick_of_the_last_trace_brings_the_next_record_where_that_is_chosen) {
    QTest::mouseClick(Ecran, Qt::LeftButton, {}, Place(12, 40));
    EXPECT_EQ(Program.Work.Record.Record, 1);
    Run_Command(Program, "Undo_M");
    Run_Command(Program, "Next_Record");
    QTest::mouseClick(Ecran, Qt::LeftButton, {}, Place(12, 40));
    EXPECT_EQ(Program.Work.Record.Record, 2);
    Press(Qt::Key_Space);
    EXPECT_EQ(Program.Work.Record.Picking.Trace, 13);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    Press(Qt::Key_Right);
    Press(Qt::Key_Space);
    EXPECT_EQ(Program.Work.Record.Record, 3);
    EXPECT_EQ(Program.Work.Record.Picking.Trace, 25);
}

TEST_F(RecordKeysTest, lines_beside_the_picks_and_the_magnifier_leave_the_record_as_it_is) {
    Project& line = Program.Work.Project;
    for (int receiver = 1; receiver <= channels; ++receiver) {
        line.ShotTimes(1, receiver) = static_cast<float>(Break_Of(receiver));
        line.ShotTimes(3, receiver) = static_cast<float>(Break_Of(24 + receiver));
    }
    const QImage plain = Ecran->grab().toImage();
    for (const int key : {Qt::Key_T, Qt::Key_O, Qt::Key_M})
        Press(key);
    Press(Qt::Key_Right);
    auto* magnifier = Find<QFrame>("Magnifier");
    EXPECT_TRUE(magnifier->isVisible());
    EXPECT_FALSE(Blank(magnifier->findChild<PictureBox*>()));
    EXPECT_NE(Ecran->grab().toImage(), plain);
    EXPECT_EQ(Program.Work.Record.FirstTrace, 1);
    EXPECT_EQ(Program.Work.Record.LastSample, samples);
    for (const int key : {Qt::Key_T, Qt::Key_O, Qt::Key_M, Qt::Key_N, Qt::Key_Escape})
        Press(key);
    EXPECT_FALSE(magnifier->isVisible());
}

}  // namespace
}  // namespace tarnvik
