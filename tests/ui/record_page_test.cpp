#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>
#include <cmath>
#include <filesystem>

#include "app/session.h"
#include "records/header_words.h"
#include "records/su_file.h"
#include "records/su_loading.h"
#include "setup/build_grid.h"
#include "support/su_builder.h"
#include "ui/trace_size_strip.h"
#include "window_fixture.h"

namespace tarnvik {
namespace {

/// The main window over three records of 12 channels, 200 samples at 1 ms: a wave that breaks at sample
/// 20 + 2 * channel.
class RecordTab : public Window {
  protected:
    static constexpr int channels = 12;
    static constexpr int records = 3;
    static constexpr int samples = 200;

    RecordTab() : File(channels * records, samples) {
        File.Records(channels);
        for (int trace = 1; trace <= channels * records; ++trace) {
            const int channel = (trace - 1) % channels + 1;
            const int first_break = Break_Of(channel);
            for (int sample = first_break; sample <= samples; ++sample) {
                const double after = sample - first_break + 1;
                File.Sample(trace, sample,
                            static_cast<float>(1000.0 / (channel + 5) * std::sin(after * 0.3) / after));
            }
        }
        Path = File.Write(Folder / "line.su");
        Program.Work.Project.SuFile = Path;
        Program.Work.Project.ShotTimes = {records, channels};
        Screen->resize(1100, 800);
        Start_With_SU_File(Program.Work, Path);
        Scan_Channels(Program.Work, Path);
        Fill_Grid(Program.Work);
        Display.Select_Tab(Tab::Record);
        Display.Display_Record();
        QApplication::processEvents();
        Ecran = Find<PictureBox>("Ecran");
    }
    static int Break_Of(int channel) { return 20 + 2 * channel; }
    /// Pixel of a trace's axis at a time, in the picture.
    QPoint Place(int trace, double ms) {
        const Frame frame = Ecran->Canvas().Current_Frame();
        const QPointF inner(frame.To_Pixel_X(trace * 2000 + 1000), frame.To_Pixel_Y(ms));
        return (Ecran->Canvas().Window().topLeft() + inner).toPoint();
    }
    double Pick(int trace) { return SuTraces(Path).Word_Or_Zero(trace, words::First_Breaks) / 10.0; }
    int Life(int trace) { return SuTraces(Path).Word_Or_Zero(trace, words::trid); }
    void Type(Form* form, const char* name, const char* text) {
        auto* edit = form->findChild<QLineEdit*>(name);
        ASSERT_NE(edit, nullptr) << name;
        edit->clear();
        QTest::keyClicks(edit, text);
    }

