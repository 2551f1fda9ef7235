// Each control of the header editor.

#include <QClipboard>

#include "control_table.h"
#include "records/su_file.h"
#include "ui/header_plot.h"
#include "ui/spreadsheet_view.h"

namespace tarnvik {
namespace {

constexpr int cdp = 6;
constexpr int cdpt = 7;

class HeaderControls : public Controls {
  protected:
    HeaderControls() { EXPECT_EQ(Copy_File(Su, Folder / "other.su"), ""); }
    QWidget* Page() {
        return Display.Is_Open(Dialog::Header) ? Display.Open_Form(Dialog::Header) : Open(Dialog::Header);
    }
    double Word(int trace, int word) const { return SuTraces(Su).Word_Or_Zero(trace, word); }
    /// A field of a way is free while its way is chosen.
    std::function<void(QWidget*)> Typed_With(ChangeWay way, std::string& field) {
        return [this, way, &field](QWidget* control) {
            Logic.Way = static_cast<int>(way);
            Display.Show_Fields();
            Typed(field)(control);
            Logic.Way = static_cast<int>(ChangeWay::Multiply);
            Display.Show_Fields();
            EXPECT_EQ(control->isEnabled(), way == ChangeWay::Multiply);
        };
    }
    std::function<void(QWidget*)> Chooses(ChangeWay way) {
        return [this, way](QWidget* control) {
            Logic.Way =
                static_cast<int>(way == ChangeWay::Constant ? ChangeWay::Multiply : ChangeWay::Constant);
            Display.Show_Fields();
            Click(control);
            EXPECT_EQ(Logic.Way, static_cast<int>(way));
        };
    }
    std::function<void(QWidget*)> Double_Clicked(std::string& field, const char* title, const char* name) {
        return [this, &field, title, name](QWidget* control) {
            Typed(field)(control);
            Prompts.Expect_File(title, Folder / name);
            QTest::mouseDClick(control, Qt::LeftButton);
            EXPECT_EQ(field, Folder / name);
        };
    }
    std::function<void(QWidget*)> Browses(std::string& field, const char* title, const char* name) {
        return Clicked({[this, &field, title, name] {
                            field = Folder / "demo1.su";
                            Prompts.Expect_File(title, Folder / name);
                        },
                        [this, &field, name] { return field == Folder / name; }});
    }
    std::function<void(QWidget*)> Says(
        const char* start, std::function<void()> before = [] {}) {
        return [this, start, before](QWidget* control) {
            before();
            Click(control);
            EXPECT_TRUE(Prompts.Last_Text().starts_with(start)) << Prompts.Last_Text();
        };
    }

