#include <gtest/gtest.h>

#include <QFile>

#include "support/test_ports.h"
#include "ui/field_binder.h"
#include "ui/qt_launcher.h"
#include "ui/qt_prompts.h"
#include "ui/running/tool_run.h"

namespace tarnvik {
namespace {

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