    test::SuBuilder File;
    std::string Path;
    PictureBox* Ecran = nullptr;
};

TEST_F(RecordTab, a_click_picks_the_trace_under_it_also_the_second_of_two_quick_ones) {
    const double pixel_ms = (samples - 1) / Ecran->Canvas().Current_Frame().Height;
    QTest::mouseClick(Ecran, Qt::LeftButton, {}, Place(3, 60));
    EXPECT_NEAR(Pick(3), 60, pixel_ms);
    EXPECT_NEAR(Program.Work.Project.ShotTimes(1, 3), 60, pixel_ms);
    QTest::mouseDClick(Ecran, Qt::LeftButton, {}, Place(4, 80));
    EXPECT_NEAR(Pick(4), 80, pixel_ms);
    EXPECT_EQ(Pick(5), 0);

    // Straight to another record by key, straight picking there.
    QTest::keyClick(Ecran, Qt::Key_PageDown);
    EXPECT_EQ(Find<QLineEdit>("Text9")->text(), "13");
    EXPECT_EQ(Find<QScrollBar>("HScroll2")->value(), 2);
    QTest::mouseClick(Ecran, Qt::LeftButton, {}, Place(14, 50));
    EXPECT_NEAR(Program.Work.Project.ShotTimes(2, 2), 50, pixel_ms);
    QTest::keyClick(Ecran, Qt::Key_PageUp);
    EXPECT_EQ(Program.Work.Record.Record, 1);
    QTest::keyClick(Ecran, Qt::Key_Plus);
    EXPECT_EQ(Program.Work.Record.AmplitudeGain, 2);
    QTest::keyClick(Ecran, Qt::Key_Minus);
    EXPECT_EQ(Program.Work.Record.AmplitudeGain, 1.5);
}

TEST_F(RecordTab, a_pick_changes_the_picture_exactly_as_a_whole_drawing_would) {
    for (const int width : {1100, 400}) {  // strips of their own, and marks that stand close
        Screen->resize(width, 800);
        QApplication::processEvents();
        for (const auto& [trace, ms] : {std::pair(3, 60.0), {4, 62.0}, {1, 1.0}, {12, 200.0}, {3, 90.0}}) {
            QTest::mouseClick(Ecran, Qt::LeftButton, {}, Place(trace, ms));
            const QImage picked = Ecran->Canvas().Image().copy();
            Display.Display_Record();
            EXPECT_EQ(picked, Ecran->Canvas().Image()) << width << ", trace " << trace;
        }
        Program.Work.Record.ShowTravelTimes = true;
        for (int receiver = 1; receiver <= channels; ++receiver)
            Program.Work.Project.ShotTimes(2, receiver) = static_cast<float>(20 + 9 * receiver);
        Display.Display_Record();
        QTest::mouseClick(Ecran, Qt::LeftButton, {}, Place(6, 70));
        const QImage picked = Ecran->Canvas().Image().copy();
        Display.Display_Record();
        EXPECT_EQ(picked, Ecran->Canvas().Image()) << width;
        Program.Work.Record.ShowTravelTimes = false;
    }
}

TEST_F(RecordTab, a_button_that_cannot_be_used_tells_why) {
    auto* previous = Find<QToolButton>("Command24");
    EXPECT_FALSE(previous->isEnabled());
    EXPECT_TRUE(previous->toolTip().contains("this is the first shot")) << previous->toolTip().toStdString();
    EXPECT_TRUE(Find<QToolButton>("Command17")->toolTip().contains("the complete record is shown"));
    Find<QToolButton>("Command23")->click();
    EXPECT_TRUE(previous->isEnabled());
    EXPECT_FALSE(previous->toolTip().contains("first shot"));
    Program.Work.Project.SuFile.clear();
    Close_Records(Program.Work, Program.Outside);
    for (const char* name : {"Command4", "Command5", "Command10", "Command16", "Command21", "Command25"}) {
        EXPECT_FALSE(Find<QToolButton>(name)->isEnabled()) << name;
        EXPECT_TRUE(Find<QToolButton>(name)->toolTip().contains("No field records are loaded")) << name;
    }
    EXPECT_TRUE(Find<QToolButton>("Command18")->isEnabled());
    EXPECT_EQ(Find<QLabel>("Text12")->text(), "");
}

TEST_F(RecordTab, the_right_button_asks_at_its_release_and_a_drag_does_not_ask) {
    QTest::mouseClick(Ecran, Qt::LeftButton, {}, Place(5, 40));
    QTest::mousePress(Ecran, Qt::RightButton, {}, Place(5, 40));
    // A move with the button held.
    QMouseEvent move(QEvent::MouseMove, Place(5, 90), Ecran->mapToGlobal(Place(5, 90)), Qt::NoButton,
                     Qt::RightButton, {});
    QApplication::sendEvent(Ecran, &move);
    EXPECT_NEAR(Pick(5), 90, 0.5);
    QTest::mouseRelease(Ecran, Qt::RightButton, {}, Place(5, 90));
    EXPECT_TRUE(Prompts.Messages.empty());

    QTest::mouseMove(Ecran, Place(5, 90));
    QTest::mousePress(Ecran, Qt::RightButton, {}, Place(5, 90));
    EXPECT_TRUE(Prompts.Messages.empty());
    Prompts.Expect("Kill trace 5", Answer::Yes);
    QTest::mouseRelease(Ecran, Qt::RightButton, {}, Place(5, 90));
    EXPECT_EQ(Life(5), 2);
    EXPECT_EQ(Pick(5), 0);
    QTest::mouseClick(Ecran, Qt::LeftButton, {}, Place(5, 44));
    EXPECT_EQ(Life(5), 1) << "a click brings it back";
}

TEST_F(RecordTab, the_zoom_takes_an_area_and_gives_the_record_back) {
    auto* zoom = Find<QToolButton>("Command4");
    auto* whole = Find<QToolButton>("Command17");
    EXPECT_FALSE(whole->isEnabled());
    QTest::keyClick(Ecran, Qt::Key_Z);
    EXPECT_FALSE(zoom->isEnabled());
    const QPoint from = Place(4, 20) - QPoint(9, 0);
    const QPoint to = Place(9, 120) + QPoint(9, 0);
    QTest::mousePress(Ecran, Qt::LeftButton, {}, from);
    QTest::mouseMove(Ecran, to);
    QTest::mouseRelease(Ecran, Qt::LeftButton, {}, to);
    EXPECT_EQ(Program.Work.Record.FirstTrace, 4);
    EXPECT_EQ(Program.Work.Record.LastTrace, 9);
    EXPECT_NEAR(Program.Work.Record.LastSample, 120, 1);
    whole->click();
    EXPECT_EQ(Find<QLineEdit>("Text10")->text(), "12");
    EXPECT_EQ(Program.Work.Record.LastSample, samples);

    // A drag along the time scale.
    auto* scale = Find<PictureBox>("Echelle3");
    QTest::mousePress(scale, Qt::LeftButton, {}, QPoint(20, Place(1, 50).y()));
    QTest::mouseRelease(scale, Qt::LeftButton, {}, QPoint(20, Place(1, 100).y()));
    EXPECT_NEAR(Program.Work.Record.FirstSample, 50, 1);
    EXPECT_NEAR(Program.Work.Record.LastSample, 100, 1);
}

TEST_F(RecordTab, wheel_drag_and_bars_show_any_part_and_each_pick_lands_in_its_cell) {
    const RecordView& view = Program.Work.Record;
    const auto turn = [this](QPoint place, int steps, Qt::KeyboardModifiers keys) {
        QWheelEvent event(QPointF(place), QPointF(Ecran->mapToGlobal(place)), {}, QPoint(0, 120 * steps),
                          Qt::NoButton, keys, Qt::NoScrollPhase, false);
        QApplication::sendEvent(Ecran, &event);
    };
    const auto span = [&view] { return view.LastSample - view.FirstSample; };
    auto* down = Find<QScrollBar>("RecordDown");
    auto* across = Find<QScrollBar>("RecordAcross");
    EXPECT_FALSE(down->isVisible() || across->isVisible());
    const QSize size = Ecran->size();

    // Enlarged at the pointer: what lies there stays there.
    const QPoint held = Place(7, 120);
    turn(held, 4, Qt::ControlModifier);
    EXPECT_LT(span(), 90);
    EXPECT_LT((Place(7, 120) - held).manhattanLength(), 12);
    EXPECT_TRUE(down->isVisible());
    turn(held, 3, Qt::ShiftModifier);
    EXPECT_EQ(view.LastTrace - view.FirstTrace + 1, 6);
    EXPECT_LT((Place(7, 120) - held).manhattanLength(), 90);
    EXPECT_TRUE(across->isVisible());
    QApplication::processEvents();
    EXPECT_EQ(Ecran->size(), size) << "the bars take no room from the record";

    const int first = view.FirstSample;
    turn(held, -1, {});
    EXPECT_GT(view.FirstSample, first);
    const double gain = view.AmplitudeGain;
    turn(held, 1, Qt::AltModifier);
    EXPECT_GT(view.AmplitudeGain, gain);

    // The record follows the hand.
    const QPoint from = Place(6, view.FirstSample + 10);
    const int trace = view.FirstTrace;
    const QPoint by(int(Ecran->Canvas().Window().width() / 6), -40);
    QTest::mousePress(Ecran, Qt::MiddleButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, from + by, Ecran->mapToGlobal(from + by), Qt::NoButton,
                     Qt::MiddleButton, {});
    QApplication::sendEvent(Ecran, &move);
    QTest::mouseRelease(Ecran, Qt::MiddleButton, {}, from + by);
    EXPECT_EQ(view.FirstTrace, trace - 1);
    EXPECT_EQ(Program.Work.Edits.Done(), 0U) << "looking is no edit";

    across->setValue(4);
    EXPECT_EQ(view.FirstTrace, 4);
    down->setValue(60);
    EXPECT_EQ(view.FirstSample, 60);
    for (const int picked : {4, 6, 9}) {
        const double pixel_ms = span() / Ecran->Canvas().Current_Frame().Height;
        QTest::mouseClick(Ecran, Qt::LeftButton, {}, Place(picked, 70 + picked));
        EXPECT_NEAR(Program.Work.Project.ShotTimes(1, picked), 70 + picked, pixel_ms);
        EXPECT_NEAR(Program.Work.Grids.Buildgrid.Value(picked, 1), 70 + picked, pixel_ms);
    }

    QTest::mouseMove(Ecran, Place(6, 75));
    EXPECT_TRUE(Find<QLabel>("RecordReadout")->text().contains("Geophone:6   Distance:25 m   Offset:25 m"));
    const auto lines = [this] { return Ecran->grab(QRect(Place(5, 75), QSize(1, 1))).toImage().pixel(0, 0); };
    const QRgb with = lines();
    QTest::keyClick(Ecran, Qt::Key_C);
    QTest::mouseMove(Ecran, Place(6, 75) + QPoint(1, 0));
    EXPECT_NE(lines(), with);
    QTest::keyClick(Ecran, Qt::Key_Home);
    EXPECT_EQ(view.FirstTrace, 1);
    EXPECT_EQ(view.LastSample, samples);
    EXPECT_FALSE(down->isVisible() || across->isVisible());
}

TEST_F(RecordTab, one_row_of_tools_and_panes_that_count_what_was_typed) {
    Screen->resize(1280, 800);
    QApplication::processEvents();
    EXPECT_NEAR(Find<QToolButton>("Command18")->mapTo(Screen.get(), QPoint()).y(),
                Find<QToolButton>("DisplayPane")->mapTo(Screen.get(), QPoint()).y(), 8);
    EXPECT_GT(Ecran->height(), 470);
    auto* window = Find<QLineEdit>("AgcWindow");
    EXPECT_FALSE(window->isVisible());
    Find<QToolButton>("DisplayPane")->click();
    ASSERT_TRUE(window->isVisible());
    window->setFocus();
    window->selectAll();
    QTest::keyClicks(window, "50");
    window->window()->close();
    EXPECT_EQ(Program.Work.Record.AgcWindow, 50);
    Find<QToolButton>("RecordPane")->click();
    EXPECT_TRUE(Find<QCheckBox>("Check16")->isVisible());
    QTest::keyClick(Find<QCheckBox>("Check16"), Qt::Key_Escape);
    EXPECT_FALSE(Find<QCheckBox>("Check16")->isVisible());
}

TEST_F(RecordTab, a_factor_stands_above_its_trace_and_a_click_there_doubles_or_halves_it) {
    auto* strip = Find<TraceSizeStrip>("size_grid");
    QTest::mouseClick(strip, Qt::LeftButton, {}, QPoint(Place(7, 0).x(), 4));
    EXPECT_EQ(Program.Work.Grids.size_grid.Text(6, 0), "2");
    QTest::mouseClick(strip, Qt::RightButton, {}, QPoint(Place(12, 0).x(), 4));
    EXPECT_EQ(Program.Work.Grids.size_grid.Text(11, 0), "0.5");
    Find<QToolButton>("Command21")->click();
    EXPECT_EQ(Program.Work.Grids.size_grid.Text(6, 0), "1");
}

TEST_F(RecordTab, a_typed_part_of_a_record_is_shown_and_the_record_stays) {
    Find<QScrollBar>("HScroll2")->setValue(3);
    EXPECT_EQ(Find<QLabel>("Text12")->text(), "3/ FLDR 3");
    auto* first = Find<QLineEdit>("Text9");
    first->selectAll();
    QTest::keyClicks(first, "30");
    EXPECT_EQ(Program.Work.Record.FirstTrace, 25) << "not before Return";
    QTest::keyClick(first, Qt::Key_Return);
    EXPECT_EQ(Program.Work.Record.FirstTrace, 30);
    EXPECT_EQ(Find<QScrollBar>("HScroll2")->value(), 3) << "a part of the record stays that record";
    Find<QToolButton>("Command17")->click();
    EXPECT_EQ(first->text(), "25");
}

TEST_F(RecordTab, typing_into_the_automatic_picking_picks_again_and_the_right_button_marks_its_start) {
    QTest::keyClick(Ecran, Qt::Key_A);
    ASSERT_TRUE(Display.Is_Open(Dialog::AutoPik));
    EXPECT_EQ(Program.Work.Record.AutoPickMode, -1);
    Form* form = Display.Open_Form(Dialog::AutoPik);
    QApplication::processEvents();
    QTest::mouseClick(Ecran, Qt::RightButton, {}, Place(1, Break_Of(1) - 3));
    EXPECT_NEAR(form->findChild<QLineEdit*>("Text55")->text().toDouble(), Break_Of(1) - 3, 0.5);
    EXPECT_NE(Pick(12), 0) << "picked at once";
    Type(form, "Text51", "50");
    EXPECT_EQ(form->findChild<QLineEdit*>("Text56")->text().toStdString(), "10");
    Type(form, "Text57", "0.1");
    Type(form, "Text54", "20");
    for (const int channel : {1, 6, 12}) {
        EXPECT_NEAR(Pick(channel), Break_Of(channel), 1) << channel;
        EXPECT_NEAR(Program.Work.Project.ShotTimes(1, channel), Break_Of(channel), 1);
    }
    Type(form, "Text3", "4");
    EXPECT_NEAR(Pick(6), Break_Of(6) + 4, 1);
    EXPECT_EQ(form->findChild<QLabel*>("Text2")->text().toStdString(), "12");
    Find<QToolButton>("Command5")->click();
    EXPECT_FALSE(Display.Is_Open(Dialog::AutoPik));
    EXPECT_EQ(Program.Work.Record.AutoPickMode, 0);
}

TEST_F(RecordTab, a_pick_that_could_not_be_saved_stays_in_sight) {
    std::filesystem::remove(Path);
    QTest::mouseClick(Ecran, Qt::LeftButton, {}, Place(2, 30));
    auto* notice = Find<QLabel>("Status");
    EXPECT_TRUE(notice->text().startsWith("Pick not saved")) << notice->text().toStdString();
    EXPECT_TRUE(notice->isVisible());
    QTest::mouseMove(Ecran, Place(8, 100));
    EXPECT_TRUE(notice->text().startsWith("Pick not saved"));
}

}  // namespace
}  // namespace tarnvik
