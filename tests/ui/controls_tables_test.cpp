// Each control of the table of results.

#include <QClipboard>

#include "control_table.h"
#include "ui/spreadsheet_view.h"

namespace tarnvik {
namespace {

class TableControls : public Controls {};

TEST_F(TableControls, of_the_results_do_their_work) {
    resu& logic = Program.Results;
    Run_Command(Program, "Print_Comput");
    const auto form = [this]() -> QWidget* {
        return Display.Is_Open(Dialog::resu) ? Display.Open_Form(Dialog::resu) : Open(Dialog::resu);
    };
    EXPECT_TRUE(Text(form()->findChild<QLabel*>("Date")).startsWith("Date: 20"));
    const auto hint = [&] { return Text(form()->findChild<QLabel*>("Hint")); };
    const auto saves = [&](const char* title, const char* name) {
        return Clicked({[this, title, name] { Prompts.Expect_File(title, Folder / name); },
                        [&, name] { return File_Exists(Folder / name) && hint().startsWith("Saved in "); }});
    };
    const std::vector<Row> rows = {
        {"resultat_grid",
         [&](QWidget* control) {
             auto* grid = qobject_cast<SpreadsheetView*>(control);
             EXPECT_TRUE(grid->model()->setData(grid->model()->index(2, 5), "7,25"));
             EXPECT_EQ(logic.resultat_grid.Text(2, 5), "7.25");
             EXPECT_FALSE(grid->model()->setData(grid->model()->index(2, 5), "deep"));
             EXPECT_EQ(hint(), "\"deep\" is no number");
             grid->setCurrentIndex(grid->model()->index(3, 4));
             QGuiApplication::clipboard()->setText("600\t5\n610\t6");
             grid->PasteCells->trigger();
             EXPECT_EQ(logic.resultat_grid.Text(4, 5), "6");
             grid->CopyCells->trigger();
             EXPECT_EQ(QGuiApplication::clipboard()->text(), "600\t5\n610\t6\n");
             EXPECT_EQ(Line.ShotThickness(4, 1), 0) << "the line stays as it is";
             EXPECT_TRUE(Work.Edits.Is_Saved());
         }},
        {"Command2", saves("CSV File selection", "out.csv")},
        {"SaveWorkbook", saves("Excel file selection", "out.xlsx")},
        {"CopyTable",
         [&](QWidget* control) {
             Click(control);
             const QString text = QGuiApplication::clipboard()->text();
             EXPECT_TRUE(text.startsWith("X\tY\tZ\tV1\tE1\t")) << text.toStdString();
             EXPECT_EQ(text.trimmed().count('\n'), 5);
         }},
        {"Quit", Clicked({[] {}, [this] { return !Display.Is_Open(Dialog::resu); }})},
    };
    Check_All(form, rows);
    form();
    {
        const EditScope edit(Work, "Thickness");
        Line.ShotThickness(3, 1) = 4;
    }
    QApplication::processEvents();
    auto* grid = form()->findChild<SpreadsheetView*>("resultat_grid");
    EXPECT_EQ(grid->model()->data(grid->model()->index(3, 5)).toString(), "4");
    QTest::keyClick(form(), Qt::Key_Escape);
    EXPECT_FALSE(Display.Is_Open(Dialog::resu));
}

}  // namespace
}  // namespace tarnvik
