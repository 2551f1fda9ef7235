// Each control of the dialogs: what the hand does there reaches the logic, and what the logic changes is
// shown.

#include <QClipboard>
#include <QListWidget>
#include <QMouseEvent>

#include "control_table.h"
#include "support/field_names.h"
#include "traveltime/zoom.h"
#include "ui/spreadsheet_view.h"

namespace tarnvik {
namespace {

class FormControls : public Controls {
  protected:
    FormControls() {
        // Three layers below the shots of the line.
        for (int shot = 2; shot <= 4; ++shot) {
            int layer = 0;
            for (const int velocity : {600, 1600, 3800}) {
                ++layer;
                Line.VelocityA(shot, layer) = static_cast<std::int16_t>(velocity);
                Line.VelocityB(shot, layer) = static_cast<std::int16_t>(velocity);
            }
            for (auto* intercepts : {&Line.InterceptA, &Line.InterceptB}) {
                (*intercepts)(shot, 1) = 18;
                (*intercepts)(shot, 2) = 29;
            }
            for (auto* distances : {&Line.CritDistA, &Line.CritDistB}) {
                (*distances)(shot, 1) = 17;
                (*distances)(shot, 2) = 50;
            }
        }
        Work.Velocity.CurrentShot = 3;
        Display.Select_Tab(Tab::Curves);
        Display.Show_Curves();
        QApplication::processEvents();
    }
    /// The page of a dialog, also when it was closed and opened again.
    std::function<QWidget*()> Form_Of_Dialog(Dialog dialog) {
        return [this, dialog] { return Display.Is_Open(dialog) ? Display.Open_Form(dialog) : Open(dialog); };
    }
    /// The control closes the dialog and does nothing else but this.
    Effect Closes(
        Dialog dialog, std::function<bool()> done = [] { return true; }) {
        return {[] {}, [this, dialog, done] { return !Display.Is_Open(dialog) && done(); }};
    }
    std::string Filed() { return *Read_File(Path); }
};

TEST_F(FormControls, of_the_velocity_calculation_do_their_work) {
    const auto form = Form_Of_Dialog(Dialog::SpeedF);
    SpeedF& logic = Program.Speed;
    const auto receiver_box = [&](std::string& field, SpeedF::ReceiverBox box, const char* mark) {
        return [&, box, mark](QWidget* control) {
            EXPECT_EQ(qobject_cast<QComboBox*>(control)->count(), 24);
            logic.LastEntered =
                box == SpeedF::ReceiverBox::To ? SpeedF::ReceiverBox::From : SpeedF::ReceiverBox::To;
            form()->setFocus();
            Typed(field)(control);
            EXPECT_EQ(logic.LastEntered, box);
            EXPECT_FALSE(form()->findChild<QLabel*>(mark)->isHidden());
        };
    };
    const auto eliminated = [&](std::size_t place) {
        return [&, place](QWidget* control) {
            logic.Eliminate = false;
            Display.Show_Fields();
            EXPECT_TRUE(control->isHidden());
            logic.Eliminate = true;
            Display.Show_Fields();
            EXPECT_FALSE(control->isHidden());
            Typed(logic.Eliminated.at(place))(control);
            logic.Eliminated.at(place).clear();
        };
    };
    const auto stretch = [&] {
        logic.Eliminate = false;
        logic.ThroughShot = false;
        logic.Shot = "2";
        logic.FirstReceiver = "10";
        logic.LastReceiver = "24";
        logic.Velocity.clear();
        Display.Show_Fields();
    };
    const std::vector<Row> rows = {
        {"Combo2",
         [&](QWidget* control) {
             EXPECT_EQ(qobject_cast<QComboBox*>(control)->count(), 5);
             EXPECT_EQ(Text(control), "3");
             const Effect alone = Redraws("Dromo");
             alone.Before();
             Type(control, "2");
             EXPECT_EQ(logic.Shot, "2");
             EXPECT_FALSE(alone.Done()) << "not while it is typed";
             QTest::keyClick(control, Qt::Key_Return);
             EXPECT_TRUE(alone.Done());
             alone.Before();
             QTest::keyClick(control, Qt::Key_Down);
             EXPECT_EQ(logic.Shot, "3");
             EXPECT_TRUE(alone.Done());
             // Left without Return it counts as well.
             Type(control, "4.2");
             alone.Before();
             form()->findChild<QWidget*>("Check3")->setFocus();
             EXPECT_EQ(logic.Shot, "4.2");
             EXPECT_TRUE(alone.Done());
             Shows(control, logic.Shot);
         }},
        {"Combo3", receiver_box(logic.FirstReceiver, SpeedF::ReceiverBox::From, "From")},
        {"Combo4", receiver_box(logic.LastReceiver, SpeedF::ReceiverBox::To, "To")},
        {"Check1",
         Ticked(
             logic.Eliminate,
             {[] {}, [&] { return form()->findChild<QLineEdit*>("Text8")->isHidden() != logic.Eliminate; }})},
        {"Text8", eliminated(0)},
        {"Text9", eliminated(1)},
        {"Text10", eliminated(2)},
        {"Text11", eliminated(3)},
        {"Check2", Ticked(logic.ThroughShot, {[&] { logic.Layer = "3"; },
                                              [&] { return !logic.ThroughShot || logic.Layer == "1"; }})},
        {"Combo1",
         [&](QWidget* control) {
             EXPECT_EQ(qobject_cast<QComboBox*>(control)->count(), 6);
             logic.Layer = "1";
             logic.SaveEnabled = false;
             logic.ThroughShot = true;
             Display.Show_Fields();
             EXPECT_EQ(Text(control), "1");
             EXPECT_FALSE(form()->findChild<QPushButton*>("Command1")->isEnabled());
             QTest::keyClick(control, Qt::Key_Down);
             EXPECT_EQ(logic.Layer, "2");
             EXPECT_TRUE(logic.SaveEnabled && logic.InterceptShown && !logic.ThroughShot);
             EXPECT_TRUE(form()->findChild<QPushButton*>("Command1")->isEnabled());
             EXPECT_FALSE(form()->findChild<QLineEdit*>("Text5")->isHidden());
             QTest::keyClick(control, Qt::Key_Up);
             for (const char* name : {"Text5", "Label6", "InterceptUnit"})
                 EXPECT_TRUE(form()->findChild<QWidget*>(name)->isHidden()) << name;
         }},
        {"Check3", Ticked(logic.AllShots)},
        {"Text4", Shown(logic.Velocity)},
        {"Text5", Shown(logic.Intercept)},
        {"Text6", Shown(logic.Correlation)},
        {"Command5", Clicked({stretch,
                              [&] {
                                  return logic.Velocity.starts_with("36") &&
                                         form()->focusWidget() == form()->findChild<QWidget*>("Combo4");
                              }})},
        {"Command2", Clicked(Redraws("Dromo"))},
        {"Command1",
         [&](QWidget* control) {
             EXPECT_FALSE(form()->findChild<QLabel*>("NotRecorded")->isHidden());
             int asked = 0;
             QTimer::singleShot(0, Screen.get(), [&] {
                 ++asked;
                 EXPECT_TRUE(Display.Is_Open(Dialog::confirm));
                 Display.Close_Dialog(Dialog::confirm);
             });
             Click(control);
             EXPECT_EQ(asked, 1);
         }},
        {"Command3",
         Clicked(Closes(Dialog::SpeedF, [&] { return Work.Mode.Current() == DisplayMode::Dromo; }))},
    };
    Check_All(form, rows);
    Work.Settings.Units = "feet";
    Display.Show_Fields();
    EXPECT_EQ(Text(form()->findChild<QLabel*>("VelocityUnit")), "f/s");
    EXPECT_EQ(form()->focusWidget(), form()->findChild<QWidget*>("Combo3"));
}

TEST_F(FormControls, of_the_recording_do_their_work) {
    const auto form = Form_Of_Dialog(Dialog::confirm);
    Program.Speed.Shot = "2";
    Program.Speed.Layer = "3";
    Program.Speed.Intercept = "27.5";
    Program.Speed.Velocity = "3603.7";
    Program.Speed.FirstReceiver = "10";
    Program.Speed.LastReceiver = "24";
    Confirm& logic = Program.Record;
    for (const auto& [name, text] :
         {std::pair("Text1", "2"), {"Text2", "3"}, {"Text3", "27.5"}, {"Text4", "3603"}})
        EXPECT_EQ(Text(form()->findChild<QLineEdit*>(name)).toStdString(), text) << name;
    EXPECT_EQ(Text(form()->findChild<QLabel*>("Label5")).toStdString(), Path);
    const std::vector<Row> rows = {
        {"Text1", Typed(logic.Shot)},
        {"Text2", Typed(logic.Layer)},
        {"Text3", Typed(logic.Intercept)},
        {"Text4", Typed(logic.Velocity)},
        {"Command2", Clicked(Closes(Dialog::confirm, [&] { return Line.VelocityA(2, 3) == 3800; }))},
        {"Command1", Clicked(Closes(Dialog::confirm, [&] { return Line.VelocityA(2, 3) == 3603; }))},
    };
    Check_All(form, rows);
    for (const auto& [key, stored] : {std::pair(Qt::Key_Escape, 3603), {Qt::Key_Return, 2468}}) {
        form();
        logic.Velocity = "2468";
        QTest::keyClick(form()->findChild<QLineEdit*>("Text2"), key);
        EXPECT_FALSE(Display.Is_Open(Dialog::confirm));
        EXPECT_EQ(Line.VelocityA(2, 3), stored);
    }
}

TEST_F(FormControls, of_the_depths_do_their_work) {
    const auto form = Form_Of_Dialog(Dialog::Fcalcul);
    Fcalcul& logic = Program.Depths;
    const auto label = [&](const char* name) { return Text(form()->findChild<QLabel*>(name)).toStdString(); };
    form();
    EXPECT_EQ(logic.ShotLabel, "3");
    logic.VisibleLayers = 5;
    Display.Show_Fields();
    std::vector<Row> rows;
    const auto field = [&](std::string& text) {
        return Typed(text, {[&] { Work.Mode.Take(Dialog::SpeedF, DisplayMode::Vitesse); },
                            [&] { return Work.Mode.Held_By(Dialog::Fcalcul); }});
    };
    // Each control of a row of the form, from layer or refractor 1 on; those of the first two always stand.
    const auto picture_fields = [&](const char* family, char side, std::initializer_list<const char*> names) {
        int number = 0;
        for (const char* name : names) {
            const AwaitedField place = test::Field(family + std::to_string(++number) + side);
            rows.push_back({name, [&, place](QWidget* control) {
                                Work.Velocity.Awaited.reset();
                                form()->setFocus();
                                field (*logic.Field_Of(place))(control);
                                EXPECT_EQ(Work.Velocity.Awaited, place);
                                EXPECT_NE(control->palette().color(QPalette::Base),
                                          form()->palette().color(QPalette::Base));
                            }});
        }
    };
    picture_fields("V", 'A', {"Text2", "Text3", "Text4", "Text5", "Text6"});
    picture_fields("V", 'B', {"Text7", "Text8", "Text9", "Text10", "Text11"});
    picture_fields("IT", 'A', {"Text31", "Text37", "Text39", "Text41"});
    picture_fields("IT", 'B', {"Text36", "Text38", "Text40", "Text42"});
    picture_fields("CD", 'A', {"Text44", "Text46", "Text48", "Text50"});
    picture_fields("CD", 'B', {"Text45", "Text47", "Text49", "Text51"});
    const auto results = [&](auto& fields, std::initializer_list<const char*> names) {
        std::size_t number = 0;
        for (const char* name : names)
            rows.push_back({name, Shown(fields.at(++number))});
    };
    results(logic.TrueV, {"Text12", "Text13", "Text14", "Text15", "Text16"});
    results(logic.MeanIntercept, {"Text17", "Text18", "Text19", "Text20"});
    results(logic.MeanCritDist, {"Text22", "Text23", "Text24", "Text25"});
    results(logic.Thick, {"Text27", "Text28", "Text29", "Text30"});
    results(logic.Depth, {"Text32", "Text33", "Text34", "Text35"});
    rows.push_back({"Text1", field(logic.Altitude)});
    rows.push_back({"Text26", field(logic.ShotDepth)});
    const auto go = [&](int shot) {
        logic.HScroll1.Value = shot;
        logic.HScroll1_Changed();
    };
    const auto method = [&](const char* name) {
        return Clicked({[&] {
                            go(3);
                            logic.Caption.clear();
                            logic.Unsaved = false;
                        },
                        [&, name] { return label("Caption") == name && logic.Unsaved; }});
    };
    const std::vector<Row> others = {
        {"Text21",
         [&](QWidget* control) {
             Shows(control, logic.Layers);
             Type(control, "4");
             EXPECT_NE(logic.VisibleLayers, 4) << "not while it is typed";
             QTest::keyClick(control, Qt::Key_Return);
             EXPECT_EQ(logic.VisibleLayers, 4);
         }},
        {"HScroll1",
         [&](QWidget* control) {
             auto* bar = qobject_cast<QScrollBar*>(control);
             go(2);
             EXPECT_EQ(bar->value(), 2);
             EXPECT_EQ(bar->minimum(), 1);
             EXPECT_EQ(bar->maximum(), 5);
             for (const char* name : {"Text52", "Text53"})
                 EXPECT_EQ(label(name), "2") << name;
             QTest::keyClick(bar, Qt::Key_Right);
             EXPECT_EQ(logic.ShotLabel, "3");
             logic.VisibleLayers = 5;
             Display.Show_Fields();
             EXPECT_EQ(label("Label1"), "Shot change  3 / 5");
             EXPECT_TRUE(form()->findChild<QLabel*>("Text43")->isHidden());
             go(5);
             EXPECT_FALSE(form()->findChild<QLabel*>("Text43")->isHidden());
             EXPECT_EQ(label("Text43"), "Offset shot, no depth computation possible ");
         }},
        {"Check1", Ticked(logic.Check1)},
        {"Command1", method("Intercept Time method")},
        {"Command3", method("Critical Distance method")},
        {"Command2", Clicked(Redraws("Dromo"))},
        {"Command4", Clicked({[&] { Line.VelocityA(4, 5) = 5555; },
                              [&] { return Filed().find("5555") != std::string::npos; }})},
    };
    rows.insert(rows.end(), others.begin(), others.end());
    Check_All(form, rows);

    EXPECT_EQ(label("Label17"), "1 - \nA");
    EXPECT_EQ(label("Label18"), " Rec. 24\nB");
    EXPECT_EQ(label("HeadCD"), "Critical distance (m)");
    Work.Settings.Units = "feet";
    Display.Show_Fields();
    EXPECT_EQ(label("HeadCD"), "Critical distance (f)");
}

TEST_F(FormControls, of_the_enlargement_do_their_work) {
    const auto form = Form_Of_Dialog(Dialog::Zoom);
    Zoom& logic = Program.ZoomDialog;
    Set_Zoom(Work.Curves, 3, 5);
    EXPECT_EQ(Text(form()->findChild<QComboBox*>("Combo1")), "3");
    EXPECT_EQ(Text(form()->findChild<QComboBox*>("Combo2")), "5");
    const auto listed = [&](std::string& factor, int entries, const char* first, const char* next) {
        return [&, entries, first, next](QWidget* control) {
            EXPECT_EQ(qobject_cast<QComboBox*>(control)->count(), entries);
            EXPECT_EQ(qobject_cast<QComboBox*>(control)->itemText(0), first);
            QTest::keyClick(control, Qt::Key_Down);
            EXPECT_EQ(factor, next);
            Typed(factor)(control);
        };
    };
    const std::vector<Row> rows = {
        {"Combo1", listed(logic.Combo1, 8, "1", "4")},
        {"Combo2", listed(logic.Combo2, 9, "0.5", "7")},
        {"Command1",
         Clicked(Closes(Dialog::Zoom, [&] { return Work.Curves.ZoomX == 1.5 && Work.Curves.ZoomY == 1.5; }))},
    };
    Check_All(form, rows);
    Type(form()->findChild<QComboBox*>("Combo1"), "2");
    QTest::keyClick(form()->findChild<QComboBox*>("Combo1"), Qt::Key_Return);
    EXPECT_EQ(Work.Curves.ZoomX, 2);
    EXPECT_FALSE(Display.Is_Open(Dialog::Zoom));
}

TEST_F(FormControls, of_the_ruler_do_their_work) {
    const auto form = Form_Of_Dialog(Dialog::RulerF);
    const auto against = [&](RulerF::Kind kind) {
        return [&, kind](QWidget* control) {
            Program.Ruler.Against = kind;
            Display.Show_Fields();
            EXPECT_TRUE(qobject_cast<QAbstractButton*>(control)->isChecked());
            Program.Ruler.Against = kind == RulerF::OfRecord ? RulerF::OfCurves : RulerF::OfRecord;
            Display.Show_Fields();
            EXPECT_FALSE(qobject_cast<QAbstractButton*>(control)->isChecked());
            const Effect drawn = Redraws("regle");
            drawn.Before();
            Click(control);
            EXPECT_EQ(Program.Ruler.Against, kind);
            EXPECT_TRUE(drawn.Done());
        };
    };
    Check_All(form,
              {{"ruler_dromo", against(RulerF::OfCurves)}, {"ruler_record", against(RulerF::OfRecord)}});
}

TEST_F(FormControls, of_the_history_and_the_second_window_do_their_work) {
    for (const char* name : {"First", "Second"}) {
        EditScope edit(Work, name);
        Line.ShotTimes(1, 1) += 1;
    }
    const float last = Line.ShotTimes(1, 1);
    const auto walked = [&](QWidget* control) {
        auto* list = qobject_cast<QListWidget*>(control);
        const int second = list->count() - 1;
        ASSERT_GT(second, 1);
        EXPECT_TRUE(list->item(second)->text().endsWith("   Second"));
        EXPECT_EQ(list->currentRow(), second);
        const QPoint first = list->visualItemRect(list->item(second - 1)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, first);
        EXPECT_EQ(Line.ShotTimes(1, 1), last - 1);
        EXPECT_NE(list->item(second)->foreground(), list->item(second - 1)->foreground());
        QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Return);
        EXPECT_EQ(Line.ShotTimes(1, 1), last);
        Work.Edits.Undo(Line);
        Display.Show_Fields();
        EXPECT_EQ(list->currentRow(), second - 1);
    };
    Check_All(Form_Of_Dialog(Dialog::History), {{"Edits", walked}});

