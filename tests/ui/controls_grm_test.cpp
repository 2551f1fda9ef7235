// Each control of the two GRM dialogs.

#include "control_table.h"
#include "ui/spreadsheet_view.h"

namespace tarnvik {
namespace {

class GrmControls : public Controls {
  protected:
    GrmControls() {
        for (int r = 1; r <= Line.NbReceivers; ++r) {
            Line.GrmData(1, r) = 33 + 1.5 * r;
            Line.GrmData(2, r) = 71 - 1.4 * r;
        }
        Line.TotalTime = 69.4;
    }
    std::function<QWidget*()> Form_Of_Dialog(Dialog dialog) {
        return [this, dialog]() -> QWidget* {
            return Display.Is_Open(dialog) ? Display.Open_Form(dialog) : Open(dialog);
        };
    }
};

TEST_F(GrmControls, of_the_curves_do_their_work) {
    GRM& logic = Program.GrmAnalysis;
    const auto option = [&](int value) {
        return [&logic, value](QWidget* control) {
            logic.GrmOption = value % 3 + 1;
            Click(control);
            EXPECT_EQ(logic.GrmOption, value);
        };
    };
    const std::vector<Row> rows = {
        {"Text1", Typed(logic.Minimum)},
        {"Text2", Typed(logic.Maximum)},
        {"Text3", Typed(logic.TimeShift)},
        {"ReferenceVelocity", Typed(logic.ReferenceVelocity)},
        {"Option3",
         [&](QWidget* control) {
             Click(control);
             EXPECT_EQ(logic.GrmOption, 3);
             Click(Form_Of_Dialog(Dialog::GRM)()->findChild<QPushButton*>("Command1"));
             EXPECT_TRUE(Display.Is_Open(Dialog::GRM_depth));
             Display.Close_Dialog(Dialog::GRM_depth);
         }},
        {"Option1", option(1)},
        {"Option2", option(2)},
        {"Command1",
         [&](QWidget* control) {
             Box("Dromo")->Canvas().Clear();
             Click(control);
             EXPECT_EQ(Work.Grm.Drawn, DisplayMode::Grm);
             EXPECT_FALSE(Blank(Box("Dromo")));
         }},
        {"Command2",
         [&](QWidget* control) {
             logic.GrmOption = GRM::DepthComputation;
             Display.Show_Fields();
             EXPECT_FALSE(control->isEnabled()) << "nothing to print";
         }},
        {"Command4", Clicked({[] {}, [this] { return !Display.Is_Open(Dialog::GRM); }})},
    };
    Check_All(Form_Of_Dialog(Dialog::GRM), rows);
}

TEST_F(GrmControls, of_the_depths_do_their_work) {
    GRM_depth& logic = Program.GrmDepths;
    const std::vector<Row> rows = {
        {"GRM_Grid",
         [&](QWidget* control) {
             auto* grid = qobject_cast<SpreadsheetView*>(control);
             QApplication::setActiveWindow(grid->window());
             const char* ends[] = {"600", "1600", "3800", "3"};
             for (const int row : {1, 24}) {
                 for (int column = 4; column <= 7; ++column) {
                     grid->setCurrentIndex(grid->model()->index(row, column));
                     grid->setFocus();
                     // The first letter opens an editor, which gets the others.
                     for (const char* letter = ends[column - 4]; *letter != 0; ++letter)
                         QTest::keyClick(QApplication::focusWidget(), *letter);
                     QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
                     EXPECT_EQ(logic.GRM_Grid.Text(row, column), ends[column - 4]);
                 }
             }
             grid->setCurrentIndex(grid->model()->index(3, 3));
             EXPECT_EQ(Text(Display.Open_Form(Dialog::GRM_depth)->findChild<QLabel*>("Hint")),
                       "This column will be computed, but you can correct a data..");
         }},
        {"Text2", [&](QWidget* control) { Type(control, "4"); }},
        {"Text3", [&](QWidget* control) { Type(control, "60"); }},
        {"ReferenceVelocity", [&](QWidget* control) { Type(control, ""); }},
        {"Command2",
         [&](QWidget* control) {
             Click(control);
             EXPECT_TRUE(logic.GrmReady);
             EXPECT_EQ(Line.TotalTime, 60);
             EXPECT_EQ(Work.Curves.FrameDrawn, 2) << "the profile stands";
         }},
        {"Command1",
         [&](QWidget* control) {
             Click(control);
             EXPECT_TRUE(File_Exists(Folder / "demo1.GRM"));
             EXPECT_EQ(Work.Grm.GrmXY, 4);
         }},
        {"ClearInterpolated",
         Clicked({[] {},
                  [&] { return logic.GRM_Grid.Text(5, 4).empty() && !logic.GRM_Grid.Text(1, 4).empty(); }})},
        {"Command5", Clicked({[] {}, [&] { return !logic.GRM_Grid.Text(5, 4).empty(); }})},
        {"Command3",
         Clicked(
             {[] {}, [&] { return Prompts.Last_Text().starts_with("GRM Depth Computation for 3 layers"); }})},
        {"Command4", Clicked({[] {}, [this] { return !Display.Is_Open(Dialog::GRM_depth); }})},
    };
    Check_All(Form_Of_Dialog(Dialog::GRM_depth), rows);
}

}  // namespace
}  // namespace tarnvik
