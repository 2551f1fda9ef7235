#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QBrush>
#include <QClipboard>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include "app/commands.h"
#include "app/session.h"
#include "setup/build_grid.h"
#include "ui/spreadsheet_view.h"
#include "ui/text_grid_model.h"
#include "window_fixture.h"

namespace tarnvik {
namespace {

/// The tables of a line of 3 shots and 6 receivers: pick 10 s + r at shot s and receiver r.
class Tables : public Window {
  protected:
    Tables() {
        Affiche_Remark_Grid(Line);
        Line.NbReceivers = 6;
        Line.LineLength = 25;
        Redimension_Project(Line);
        for (int receiver = 1; receiver <= 6; ++receiver) {
            Line.ReceiverData(ReceiverDistance, receiver) = static_cast<float>(5 * (receiver - 1));
            for (int shot = 1; shot <= 3; ++shot)
                Line.ShotTimes(shot, receiver) = static_cast<float>(10 * shot + receiver);
        }
        Line.ShotDistance(2) = 12.5;
        Line.ShotDistance(3) = 25;
        Display.Select_Tab(Tab::Tables);
        Display.Show_Curves();
        Screen->activateWindow();
        QApplication::processEvents();
        Picks->setFocus();
    }

    void Go_To(SpreadsheetView* view, int row, int column) {
        view->setFocus();
        view->setCurrentIndex(view->model()->index(row, column));
    }
    void Select(int row, int column, int last_row, int last_column) {
        Go_To(Picks, row, column);
        Picks->selectionModel()->select(
            QItemSelection(Picks->model()->index(row, column), Picks->model()->index(last_row, last_column)),
            QItemSelectionModel::ClearAndSelect);
    }
    void Keys(const char* text) {
        // The first letter opens an editor, which gets the others.
        for (const char* letter = text; *letter != 0; ++letter)
            QTest::keyClick(QApplication::focusWidget(), *letter);
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    std::vector<float> Times(int shot) const {
        std::vector<float> times;
        for (int receiver = 1; receiver <= 6; ++receiver)
            times.push_back(Line.ShotTimes(shot, receiver));
        return times;
    }

    Project& Line = Program.Work.Project;
    SpreadsheetView* Picks = Find<SpreadsheetView>("Buildgrid");
    SpreadsheetView* Remarks = Find<SpreadsheetView>("remark_grid");
};

using Column = std::vector<float>;

TEST_F(Tables, headings_stay_in_sight_and_only_free_cells_can_be_edited) {
    QAbstractItemModel* model = Picks->model();
    EXPECT_TRUE(Picks->isRowHidden(0));
    EXPECT_TRUE(Picks->isColumnHidden(0));
    EXPECT_EQ(model->headerData(2, Qt::Horizontal), "Shot2");
    EXPECT_EQ(model->headerData(6, Qt::Vertical), "Geo.6");
    EXPECT_EQ(model->headerData(8, Qt::Vertical), "Elevation");
    EXPECT_TRUE(Remarks->isRowHidden(1)) << "headings of the remarks stand in the second row";
    EXPECT_FALSE(Remarks->isColumnHidden(0));
    EXPECT_EQ(Remarks->model()->headerData(3, Qt::Horizontal), "Text to write on the profile");

    struct {
        int Row, Column;
        bool Free;
    } const cells[] = {{0, 1, false}, {1, 0, false}, {1, 1, true},  {6, 5, true}, {6, 6, false},
                       {7, 3, true},  {8, 3, true},  {7, 4, false}, {8, 6, false}};
    for (const auto& cell : cells) {
        EXPECT_EQ(model->flags(model->index(cell.Row, cell.Column)).testFlag(Qt::ItemIsEditable), cell.Free)
            << cell.Row << ", " << cell.Column;
    }
    Go_To(Picks, 1, 6);
    Keys("9");
    Key(Qt::Key_Return);
    EXPECT_EQ(Line.ReceiverData(ReceiverIntercept, 1), 0);
}

TEST_F(Tables, a_block_pasted_over_the_edge_takes_what_fits_and_is_one_edit) {
    Program.Work.Edits.Start(Line, true);
    QApplication::clipboard()->setText("1,5\t2\r\n3\t4\r\nShot\t6\r\n7\t8\r\n");
    Go_To(Picks, 4, 3);
    Key(Qt::Key_V, Qt::ControlModifier);
    // Rows 4 to 7, columns 3 and 4: the word and the cell beside the shots' places are left out.
    EXPECT_EQ(Times(3), Column({31, 32, 33, 1.5, 3, 36}));
    EXPECT_EQ(Line.ReceiverData(ReceiverDistance, 4), 2);
    EXPECT_EQ(Line.ReceiverData(ReceiverDistance, 6), 6);
    EXPECT_EQ(Line.ShotDistance(3), 7);
    EXPECT_EQ(Picks->model()->index(4, 3).data(), "1.50");
    EXPECT_NE(Program.Work.Fields.Status.find("6 cells pasted, 2 left out"), std::string::npos);

    EXPECT_EQ(Program.Work.Edits.Undo_Name(), "Paste 6 cells");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Times(3), Column({31, 32, 33, 34, 35, 36})) << "Ctrl+Z is the program's";
    EXPECT_EQ(Line.ReceiverData(ReceiverDistance, 4), 15);
    EXPECT_EQ(Line.ShotDistance(3), 25);
    EXPECT_EQ(Picks->model()->index(4, 3).data(), "34.00");
    Screen->findChild<QPushButton*>("Redo")->click();
    EXPECT_EQ(Line.ShotDistance(3), 7);
    Screen->findChild<QPushButton*>("Undo")->click();
    EXPECT_EQ(Line.ShotDistance(3), 25);
    Go_To(Picks, 1, 1);
    Keys("8");
    Key(Qt::Key_Return);
    EXPECT_EQ(Program.Work.Fields.Status, "") << "the message goes with the next edit";
}

TEST_F(Tables, blocks_are_copied_cleared_and_filled) {
    Select(2, 1, 3, 2);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "12.00\t22.00\n13.00\t23.00\n");
    Key(Qt::Key_Delete);
    EXPECT_EQ(Times(1), Column({11, 0, 0, 14, 15, 16}));
    EXPECT_EQ(Times(2), Column({21, 0, 0, 24, 25, 26}));
    QApplication::clipboard()->setText("5");
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Times(2), Column({21, 5, 5, 24, 25, 26}));
    Picks->selectAll();
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith("11.00\t21.00")) << "without headings";
}

