#include <gtest/gtest.h>

#include <QButtonGroup>
#include <QDir>
#include <QFile>
#include <QRadioButton>

#include "support/test_ports.h"
#include "ui/field_binder.h"
#include "ui/qt_launcher.h"
#include "ui/qt_prompts.h"
#include "ui/running/tool_run.h"

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