    const std::string Su = Folder / "demo1.su";
    Header& Logic = Program.HeaderEditor;
};

TEST_F(HeaderControls, do_their_work) {
    const char* su = "SU File selection";
    const std::vector<Row> rows = {
        {"FlexArray",
         [&](QWidget* control) {
             auto* grid = qobject_cast<SpreadsheetView*>(control);
             EXPECT_EQ(grid->model()->rowCount(), 121);
             grid->setFocus();
             grid->setCurrentIndex(grid->model()->index(3, cdp));
             QTest::keyClicks(grid, "x5y");
             QTest::keyClicks(QApplication::focusWidget(), "z1\r");
             EXPECT_EQ(Word(3, cdp), 51) << "letters are no part of a header word";
             EXPECT_EQ(grid->currentIndex().row(), 4);
             EXPECT_EQ(grid->model()
                           ->data(grid->model()->index(3, cdp), Qt::BackgroundRole)
                           .value<QBrush>()
                           .color(),
                       QColor(192, 192, 192));
             EXPECT_FALSE(grid->model()->setData(grid->model()->index(3, words::trid), "40000"));
             EXPECT_EQ(Text(Page()->findChild<QLabel*>("Hint")),
                       "Trace 3, trid: 40000 does not fit, only -32768 to 32767");
             QGuiApplication::clipboard()->setText("8\t9\n10\t11");
             grid->PasteCells->trigger();
             EXPECT_EQ(Word(5, cdpt), 11);
             QTest::keySequence(grid, QKeySequence::Undo);
             EXPECT_EQ(Word(5, cdpt), 0);
             EXPECT_EQ(grid->model()->data(grid->model()->index(5, cdpt)).toString(), "0");
             Run_Command(Program, "Undo_M");
             EXPECT_EQ(grid->model()->data(grid->model()->index(3, cdp)).toString(), "0");
         }},
        {"Texth1",
         [&](QWidget* control) {
             Type(control, QString::fromStdString(Folder / "none.su"));
             QTest::keyClick(control, Qt::Key_Return);
             EXPECT_EQ(Logic.FlexArray.Rows(), 1);
             Prompts.Expect_File(su, Folder / "other.su");
             QTest::mouseDClick(control, Qt::LeftButton);
             EXPECT_EQ(Logic.FlexArray.Rows(), 121);
             Type(control, QString::fromStdString(Path));
             QTest::keyClick(control, Qt::Key_Return);
             EXPECT_NE(Prompts.Last_Text().find("text file"), std::string::npos) << "no traces in there";
             EXPECT_EQ(Text(control).toStdString(), Folder / "other.su");
         }},
        {"BrowseTexth1", Clicked({[&] { Prompts.Expect_File(su, Su); }, [&] { return Logic.Texth1 == Su; }})},
        {"Texth2",
         [&](QWidget* control) {
             Type(control, "11");
             QTest::keyClick(control, Qt::Key_Return);
             EXPECT_EQ(Logic.FlexArray.Text(1, 0), "11");
             EXPECT_EQ(Logic.FlexArray.Rows(), 111);
         }},
        {"Texth3",
         [&](QWidget* control) {
             Type(control, "20");
             QTest::keyClick(control, Qt::Key_Return);
             EXPECT_EQ(Logic.FlexArray.Rows(), 11);
         }},
        {"Commandh1",
         Clicked({[&] { Logic.Texth2 = "2"; }, [&] { return Logic.FlexArray.Text(1, 0) == "2"; }})},
        {"Command16", Clicked({[] {}, [&] { return Logic.Texth2 == "1"; }})},
        {"Command17", Clicked({[&] {
                                   Logic.Texth3 = "10";
                                   Logic.Commandh1();
                               },
                               [&] { return Logic.Texth2 == "120"; }})},
        {"Command9", Says("HEADER VALUE EDITOR\r\nYou can display into a grid all")},
        {"Quit", Clicked({[] {}, [&] { return !Display.Is_Open(Dialog::Header); }})},

        {"Combo1",
         [&](QWidget* control) {
             auto* list = qobject_cast<QComboBox*>(control);
             EXPECT_EQ(list->currentIndex(), -1);
             EXPECT_EQ(list->itemText(75), "75  negative of power used for dynamic range compression");
             control->setFocus();
             QTest::keyClick(control, Qt::Key_End);
             EXPECT_EQ(Logic.Combo1, 89);
         }},
        {"Text2", Typed(Logic.Text2)},
        {"Text3", Typed(Logic.Text3)},
        {"Check4", Chooses(ChangeWay::Constant)},
        {"Check7", Chooses(ChangeWay::Multiply)},
        {"Check6", Chooses(ChangeWay::Increment)},
        {"Check5", Chooses(ChangeWay::Channels)},
        {"Check1", Chooses(ChangeWay::ValueByTrace)},
        {"Check2", Chooses(ChangeWay::ValueByShot)},
        {"Check3", Chooses(ChangeWay::ValueByReceiver)},
        {"Text4", Typed_With(ChangeWay::Constant, Logic.Text4)},
        {"Text9", Typed_With(ChangeWay::Multiply, Logic.Text9)},
        {"Text7", Typed_With(ChangeWay::Increment, Logic.Text7)},
        {"Text10", Typed_With(ChangeWay::Increment, Logic.Text10)},
        {"Text6", Typed_With(ChangeWay::Channels, Logic.Text6)},
        {"Text8", Typed_With(ChangeWay::ValueByReceiver, Logic.Text8)},
        {"Text5",
         [&](QWidget* control) {
             Logic.Way = static_cast<int>(ChangeWay::ValueByTrace);
             Display.Show_Fields();
             Double_Clicked(Logic.Text5, "File of values", "values.txt")(control);
         }},
        {"BrowseText5", Browses(Logic.Text5, "File of values", "other.txt")},
        {"Command1", Says("OK, Header has been updated in",
                          [&] {
                              Logic.Way = static_cast<int>(ChangeWay::Constant);
                              Logic.Combo1 = words::sdepth - 1;
                              Logic.Text2 = "1";
                              Logic.Text3 = "7";
                              Logic.Text4 = "-4";
                          })},
        {"Command4", Says("SINGLE HEADER WORD EDITOR")},

        {"Check10", Says("The trace number has been updated",
                         [&] {
                             Prompts.Expect("Would you update header values with trace numbers 1 to 120",
                                            Answer::Yes);
                         })},
        {"Check8",
         Says("Number of channel per shot has been updated",
              [&] {
                  Prompts.Expect(
                      "This module will update the trace sequence number within original field record.",
                      Answer::Ok);
                  Prompts.Expect_Input("Enter the number of channels per record", "24");
                  Prompts.Expect("Would you update header values with channel numbers", Answer::Yes);
              })},
        {"Check9", Says("Record field number has been updated",
                        [&] {
                            Prompts.Expect(
                                "This module will update field number record. One record has 24 traces.",
                                Answer::Ok);
                            Prompts.Expect_Input("Enter the first field number", "1");
                            Prompts.Expect("Would you update the FLDR, first number is 1", Answer::Yes);
                        })},
        {"UpdateVelocities",
         Says("Header updated with WEVEL and SWEVEL",
              [&] {
                  Prompts.Expect_Start("Would you update header word WEVEL", Answer::Yes);
                  Prompts.Expect_Input("Enter the Weathering velocity (m/s or ft/s)", "500");
                  Prompts.Expect_Input("Enter the Sub Weathering velocity (m/s or ft/s)", "1500");
              })},
        {"Command5", Says("UPDATE OF IMPORTANT HEADER WORDS")},

        {"Textc1", Double_Clicked(Logic.Textc1, su, "demo1.su")},
        {"BrowseTextc1", Browses(Logic.Textc1, su, "other.su")},
        {"Textc2", Double_Clicked(Logic.Textc2, su, "other.su")},
        {"BrowseTextc2", Browses(Logic.Textc2, su, "filtered.su")},
        {"Optionc2", Clicked({[] {}, [&] { return !Logic.WholeHeader; }})},
        {"Comboc1",
         [&](QWidget* control) {
             EXPECT_EQ(qobject_cast<QComboBox*>(control)->itemText(85), "86  First break pick ms*10");
             control->setFocus();
             QTest::keyClick(control, Qt::Key_Home);
             EXPECT_EQ(Logic.Comboc1, 0);
         }},
        {"Checkc1", Ticked(Logic.Checkc1)},
        {"Optionc1", Clicked({[] {}, [&] { return Logic.WholeHeader; }})},
        {"Commandc1", Says("The Copy_Header has been copied from",
                           [&] {
                               Logic.Textc1 = Su;
                               Logic.Textc2 = Folder / "other.su";
                           })},
        {"Command7", Says("COPY HEADER VALUES")},
    };
    const std::vector<Row> tables = {
        {"XCheck1", Ticked(Logic.XCheck1)},
        {"xText2", Typed(Logic.xText2)},
        {"xText3", Typed(Logic.xText3)},
        {"xText4",
         [&](QWidget* control) {
             control->setFocus();
             QTest::keyClick(control, Qt::Key_Home);
             QTest::keyClick(control, Qt::Key_Down, Qt::ShiftModifier);
             EXPECT_EQ(Logic.xText4, (std::set<int>{1, 2}));
         }},
        {"XCommand2", Clicked({[&] {
                                   Logic.XCheck1 = true;
                                   Prompts.Expect_File("Excel file selection", Folder / "words.csv");
                               },
                               [&] { return File_Exists(Folder / "words.csv"); }})},
        {"spreadsheet", Clicked({[] {},
                                 [&] {
                                     return !Launcher.Started.empty() &&
                                            Launcher.Started.back() == Folder / "words.csv";
                                 }})},
        {"Command8", Says("HEADER VALUES IN EXCEL")},
        {"scalco", Typed(Logic.scalco)},
        {"scalel", Typed(Logic.scalel)},
        {"Command10",
         Clicked({[&] { Prompts.Expect_File("Geometry file selection", Folder / "geometry.csv"); },
                  [&] { return File_Exists(Folder / "geometry.csv"); }})},
        {"Command11", Says("OK, Header has been updated in",
                           [&] {
                               Logic.scalco = Logic.scalel = "0";
                               Prompts.Expect_File("Geometry file selection", Folder / "geometry.csv");
                           })},
        {"Command12", Says("GEOMETRY OF SHOTS AND RECEIVERS")},
        {"PlotWord",
         [&](QWidget* control) {
             control->setFocus();
             QTest::keyClick(control, Qt::Key_Home);
             auto* plot = Page()->findChild<HeaderPlot*>();
             emit plot->Trace_Clicked(77);
             EXPECT_EQ(Logic.FlexArray.Text(1, 0), "77");
             EXPECT_EQ(Page()->findChild<QTabWidget*>("SSTab1")->currentIndex(), 0);
         }},
        {"CheckFile", Clicked({[&] { Logic.CheckText.clear(); }, [&] { return !Logic.CheckText.empty(); }})},
    };
    // Buttons of a page that is not in sight cannot be clicked.
    std::vector<Row> in_sight;
    std::vector<Row> all = rows;
    all.insert(all.end(), tables.begin(), tables.end());
    for (const Row& row : all) {
        in_sight.push_back({row.Name, [this, check = row.Check](QWidget* control) {
                                auto* pages = Page()->findChild<QTabWidget*>("SSTab1");
                                for (int page = 0; page < pages->count(); ++page) {
                                    if (pages->widget(page)->isAncestorOf(control))
                                        pages->setCurrentIndex(page);
                                }
                                QApplication::processEvents();
                                check(control);
                            }});
    }
    Check_All([this] { return Page(); }, in_sight);
}

TEST_F(HeaderControls, records_and_picks_follow) {
    Page();
    Display.Select_Tab(Tab::Record);
    QApplication::processEvents();
    PictureBox* record = Box("Ecran");
    ASSERT_NE(record, nullptr);
    const QImage before = record->Canvas().Image().copy();
    const double pick = Word(7, words::First_Breaks);
    ASSERT_TRUE(Logic.Type(7, words::First_Breaks, "400"));
    QApplication::processEvents();
    EXPECT_NE(record->Canvas().Image(), before);
    EXPECT_EQ(Work.Edits.Undo_Name(), "Header word First breaks of trace 7");
    Run_Command(Program, "Undo_M");
    EXPECT_EQ(Word(7, words::First_Breaks), pick);
    EXPECT_EQ(record->Canvas().Image(), before);

    // Another number of channels: the records are counted anew, and come back with the undo.
    Prompts.Expect_Start("This module will update", Answer::Ok);
    Prompts.Expect_Input("Enter the number of channels per record", "12");
    Prompts.Expect_Start("Would you update header values with channel numbers", Answer::Yes);
    Logic.Check8();
    EXPECT_EQ(Work.Record.ChannelsPerRecord, 12);
    EXPECT_EQ(Work.Record.NbRecords, 10);
    Run_Command(Program, "Undo_M");
    EXPECT_EQ(Work.Record.ChannelsPerRecord, 24);
}

}  // namespace
}  // namespace tarnvik
