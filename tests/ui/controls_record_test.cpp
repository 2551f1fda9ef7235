#include <QAction>
#include <QMenu>
#include <QToolButton>

// Each control above the field record and of the automatic picking beside it.

#include "control_table.h"
#include "records/header_words.h"
#include "records/record_choice.h"
#include "records/su_file.h"

namespace tarnvik {
namespace {

class RecordPageControls : public Controls {
  protected:
    RecordPageControls() {
        Page = Page_Of(Tab::Record);
        Display.Display_Record();
    }
    double Word(int trace, int word) { return SuTraces(Folder / "demo1.su").Word_Or_Zero(trace, word); }
    Effect Draws() { return Redraws("Ecran"); }

    /// A pane that stays open for the rows behind it, in place of the one before.
    std::function<void(QWidget*)> Opens(const char* inside) {
        return [this, inside](QWidget* control) {
            if (QWidget* other = QApplication::activePopupWidget()) other->close();
            Click(control);
            EXPECT_TRUE(Page->findChild<QWidget*>(inside)->isVisible());
        };
    }

    RecordView& View = Program.Work.Record;
    QWidget* Page = nullptr;
};

TEST_F(RecordPageControls, each_does_its_work) {
    ASSERT_EQ(View.NbRecords, 5);
    ASSERT_EQ(View.ChannelsPerRecord, 24);
    const std::vector<Row> rows = {
        {"HScroll2",
         [&](QWidget* control) {
             auto* bar = qobject_cast<QScrollBar*>(control);
             EXPECT_EQ(bar->minimum(), 1);
             EXPECT_EQ(bar->maximum(), 5);
             Select_Record(Work, 3);
             Display.Display_Record();
             Display.Show_Fields();
             EXPECT_EQ(bar->value(), 3);
             EXPECT_EQ(Text(Page->findChild<QLabel*>("Text12")), "3/ FLDR 3");
             Effect drawn = Draws();
             drawn.Before();
             bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
             EXPECT_EQ(View.Record, 4);
             EXPECT_EQ(View.FirstTrace, 73);
             EXPECT_TRUE(drawn.Done());
             EXPECT_EQ(Text(Page->findChild<QLabel*>("Text12")), "4/ FLDR 4");
             bar->setValue(1);
         }},
        {"Command23", Clicked({[] {}, [&] { return View.Record == 2 && View.LastTrace == 48; }})},
        {"Command24", Clicked({[] {}, [&] { return View.Record == 1 && View.FirstTrace == 1; }})},
        {"Command21", Clicked(Draws())},
        {"Command4", Clicked({[] {}, [&] { return View.ZoomMode == 1; }})},
        {"Command17", Clicked({[&] {
                                   View.ZoomMode = 0;
                                   View.FirstTrace = 4;
                                   View.LastTrace = 9;
                                   Display.Display_Record();
                                   Display.Show_Fields();
                               },
                               [&] { return View.FirstTrace == 1 && View.LastTrace == 24; }})},
        {"Command10", Clicked({[&] { View.AmplitudeGain = 2; }, [&] { return View.AmplitudeGain == 1.5; }})},
        {"Command15", Clicked({[&] { View.AmplitudeGain = 2; }, [&] { return View.AmplitudeGain == 4; }})},
        {"Text11", Finished(View.AmplitudeGain, 3.5, 1.0, Draws())},
        {"Command25", Clicked({[] {}, [&] { return View.DisplayPolarity == -1; }})},
        {"Command5", Clicked({[] {}, [&] { return Display.Is_Open(Dialog::AutoPik); }})},
        {"Command18", Clicked({[&] {
                                   Display.Close_Dialog(Dialog::AutoPik);
                                   Display.Show_Fields();
                                   Prompts.Expect_File("Load ", "");
                               },
                               [&] { return !Prompts.FileRequests.empty(); }})},
        {"Command16",
         Clicked({[&] {
                      Prompts.Expect_Input("First trace to move FB", "2");
                      Prompts.Expect_Input("Last trace to move FB", "3");
                      Prompts.Expect_Input("Shift time to move FB on shot 1", "4");
                      Prompts.Expect(" OK, move 4ms from 2 to 3 on record 1", Answer::Yes);
                  },
                  [&] { return Word(2, words::First_Breaks) == 40 && Word(4, words::First_Breaks) == 0; }})},
        {"Pick_Time_Shift",
         Clicked({[&] { Prompts.Expect_Input("Time shift in ms for picking FBP Minus=Up", "7"); },
                  [&] { return View.PickTimeShift == 7; }})},
        {"Spectre_Frequency", Clicked({[] {}, [&] { return View.SpectrumRequest == 1; }})},
        {"Picking_Menu",
         [&](QWidget* control) {
             auto* menu = qobject_cast<QToolButton*>(control)->menu();
             menu->findChild<QAction*>("Snap_Trough")->trigger();
             EXPECT_EQ(View.Picking.Feature, SnapTo::Trough);
             EXPECT_TRUE(menu->findChild<QAction*>("Snap_Trough")->isChecked());
             EXPECT_FALSE(menu->findChild<QAction*>("Snap_Onset")->isChecked());
             menu->findChild<QAction*>("Snap_Every")->trigger();
             EXPECT_TRUE(View.Picking.SnapEvery);
             menu->findChild<QAction*>("Snap_Every")->trigger();
         }},
        {"Check16", Ticked(View.ReverseOnClick)},
        {"RecordPane", Opens("Check8")},
        {"Combo6",
         [&](QWidget* control) {
             auto* list = qobject_cast<QComboBox*>(control);
             EXPECT_EQ(list->currentText(), "0");
             Prompts.Expect_Input("Do you want to shift 1-Active trace 2-Active shot 3-All shots ", "2");
             emit list->textActivated("+5");
             EXPECT_EQ(Work.Edits.Undo_Name(), "Shift shot 1 by 5 ms");
             EXPECT_EQ(list->currentText(), "0") << "ready for the next";
             EXPECT_EQ(Work.Edits.Undo(Line), "");
         }},
        {"Command1", Clicked({[&] { Prompts.Expect_Start("Use this module to add", Answer::Cancel); },
                              [&] { return Prompts.Last_Text().starts_with("Use this module"); }})},
        {"Text9", Finished<std::int32_t>(View.FirstTrace, 2, 5, Draws())},
        {"Text10",
         Finished<std::int32_t>(
             View.LastTrace, 24, 20,
             {[&] {
                  View.WholeFirst = View.WholeLast = 0;
                  Draws().Before();
              },
              [&] { return !Blank(Box("Ecran")) && View.WholeFirst == 1 && View.WholeLast == 24; }})},
        {"Text13", Finished(View.ShotStation, 1.0, 3.0,
                            {[&] {
                                 Select_Record(Work, 1);
                                 Draws().Before();
                             },
                             [&] { return Word(1, words::ep) == 3 && !Blank(Box("Ecran")); }})},
        {"Text18",
         Finished(View.FirstGeophone, 1.0, 2.0,
                  {Draws().Before, [&] { return Word(1, words::tracl) == 2 && !Blank(Box("Ecran")); }})},
        {"Check8", Ticked(View.DirectionInverted, Draws())},
        {"Check2",
         [&](QWidget* control) {
             EXPECT_FALSE(View.SeveralSpreads);
             View.StationsTyped.clear();
             Prompts.Expect_Input("Enter shot station: ", "2");
             Prompts.Expect_Input("Enter 1st geophone number: ", "5");
             const Effect drawn = Draws();
             drawn.Before();
             Click(control);
             EXPECT_TRUE(View.SeveralSpreads);
             EXPECT_TRUE(drawn.Done());
             EXPECT_EQ(Word(1, words::tracl), 5);
             Ticked(View.SeveralSpreads, Draws())(control);
         }},
        {"DisplayPane", Opens("clip")},
        {"Combo1",
         [&](QWidget* control) {
             auto* style = qobject_cast<QComboBox*>(control);
             EXPECT_EQ(style->count(), 3);
             View.Style = 2;
             Display.Show_Fields();
             EXPECT_EQ(style->currentText(), "Color");
             const Effect drawn = Draws();
             drawn.Before();
             QTest::keyClick(style, Qt::Key_Up);
             EXPECT_EQ(View.Style, 1);
             EXPECT_TRUE(drawn.Done());
         }},
        {"Text21", Finished<std::int32_t>(View.CurveOnRecord, 4, 2, Draws())},
        {"clip", Ticked(View.ClipAmplitude, Draws())},
        {"Check6", Ticked(View.ShowTravelTimes, Draws())},
        {"Check3", Ticked(View.EqualiseTraces, Draws())},
        {"Check7", Ticked(View.Overdraw, Draws())},
        {"AgcWindow", Finished(View.AgcWindow, 0.0, 40.0, Draws())},
        {"EqualiseInSight",
         [&](QWidget* control) {
             View.EqualiseTraces = true;
             Display.Show_Fields();
             Ticked(View.EqualiseInSight, Draws())(control);
         }},
        {"CrossHair",
         Clicked({[] { QApplication::activePopupWidget()->close(); }, [&] { return !View.CrossHair; }})},
        {"RecordDown",
         [&](QWidget* control) {
             Program.RecordWheel.Enlarge_Time(1, 4);
             auto* bar = qobject_cast<QScrollBar*>(control);
             EXPECT_EQ(bar->value(), 1);
             bar->triggerAction(QAbstractSlider::SliderToMaximum);
             EXPECT_EQ(View.LastSample, View.NbSamples);
         }},
        {"RecordAcross",
         [&](QWidget* control) {
             Select_Record(Work, 2);
             Program.RecordWheel.Enlarge_Traces(25 * 2000, 4);
             auto* bar = qobject_cast<QScrollBar*>(control);
             EXPECT_EQ(bar->value(), 25);
             bar->triggerAction(QAbstractSlider::SliderToMaximum);
             EXPECT_EQ(View.LastTrace, 48);
             EXPECT_GT(View.FirstTrace, 25);
         }},
    };
    Check_All([&] { return Page; }, rows);

    // The buttons that stay down follow what they stand for, however it came about.
    const auto marks = [&] {
        std::string down;
        for (const char* name : {"Command25", "Command5", "Pick_Time_Shift", "Spectre_Frequency"})
            down += Page->findChild<QAbstractButton*>(name)->isChecked() ? '1' : '0';
        return down;
    };
    EXPECT_EQ(marks(), "1011");
    View.DisplayPolarity = 1;
    View.PickTimeShift = 0;
    View.SpectrumRequest = 0;
    Open(Dialog::AutoPik);
    Display.Show_Fields();
    EXPECT_EQ(marks(), "0100");
    Display.Close_Dialog(Dialog::AutoPik);

    // Without records nothing is left to be used but their loading.
    Line.SuFile.clear();
    Display.Show_Fields();
    for (const char* name : {"HScroll2", "Text11", "Check16", "Command5", "Command23"})
        EXPECT_FALSE(Page->findChild<QWidget*>(name)->isEnabled()) << name;
    EXPECT_TRUE(Page->findChild<QWidget*>("Command18")->isEnabled());
    EXPECT_EQ(Text(Page->findChild<QLabel*>("Text12")), "");
}

TEST_F(RecordPageControls, of_the_automatic_picking_pick_again) {
    Form* form = Open(Dialog::AutoPik);
    AutoPik& logic = Program.AutomaticPicking;
    EXPECT_EQ(View.AutoPickMode, -1);
    const Effect picks = {[&] {
                              logic.Window = "20";
                              logic.FirstTime = "10";
                              logic.ProcessedTrace.clear();
                          },
                          [&] { return logic.ProcessedTrace == "24"; }};
    const std::vector<Row> rows = {
        {"Text51", Typed(logic.Frequency, {[&] {
                                               picks.Before();
                                               logic.HalfCycle.clear();
                                           },
                                           [&] { return picks.Done() && !logic.HalfCycle.empty(); }})},
        {"Text53", Typed(logic.StartShift, picks)},
        {"Text54", Typed(logic.Window, picks)},
        {"Text55", Typed(logic.FirstTime, picks)},
        {"Text57", Typed(logic.MinAmplitude, picks)},
        {"Text3", Typed(logic.PickShift, picks)},
        {"Text56",
         [&](QWidget* control) {
             Shows(control, logic.HalfCycle);
             EXPECT_FALSE(control->isEnabled()) << "computed from the frequency";
         }},
        {"HScroll4",
         [&](QWidget* control) {
             auto* bar = qobject_cast<QScrollBar*>(control);
             logic.SensitivityBar.Value = 300;
             Display.Show_Fields();
             EXPECT_EQ(bar->value(), 300);
             EXPECT_EQ(bar->maximum(), 1000);
             picks.Before();
             QTest::keyClick(bar, Qt::Key_Right);
             EXPECT_GT(logic.SensitivityBar.Value, 300);
             EXPECT_EQ(logic.SensitivityBar.Value, bar->value());
             EXPECT_EQ(std::stod(logic.Sensitivity), bar->value() / 1000.0);
             EXPECT_TRUE(picks.Done());
         }},
        {"Text52", Shown(logic.Sensitivity)},
        {"Check1",
         [](QWidget* control) {
             EXPECT_FALSE(control->isEnabled());
             EXPECT_TRUE(control->toolTip().contains("no effect"));
         }},
        {"Check2", Ticked(logic.Negative, picks)},
        {"Check3", Ticked(logic.Absolute, picks)},
        {"ReplaceHand", Ticked(logic.ReplaceHand, picks)},
        {"ThisRecord", Clicked(picks)},
        {"AllRecords",
         Clicked({[] {}, [&] { return Work.Edits.Undo_Name() == "Automatic picking of all records"; }})},
        {"Text1", Shown(logic.ReferenceTrace)},
        {"Text2", Shown(logic.ProcessedTrace)},
        {"Command1",
         Clicked({[] {}, [&] { return Prompts.Last_Text().starts_with("HOW TO PICK FIRST BREAKS"); }})},
        {"Command3", Clicked({[] {}, [&] { return Work.Edits.Is_Saved(); }})},
        {"Command2",
         Clicked({[&] { Prompts.Expect(" Erase FBP values of  1/ FLDR 1", Answer::Ok); },
                  [&] { return Line.ShotTimes(1, 1) == 0 && Word(24, words::First_Breaks) == 0; }})},
    };
    Check_All([&] { return form; }, rows);
    Display.Close_Dialog(Dialog::AutoPik);
    EXPECT_EQ(View.AutoPickMode, 0);
}

}  // namespace
}  // namespace tarnvik