    Run_Command(Program, "Double");
    Check_All(Form_Of_Dialog(Dialog::Travel_Time_2), {});
    EXPECT_EQ(Work.Curves.DoubleView, 1);
    Box("Dromo2")->Canvas().Clear();
    Display.Open_Form(Dialog::Travel_Time_2)->resize(500, 320);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Blank(Box("Dromo2")); }, 1000));
    Display.Open_Form(Dialog::Travel_Time_2)->close();  // by its own control
    EXPECT_FALSE(Display.Is_Open(Dialog::Travel_Time_2));
    EXPECT_EQ(Work.Curves.DoubleView, 0);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Display.Show_Curves();  // the canvas is gone; drawing on it is dropped
}

TEST_F(FormControls, of_the_start_dialog_do_their_work) {
    const auto form = Form_Of_Dialog(Dialog::frmSplash);
    const auto closed = [&] { return !Display.Is_Open(Dialog::frmSplash); };
    const auto runs = [&](Effect effect) {
        return [&, effect](QWidget* control) {
            effect.Before();
            Click(control);
            QApplication::processEvents();
            EXPECT_TRUE(closed());
            EXPECT_TRUE(effect.Done());
        };
    };
    auto* tabs = Screen->findChild<QTabWidget*>("SSTab1");
    const std::vector<Row> rows = {
        {"Command1",
         runs(
             {[&] { Prompts.Expect("Did you already convert your field data to SU format", Answer::Cancel); },
              [&] { return Prompts.Messages.size() == 1; }})},
        {"Command2", runs({[&] { Prompts.Expect_File("Tarnvik File selection", ""); },
                           [&] { return Prompts.FileRequests.size() == 1; }})},
        {"Command3", runs({[] {}, [&] { return tabs->currentIndex() == 0; }})},
        {"Command4",
         runs({[] {},
               [&] { return tabs->currentIndex() == 2 && Prompts.Said("You must install tv16.pdf"); }})},
        {"Command5", runs({[&] {
                               Line.ShotTimes(1, 1) = 99;
                               Prompts.Expect(" You must (re) computecomute thickness to load data in memroy",
                                              Answer::Cancel);
                           },
                           [&] { return Line.ShotTimes(1, 1) != 99; }})},
        {"Command6",
         [&](QWidget* control) {
             EXPECT_TRUE(
                 control->parentWidget()->findChild<QPushButton*>("Command5")->toolTip().contains("demo1"));
             EXPECT_EQ(Text(form()->findChild<QLabel*>("lblVersion")), "Version 16.5.0");
             Prompts.Expect("Do you stop " + Work.AppTitle + "?", Answer::No);
             Click(control);
             EXPECT_FALSE(closed());
             Prompts.Expect("Do you stop " + Work.AppTitle + "?", Answer::Yes);
             Click(control);
             EXPECT_TRUE(closed());
             EXPECT_TRUE(Display.Ended());
         }},
    };
    Check_All(form, rows);
}

