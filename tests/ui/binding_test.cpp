#include <gtest/gtest.h>

#include <QButtonGroup>
#include <QDir>
#include <QFile>
#include <QRadioButton>
#include <QTableView>

#include "support/test_ports.h"
#include "ui/field_binder.h"
#include "ui/painting/painter_picture.h"
#include "ui/qt_launcher.h"
#include "ui/qt_prompts.h"
#include "ui/running/tool_run.h"
#include "ui/text_grid_model.h"

namespace tarnvik {
namespace {

TEST(Field_binder, each_kind_of_control_carries_its_field_there_and_back) {
    FieldBinder binder;
    std::string typed = "12";
    std::string listed = "3";
    bool ticked = false;
    int chosen = 1;
    int option = 2;
    ScrollBar scrolled{.Value = 4, .Min = 1, .Max = 9};
    int changes = 0;
    const auto count = [&changes] { ++changes; };

    QLineEdit edit;
    QComboBox list;
    QComboBox open_list;
    QCheckBox tick;
    QScrollBar bar;
    QButtonGroup options;
    QRadioButton first;
    QRadioButton second;
    options.addButton(&first, 1);
    options.addButton(&second, 2);
    list.addItems({"a", "b", "c"});
    open_list.setEditable(true);
    open_list.addItems({"1", "2"});
    binder.Text(&edit, typed, count);
    binder.Choice(&list, chosen, count);
    binder.Text(&open_list, listed, count);
    binder.Tick(&tick, ticked, count);
    binder.Scroll(&bar, scrolled, count);
    binder.Choice(&options, option, count);
    binder.Refresh();
    EXPECT_EQ(edit.text(), "12");
    EXPECT_EQ(list.currentIndex(), 1);
    EXPECT_EQ(open_list.currentText(), "3") << "a text that is not in the list";
    EXPECT_EQ(bar.maximum(), 9);
    EXPECT_EQ(bar.value(), 4);
    EXPECT_TRUE(second.isChecked());
    EXPECT_EQ(changes, 0) << "showing a field is no change by the user";

    edit.setText("7");
    emit edit.textEdited("7");
    list.setCurrentIndex(2);
    open_list.setEditText("2.5");
    tick.setChecked(true);
    bar.setValue(6);
    first.setChecked(true);
    EXPECT_EQ(typed, "7");
    EXPECT_EQ(chosen, 2);
    EXPECT_EQ(listed, "2.5");
    EXPECT_TRUE(ticked);
    EXPECT_EQ(scrolled.Value, 6);
    EXPECT_EQ(option, 1);
    EXPECT_EQ(changes, 6);

    // A half-typed text stays where the cursor is while other fields are refreshed.
    edit.setText("123");
    emit edit.textEdited("123");
    edit.setCursorPosition(1);
    binder.Refresh();
    EXPECT_EQ(edit.cursorPosition(), 1);
}

TEST(Text_grid_model, shows_texts_and_colours_and_lets_only_free_cells_be_edited) {
    TextGrid grid(3, 3);
    grid.Set_Text(0, 1, "Shot 1");
    grid.Set_Text(1, 1, "12.50");
    grid.At(1, 1).BackColour = colours::Red;
    grid.At(1, 1).Align = TextGrid::Alignment::Right;
    QTableView view;
    FieldBinder binder;
    int edited = 0;
    TextGridModel* model = binder.Grid(&view, grid, [&edited] { ++edited; });
    const QModelIndex cell = model->index(1, 1);
    EXPECT_EQ(model->data(cell), "12.50");
    EXPECT_EQ(model->data(cell, Qt::BackgroundRole).value<QBrush>().color(), QColor(255, 0, 0));
    EXPECT_TRUE(model->data(cell, Qt::TextAlignmentRole).toInt() & Qt::AlignRight);

    EXPECT_FALSE(model->setData(model->index(0, 1), "x"));
    EXPECT_FALSE(model->setData(model->index(1, 0), "x"));
    EXPECT_TRUE(model->setData(cell, QString::fromUtf8("é 3")));
    EXPECT_EQ(grid.Text(0, 1), "Shot 1");
    EXPECT_EQ(grid.Text(1, 1), "é 3");
    EXPECT_EQ(grid.CurrentRow, 1);
    EXPECT_EQ(edited, 1);

    // The logic may change the shape between two refreshes: no cell outside is touched.
    grid.Resize(1, 1);
    EXPECT_EQ(model->data(cell), "");
    EXPECT_FALSE(model->setData(cell, "9"));
    binder.Refresh();
    EXPECT_EQ(model->rowCount(), 1);
    grid.Resize(80, 120);
    binder.Refresh();
    EXPECT_EQ(model->columnCount(), 120);
}

TEST(Qt_prompts, file_filters_hold_in_both_cases) {
    EXPECT_EQ(File_Filters("Seismic Unix (SU)|*.SU|All files|*.*|"),
              QStringList({"Seismic Unix SU (*.[sS][uU])", "All files (*)"}));
    EXPECT_EQ(File_Filters("Two|*.a;*.B|"), QStringList({"Two (*.[aA] *.[bB])"}));
    EXPECT_EQ(File_Filters("Fichier Tarnvik *.TV5"), QStringList({"Fichier Tarnvik *.TV5 (*.[tT][vV]5)"}));
    EXPECT_TRUE(File_Filters("").isEmpty());
}

TEST(Qt_launcher, a_tool_is_found_without_its_ending_in_small_letters_and_in_the_programs_folder) {
    const test::TemporaryFolder folder;
    const auto make = [&folder](const char* name) {
        QFile file(QString::fromStdString(folder / name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n");
        file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    };
    make("suprint2");
    make("reverse.exe");
    const QString here = QString::fromStdString(folder.Path);
    EXPECT_EQ(Find_Tool("C:\\tarnvik\\SUPRINT2.EXE", here), here + "/suprint2");
    EXPECT_EQ(Find_Tool(here + "\\suprint2.exe", "/"), here + "/suprint2");
    EXPECT_EQ(Find_Tool("reverse.exe", here), here + "/reverse.exe");
    EXPECT_EQ(Find_Tool("nowhere-to-be-found.exe", here), "");
    EXPECT_LT(QtLauncher().Start("nowhere-to-be-found.exe", "", ""), launch_failure_below);
    EXPECT_LT(QtLauncher().Open_Document(folder / "missing.pdf"), launch_failure_below);
}

}  // namespace
}  // namespace tarnvik
