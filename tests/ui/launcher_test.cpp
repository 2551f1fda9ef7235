#include <gtest/gtest.h>

#include <chrono>

#include "core/files.h"
#include "support/test_ports.h"
#include "ui/qt_launcher.h"
#include "ui/running/tool_run.h"

namespace tarnvik {
namespace {

class RealLauncher : public testing::Test {
  protected:
    ToolResult Run(const std::vector<ToolCommand>& commands, const ToolProgress& progress = {}) {
        return Launcher.Run_In_Order(commands, Folder.Path, progress);
    }
    test::TemporaryFolder Folder;
    QtLauncher Launcher;
};

TEST_F(RealLauncher, runs_tools_in_order_through_files_with_names_of_any_kind) {
    ASSERT_EQ(Replace_File(Folder / "two words.txt", "a\nb\n"), "");
    std::vector<std::size_t> told;
    const ToolResult result = Run({{"/bin/cat", {}, "two words.txt", "copy.txt"},
                                   {"sed", {"s/b/c d/"}, Folder / "copy.txt", "changed.txt"},
                                   {"/bin/cat", {"two words.txt", "changed.txt"}, "", "both.txt"}},
                                  [&told](std::size_t place, const ToolCommand&) {
                                      if (told.empty() || told.back() != place) told.push_back(place);
                                      return true;
                                  });
    EXPECT_TRUE(result.Went_Well()) << result.Failure;
    EXPECT_EQ(result.Done, 3U);
    EXPECT_EQ(told, (std::vector<std::size_t>{0, 1, 2}));
    EXPECT_EQ(Read_File(Folder / "both.txt"), "a\nb\na\nc d\n");
}

TEST_F(RealLauncher, stops_at_the_first_failure_with_the_tools_own_words_and_keeps_the_former_output) {
    ASSERT_EQ(Replace_File(Folder / "out.su", "former"), "");
    const ToolResult said =
        Run({{"/bin/sh", {"-c", "echo half; echo 'no such channel' >&2; exit 3"}, "", "out.su"},
             {"/bin/sh", {"-c", "echo 2 > ran"}, "", ""}});
    EXPECT_EQ(said.Done, 0U);
    EXPECT_EQ(said.Failure, "/bin/sh failed with 3\r\nno such channel");
    EXPECT_EQ(Read_File(Folder / "out.su"), "former");
    EXPECT_FALSE(File_Exists(Folder / "out.su.part"));
    EXPECT_FALSE(File_Exists(Folder / "ran"));

    EXPECT_EQ(Run({{"/bin/false", {}, "", ""}}).Failure, "/bin/false failed with 1");
    EXPECT_EQ(Run({{"no-such-tool.exe", {}, "", ""}}).Failure, "no-such-tool.exe is not found");
    EXPECT_FALSE(Run({{"/bin/sh", {"-c", "kill -9 $$"}, "", ""}}).Went_Well());
    EXPECT_FALSE(Run({{"/bin/cat", {}, "missing.su", "out.su"}}).Went_Well());
    EXPECT_EQ(Read_File(Folder / "out.su"), "former");
}

TEST_F(RealLauncher, a_run_can_be_stopped) {
    const auto begin = std::chrono::steady_clock::now();
    int looks = 0;
    const ToolResult result =
        Run({{"/bin/sleep", {"30"}, "", ""}, {"/bin/sh", {"-c", "echo 2 > ran"}, "", ""}},
            [&looks](std::size_t, const ToolCommand&) { return ++looks < 4; });
    EXPECT_TRUE(result.Cancelled);
    EXPECT_EQ(result.Done, 0U);
    EXPECT_FALSE(File_Exists(Folder / "ran"));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
}

TEST_F(RealLauncher, a_tool_of_the_user_goes_before_our_own_of_that_name) {
    const auto put = [this](const std::string& name) {
        std::filesystem::create_directories(std::filesystem::path(Folder / name).parent_path());
        ASSERT_EQ(Replace_File(Folder / name, "#!/bin/sh\n"), "");
        std::filesystem::permissions(Folder / name, std::filesystem::perms::owner_all);
    };
    const QString folder = QString::fromStdString(Folder.Path);
    const auto found = [&folder](const char* name) {
        const FoundProgram program = Find_Launched(folder + "/" + name, folder);
        return (QStringList{QString(program.Program).remove(folder)} + program.Before).join(' ');
    };
    EXPECT_EQ(found("reverse.exe"), "");
    put("tools/tarnvik-tools");
    EXPECT_EQ(found("reverse.exe"), "/tools/tarnvik-tools reverse");
    EXPECT_EQ(found("conversion.EXE"), "/tools/tarnvik-tools conversion");
    EXPECT_EQ(found("no_tool_of_ours.exe"), "");
    // The place where another installation had it.
    EXPECT_EQ(Find_Launched("C:\\tarnvik\\SEG2su.exe", folder).Before, QStringList{"SEG2su"});
    put("tools/reverse");
    EXPECT_EQ(found("reverse.exe"), "/tools/reverse");
    put("reverse.exe");
    EXPECT_EQ(found("reverse.exe"), "/reverse.exe");
}

}  // namespace
}  // namespace tarnvik