TEST_F(FormControls, of_a_new_profile_do_their_work) {
    rechinfo& logic = Program.NewProfile;
    const auto form = [&]() -> QWidget* {
        if (Display.Is_Open(Dialog::rechinfo)) return Display.Open_Form(Dialog::rechinfo);
        logic.Affichage(Work);
        return Open(Dialog::rechinfo);
    };
    form();
    EXPECT_EQ(logic.Geophones, "24");
    auto* first = qobject_cast<QLineEdit*>(form()->focusWidget());
    ASSERT_NE(first, nullptr);
    EXPECT_TRUE(first->hasSelectedText()) << "typing begins anew";
    EXPECT_EQ(logic.Shots, "5");
    const Effect sketched = Redraws("Profile2");
    // A change of these spreads the shots anew.
    const Effect spread = {[&] {
                               logic.ShotTable.Set_Text(1, 1, "777");
                               sketched.Before();
                           },
                           [&] { return logic.ShotTable.Text(1, 1) != "777" && sketched.Done(); }};
    const Effect only_sketched = {[&] {
                                      logic.ShotTable.Set_Text(1, 1, "77");
                                      sketched.Before();
                                  },
                                  [&] { return logic.ShotTable.Text(1, 1) == "77" && sketched.Done(); }};
    const std::vector<Row> rows = {
        {"Text1", Typed(logic.Spacing, spread)},
        {"Text2", Typed(logic.FirstDistance, only_sketched)},
        {"Text3", Typed(logic.Geophones, spread)},
        {"Text4",
         Typed(logic.Shots, {spread.Before, [&] { return spread.Done() && logic.ShotTable.Rows() == 3; }})},
        {"Text5", Typed(logic.ShotDepth)},
        {"Text6",
         [&](QWidget* control) {
             Shows(control, logic.LineLength);
             spread.Before();
             Type(control, "50");
             EXPECT_EQ(logic.LineLength, "50");
             EXPECT_FALSE(spread.Done()) << "not while it is typed";
             QTest::keyClick(control, Qt::Key_Return);
             EXPECT_TRUE(spread.Done());
         }},
        {"Check1", Ticked(logic.Offsets, {spread.Before,
                                          [&] {
                                              return spread.Done() &&
                                                     Text(form()->findChild<QLabel*>("Label2")) ==
                                                         (logic.Offsets
                                                              ? "Distance from Geophone1 to shot 2"
                                                              : "Distance from Geophone1 to shot 1");
                                          }})},
        {"Check2",
         [&](QWidget* control) {
             auto* tick = qobject_cast<QAbstractButton*>(control);
             Prompts.Expect_Input("Enter number of shot location (stations)", "7");
             Click(tick);
             EXPECT_TRUE(logic.SeveralSpreads);
             EXPECT_EQ(logic.Shots, "7");
             EXPECT_EQ(logic.ShotTable.Rows(), 8);
             logic.SeveralSpreads = false;
             Display.Show_Fields();
             EXPECT_FALSE(tick->isChecked());
         }},
        {"DataGrid",
         [&](QWidget* control) {
             auto* table = qobject_cast<QTableView*>(control);
             EXPECT_EQ(table->model()->rowCount(), 8);
             logic.ShotTable.Set_Text(2, 1, "12.5");
             Display.Show_Fields();
             EXPECT_EQ(table->model()->index(2, 1).data().toString(), "12.5");
             sketched.Before();
             table->setCurrentIndex(table->model()->index(2, 1));
             QTest::keyClick(table, Qt::Key_3);
             auto* editor = table->findChild<QLineEdit*>();
             ASSERT_NE(editor, nullptr);
             QTest::keyClicks(editor, "1");
             QTest::keyClick(editor, Qt::Key_Return);
             EXPECT_EQ(logic.ShotTable.Text(2, 1), "31");
             EXPECT_TRUE(sketched.Done());
             // Elevations come as a block from another program.
             auto* shots = qobject_cast<SpreadsheetView*>(table);
             QApplication::clipboard()->setText("100\n101\n102");
             shots->setCurrentIndex(shots->model()->index(1, 2));
             shots->PasteCells->trigger();
             EXPECT_EQ(logic.Read_Spread().ShotElevations, (std::vector<double>{100, 101, 102, 0, 0, 0, 0}));
             shots->selectAll();
             shots->ClearCells->trigger();
             EXPECT_EQ(logic.Read_Spread().ShotElevations, std::vector<double>(7, 0.0));
         }},
        {"Command2", Clicked(only_sketched)},
        {"Command3", Clicked({[&] {
                                  form()->findChild<QLineEdit*>("Text5")->setFocus();
                                  for (QLineEdit* edit : form()->findChildren<QLineEdit*>())
                                      edit->deselect();
                                  Prompts.Expect_File("Load ", "");
                              },
                              [&] {
                                  const auto* edit = qobject_cast<QLineEdit*>(form()->focusWidget());
                                  return Prompts.FileRequests.size() == 1 && edit != nullptr &&
                                         edit->hasSelectedText();
                              }})},
        {"Command1",
         [&](QWidget* control) {
             logic.Spacing = "0";
             Click(control);
             EXPECT_TRUE(Display.Is_Open(Dialog::rechinfo));
             logic.Spacing = "5";
             logic.Cancelled = true;
             Click(control);
             EXPECT_FALSE(Display.Is_Open(Dialog::rechinfo));
             EXPECT_FALSE(logic.Cancelled);
         }},
        {"Command4", Clicked(Closes(Dialog::rechinfo, [&] { return logic.Cancelled; }))},
    };
    Check_All(form, rows);
    logic.DistanceReadout.clear();
    logic.Cancelled = false;
    auto* picture = form()->findChild<PictureBox*>("Profile2");
    const QPointF place(picture->width() / 2.0, picture->height() / 2.0);
    QMouseEvent move(QEvent::MouseMove, place, picture->mapToGlobal(place), Qt::NoButton, {}, {});
    QApplication::sendEvent(picture, &move);
    EXPECT_TRUE(Text(form()->findChild<QLabel*>("DistanceReadout")).startsWith("Distance:"));
    QTest::keyClick(form(), Qt::Key_Escape);
    EXPECT_TRUE(logic.Cancelled) << "Escape gives the profile up";
    form()->window()->close();
    EXPECT_TRUE(logic.Cancelled && !Display.Is_Open(Dialog::rechinfo)) << "so does the frame";
}

}  // namespace
}  // namespace tarnvik
