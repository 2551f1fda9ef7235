// Each control of the two dialogs that prepare SU files.

#include <QTableView>
#include <cmath>
#include <cstring>

#include "control_table.h"
#include "core/text/number.h"
#include "records/su_file.h"
#include "support/shell_tools.h"
#include "support/su_builder.h"

namespace tarnvik {
namespace {

class ResizeControls : public Controls {
  protected:
    ResizeControls() { test::Give_Tools(Launcher); }
    QWidget* Page_Of_Dialog(Dialog dialog) {
        return Display.Is_Open(dialog) ? Display.Open_Form(dialog) : Open(dialog);
    }
    const std::string Su = Folder / "demo1.su";
};

TEST_F(ResizeControls, of_the_su_file_utility_do_their_work) {
    rezize& logic = Program.SuUtility;
    const std::string made = Folder / "demo1_new.su";
    const auto page = [this] { return Page_Of_Dialog(Dialog::rezize); };
    const std::vector<Row> rows = {
        {"Text1",
         [&](QWidget* control) {
             EXPECT_EQ(Text(control).toStdString(), Su);
             Type(control, QString::fromStdString(Path));
             QTest::keyClick(control, Qt::Key_Return);
             EXPECT_NE(Prompts.Last_Text().find("text file"), std::string::npos) << "no traces in there";
             EXPECT_EQ(Text(control).toStdString(), Su);
         }},
        {"Command1", Clicked({[&] {
                                  logic.Text2.clear();
                                  EXPECT_EQ(Copy_File(Su, Folder / "b.su"), "");
                                  Prompts.Expect_File("SU File selection", Folder / "b.su");
                              },
                              [&] { return logic.Text2 == Folder / "b_new.su"; }})},
        {"Command2", Clicked({[&] { Prompts.Expect_File("SU File selection", made); },
                              [&] { return logic.Text2 == made; }})},
        {"Text2", Typed(logic.Text2)},
        {"RecordList",
         [&](QWidget* control) {
             auto* list = qobject_cast<QTableView*>(control);
             EXPECT_EQ(list->model()->rowCount(), 6);
             EXPECT_TRUE(list->isRowHidden(0));
             EXPECT_EQ(list->model()->headerData(5, Qt::Vertical, Qt::DisplayRole).toString(), "Record n° 5");
             EXPECT_EQ(list->model()->data(list->model()->index(5, 1)).toString(), "24");
         }},
        {"Text8", Typed(logic.Text8)},
        {"Text14",
         [&](QWidget* control) {
             Type(control, QString::number(2 * Val(logic.OriginalSamples)));
             EXPECT_EQ(Val(logic.Text16) * 2, Val(logic.OriginalInterval));
             EXPECT_EQ(Text(page()->findChild<QLineEdit*>("Text16")).toStdString(), logic.Text16);
         }},
        {"Text16",
         [&](QWidget* control) {
             Type(control, QString::fromStdString(logic.OriginalInterval));
             EXPECT_EQ(logic.Text14, logic.OriginalSamples);
         }},
        {"Text9", Typed(logic.Text9)},
        {"Text10",
         [&](QWidget* control) {
             logic.Text2 = made;
             logic.Text9 = "3";
             Display.Show_Fields();
             Type(control, "4");
             QTest::keyClick(control, Qt::Key_Return);
             EXPECT_EQ(Prompts.Last_Text(), "Channels have been changed for file " + made);
             EXPECT_EQ(SuTraces(made).Nb_Traces(), 10);
             Run_Command(Program, "Undo_M");
         }},
        {"Command3", Clicked({[] {}, [&] { return File_Exists(made); }})},
        {"Quit", Clicked({[] {}, [&] { return !Display.Is_Open(Dialog::rezize); }})},
    };
    // Fields of a page that is not in sight cannot be typed into.
    std::vector<Row> in_sight;
    for (const Row& row : rows) {
        in_sight.push_back({row.Name, [&page, check = row.Check](QWidget* control) {
                                auto* pages = page()->findChild<QTabWidget*>("SSTab1");
                                for (int place = 0; place < pages->count(); ++place) {
                                    if (pages->widget(place)->isAncestorOf(control))
                                        pages->setCurrentIndex(place);
                                }
                                QApplication::processEvents();
                                check(control);
                            }});
    }
    Check_All(page, in_sight);
}

TEST_F(ResizeControls, of_the_numbering_do_their_work) {
    Update_FLDR& logic = Program.TraceNumbers;
    const std::vector<Row> rows = {
        {"Text1",
         [&](QWidget* control) {
             EXPECT_EQ(Text(control).toStdString(), Su);
             Type(control, QString::fromStdString(Folder / "none.su"));
             QTest::keyClick(control, Qt::Key_Return);
             EXPECT_EQ(logic.Text3, "");
         }},
        {"Command1", Clicked({[&] { Prompts.Expect_File("Tarnvik File selection", Su); },
                              [&] { return logic.Text1 == Su && logic.Text3 == "24"; }})},
        {"Text3", Typed(logic.Text3)},
        {"Text4", Typed(logic.Text4)},
        {"Command4", Clicked({[] {},
                              [&] {
                                  return Prompts.Last_Text().starts_with(
                                      "HOW MODIFY TRACE NUMBER AND FIELD RECORD NUMBER");
                              }})},
        {"Command3",
         [&](QWidget* control) {
             logic.Text4 = "7";
             Prompts.Expect_Start("This module will update the trace sequence number", Answer::Ok);
             Prompts.Expect_Input("Enter the number of channels per record (0=exit)", "12");
             Click(control);
             EXPECT_EQ(Prompts.Last_Text(), "Number of channel per shot has been updated");
             EXPECT_EQ(SuTraces(Su).Word(120, words::fldr), 16);
             EXPECT_EQ(Work.Record.NbRecords, 10) << "the records on screen follow";
             QTest::keySequence(control, QKeySequence::Undo);
             EXPECT_EQ(Work.Record.NbRecords, 5);
         }},
        {"Quit", Clicked({[] {}, [&] { return !Display.Is_Open(Dialog::Update_FLDR); }})},
    };
    Check_All([this] { return Page_Of_Dialog(Dialog::Update_FLDR); }, rows);
}

TEST_F(ResizeControls, a_long_record_is_shortened_and_loaded_in_one_go) {
    // The utility comes up by itself, with the file just chosen, and goes away once it has made a shorter
    // one.
    std::string longer = test::Content_Of(Su);
    const std::int32_t samples = SuTraces(Su).Nb_Samples();
    const auto interval = static_cast<std::int16_t>(600000 / samples);
    for (std::size_t at = 0; at < longer.size(); at += static_cast<std::size_t>(Trace_Length(samples)))
        std::memcpy(longer.data() + at + 116, &interval, sizeof interval);
    ASSERT_EQ(Replace_File(Folder / "long.su", longer), "");
    Prompts.Expect_File("Load ", Folder / "long.su");
    Prompts.Expect_Start("The recording time > 0.5 sec", Answer::Yes);
    Prompts.Expect_Start("Load " + (Folder / "long_new.su") + " in the place of long.su ?", Answer::Yes);
    QTimer::singleShot(0, qApp, [this] {
        auto* form = Display.Open_Form(Dialog::rezize);
        ASSERT_NE(form, nullptr);
        auto* time = form->findChild<QLineEdit*>("Text8");
        EXPECT_EQ(form->window()->focusWidget(), time);
        QTest::keyClicks(time, "200");
        QTest::keyClick(time, Qt::Key_Return);
    });
    Run_Command(Program, "Command18");
    EXPECT_EQ(Line.SuFile, Folder / "long_new.su");
    EXPECT_EQ(Work.Record.NbSamples, std::lround(200000.0 / interval) + 1) << "the nearest sample ends it";
    EXPECT_FALSE(Display.Is_Open(Dialog::rezize));
}

}  // namespace
}  // namespace tarnvik