TEST_F(Tables, typing_begins_an_edit_and_keys_end_it) {
    const QSignalSpy resets(Picks->model(), &QAbstractItemModel::modelReset);
    Go_To(Picks, 1, 1);
    Keys("7.25");
    Key(Qt::Key_Return);
    EXPECT_EQ(Line.ShotTimes(1, 1), 7.25f);
    EXPECT_EQ(Program.Work.Grids.Buildgrid.CurrentRow, 2);
    Keys("8");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Line.ShotTimes(1, 2), 8);
    EXPECT_EQ(Picks->currentIndex(), Picks->model()->index(2, 2));
    Keys("9");
    Key(Qt::Key_Right);
    EXPECT_EQ(Line.ShotTimes(2, 2), 9);
    EXPECT_EQ(Picks->currentIndex(), Picks->model()->index(2, 3));
    Key(Qt::Key_F2);
    Key(Qt::Key_Left);
    Keys("x");
    Key(Qt::Key_Escape);
    EXPECT_EQ(Line.ShotTimes(3, 2), 32)
        << "F2 belongs to the table, not to the menu; Escape takes the edit back";
    Key(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Picks->currentIndex(), Picks->model()->index(1, 3));
    EXPECT_EQ(resets.count(), 0) << "each edit redraws the curves; the view must not start anew";

    Go_To(Remarks, 2, 3);
    Keys("Fault, 12 m");
    Key(Qt::Key_Return);
    EXPECT_EQ(Line.remark_grid.Text(2, 3), "Fault, 12 m");
}

TEST_F(Tables, a_time_below_0_is_red_and_keeps_no_key_of_undo_from_the_window) {
    Go_To(Picks, 2, 2);
    Keys("-4");
    Key(Qt::Key_Return);
    const QVariant letters = Picks->model()->index(2, 2).data(Qt::ForegroundRole);
    EXPECT_EQ(letters.value<QBrush>().color(), QColor(Qt::red));
    EXPECT_FALSE(Picks->model()->index(3, 2).data(Qt::ForegroundRole).isValid());
    for (const QAction* action : Picks->actions()) {
        for (const QKeySequence& key : action->shortcuts())
            EXPECT_NE(key, QKeySequence(Qt::CTRL | Qt::Key_Z)) << action->text().toStdString();
    }
}

TEST_F(Tables, one_cell_is_shown_anew_without_the_others) {
    const QSignalSpy changes(Picks->model(), &QAbstractItemModel::dataChanged);
    Line.ShotTimes(2, 4) = 3.5F;
    Fill_Grid_Cell(Program.Work, PickPlace{2, 4});
    Picks->Refresh_Cell(4, 2);
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes.at(0).at(0).toModelIndex(), Picks->model()->index(4, 2));
    EXPECT_EQ(changes.at(0).at(1).toModelIndex(), Picks->model()->index(4, 2));
    EXPECT_EQ(Picks->model()->index(4, 2).data(), "3.50");
    Picks->Refresh();
    EXPECT_EQ(changes.count(), 1) << "and is not shown a second time";
}

}  // namespace
}  // namespace tarnvik
