// Chains of tools on a line, run by the real tools as a shell runs them.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <filesystem>
#include <set>

#include "core/files.h"
#include "processing/new_su_files.h"
#include "processing/rewrite_su.h"
#include "processing/shift_traces.h"
#include "records/su_file.h"
#include "records/su_loading.h"
#include "setup/line.h"
#include "setup/stack_shots.h"
#include "support/shell_tools.h"
#include "support/su_builder.h"
#include "support/test_ports.h"

namespace tarnvik {
namespace {

using test::Make_Line;
using test::SuBuilder;
using test::TemporaryFolder;

constexpr int channels = 3;
constexpr int samples = 20;

/// Four records whose samples tell their trace; one dead trace, picks, and numbers of records that do not
/// begin with 1.
class Chain : public ::testing::Test {
  protected:
    Chain() {
        Make_Line(workspace, 4, channels, 6);
        SuBuilder builder(4 * channels, samples);
        builder.Records(channels);
        for (int trace = 1; trace <= 4 * channels; ++trace) {
            builder.Put32(trace, 8, 100 + (trace - 1) / channels).Put16(trace, 28, live_trace);
            builder.Put16(trace, 222, 10 * trace);
            for (int sample = 1; sample <= samples; ++sample)
                builder.Sample(trace, sample, static_cast<float>(100 * trace + sample));
        }
        builder.Put16(2, 28, dead_trace).Put16(12, 28, 7).Sample(4, 5, 0).Sample(7, 5, 0);
        // A name with blanks would not be accepted at loading, but the chain stands it.
        path = builder.Write(folder / "my line.su");
        original = Content();
        workspace.Project.SuFile = path;
        workspace.Project.CurrentFile = folder / "line.tv5";
        workspace.Project.ProjectDir = folder.Path + "/";
        Start_With_SU_File(workspace, path);
        Scan_Channels(workspace, path);
        workspace.Edits.Start(workspace.Project, true);
        test::Give_Tools(ports.Launcher);
    }
    std::string Content() const { return Read_File(path).value_or("none"); }
    static std::size_t Length() { return 240 + 4 * samples; }
    std::string Trace(int trace) const { return original.substr((trace - 1) * Length(), Length()); }
    static void Put_Word(std::string& trace, int offset, std::int32_t value) {
        std::memcpy(trace.data() + offset, &value, sizeof value);
    }
    static void Put_Word16(std::string& trace, int offset, std::int16_t value) {
        std::memcpy(trace.data() + offset, &value, sizeof value);
    }
    /// The whole file that a stack of records first to last has to give.
    std::string Stacked(int first, int last) const {
        std::string file;
        int record = 0;
        for (int of = 1; of <= 4; ++of) {
            if (of > first && of <= last) continue;
            ++record;
            for (int channel = 1; channel <= channels; ++channel) {
                std::string trace = Trace((of - 1) * channels + channel);
                Put_Word(trace, 8, record);
                if (of == first) {
                    Put_Word16(trace, 32, static_cast<std::int16_t>(last - first + 1));  // nhs
                    for (int sample = 0; sample < samples; ++sample) {
                        double sum = 0;
                        int count = 0;
                        for (int added = first; added <= last; ++added) {
                            const std::string other = Trace((added - 1) * channels + channel);
                            float value = 0;
                            std::memcpy(&value, other.data() + 240 + 4 * sample, sizeof value);
                            sum += value;
                            count += value != 0 ? 1 : 0;
                        }
                        const float mean = static_cast<float>(count == 0 ? 0 : sum / count);
                        std::memcpy(trace.data() + 240 + 4 * sample, &mean, sizeof mean);
                    }
                }
                file += trace;
            }
        }
        return file;
    }
    void Expect_Stack_Questions(const char* first, const char* last, bool keep) {
        auto& prompts = ports.Prompts;
        prompts.Expect("Use this module to add (stack) some ADJACENT shots having the same shot point",
                       Answer::Ok);
        prompts.Expect_Input(" First shot to stack ", first);
        prompts.Expect_Input(" Last shot to stack ", last);
        prompts.Expect_Start("Stack shots", Answer::Yes);
        prompts.Expect("Keep temporary SU files ", keep ? Answer::Yes : Answer::No);
    }
    void Stack() { Stack_Shots(workspace, ports.Ports, {}); }
    std::set<std::string> Files() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path))
            names.insert(entry.path().filename().string());
        return names;
    }
    int Hidden() const {
        int hidden = 0;
        for (const std::string& name : Files())
            hidden += Is_Name_Aside(folder / name) ? 1 : 0;
        return hidden;
    }

    TemporaryFolder folder;
    Workspace workspace;
    test::TestPorts ports;
    std::string path;
    std::string original;
};

TEST_F(Chain, stacks_at_every_place_of_the_line_as_one_edit) {
    struct Case {
        const char* First;
        const char* Last;
        int Of;
        int To;
    };
    for (const Case& now :
         {Case{"2", "3", 2, 3}, Case{"2", "1", 1, 2}, Case{"3", "4", 3, 4}, Case{"1", "4", 1, 4}}) {
        Expect_Stack_Questions(now.First, now.Last, false);
        Stack();
        EXPECT_EQ(Content(), Stacked(now.Of, now.To)) << now.First;
        const Project& line = workspace.Project;
        EXPECT_EQ(line.NbShots, 4 - (now.To - now.Of));
        EXPECT_EQ(line.ShotTimes(now.Of, 2), 10 * now.Of + 2);
        if (now.To < 4) {
            EXPECT_EQ(line.ShotTimes(now.Of + 1, 2), 10 * (now.To + 1) + 2);
        }
        const std::string shots = std::to_string(now.Of) + " to " + std::to_string(now.To);
        EXPECT_EQ(ports.Prompts.Last_Text(), "OK, Stack shots" + shots + " in " + path);
        EXPECT_EQ(workspace.Edits.Undo_Name(), "Stack shots " + shots);
        ASSERT_EQ(workspace.Edits.Undo(workspace.Project), "");
        EXPECT_EQ(Content(), original);
        EXPECT_EQ(line.NbShots, 4);
        ASSERT_EQ(workspace.Edits.Redo(workspace.Project), "");
        EXPECT_EQ(Content(), Stacked(now.Of, now.To));
        ASSERT_EQ(workspace.Edits.Undo(workspace.Project), "");
        Fill_Grid(workspace);
    }
    EXPECT_TRUE(ports.Prompts.Said("Original SU file saved as " + (folder / "my line_bak.su")));
    EXPECT_EQ(Read_File(folder / "my line_bak.su"), original);
    EXPECT_FALSE(Files().contains("tmp0.su"));
    const std::string log = Read_File(path + ".log").value_or("");
    const std::string tools = TARNVIK_TOOLS;
    EXPECT_NE(log.find(tools + "\\susort <" + (folder / "tmp2.su") + " tracf | " + tools + "\\sustack >" +
                       (folder / "tmp5.su") + " key=tracf\n"),
              std::string::npos)
        << log;
    EXPECT_NE(log.find("copy/b " + (folder / "tmp1.su") + " +" + (folder / "tmp6.su") + " +" +
                       (folder / "tmp3.su") + " " + (folder / "tmp7.su")),
              std::string::npos)
        << log;
    workspace.Edits.Close();
    EXPECT_EQ(Hidden(), 0);
}

TEST_F(Chain, wrong_shots_are_refused_and_temporary_files_kept_when_wanted) {
    auto& prompts = ports.Prompts;
    for (const auto& [first, last] : {std::pair("0", "2"), std::pair("2", "5"), std::pair("", "")}) {
        prompts.Expect_Start("Use this module", Answer::Ok);
        prompts.Expect_Input(" First shot to stack ", first);
        prompts.Expect_Input(" Last shot to stack ", last);
        Stack();
        EXPECT_EQ(prompts.Last_Text(), "wrong shots number to stack");
    }
    Expect_Stack_Questions("1", "2", true);
    Stack();
    EXPECT_TRUE(Files().contains("tmp0.su"));
    EXPECT_FALSE(Files().contains("tmp1.su")) << "there is no side file before the first record";
    EXPECT_TRUE(Files().contains("tmp7.su"));
}

TEST_F(Chain, a_tool_that_fails_or_is_missing_or_is_stopped_changes_nothing) {
    auto& prompts = ports.Prompts;
    const auto begin = [&] {
        ports.Launcher.Ran.clear();
        prompts.Expect_Start("Use this module", Answer::Ok);
        prompts.Expect_Input(" First shot to stack ", "2");
        prompts.Expect_Input(" Last shot to stack ", "3");
        prompts.Expect_Start("Stack shots", Answer::Yes);
        Stack();
    };
    for (std::size_t failing = 1; failing <= 8; ++failing) {
        ports.Launcher.OnRun = [&](const ToolCommand& command) {
            const std::string failure = test::Run_In_Shell(command);
            return ports.Launcher.Ran.size() == failing ? "disk trouble" : failure;
        };
        begin();
        EXPECT_TRUE(prompts.Last_Text().starts_with("disk trouble\r\n")) << failing << prompts.Last_Text();
        EXPECT_EQ(Content(), original);
        EXPECT_EQ(Hidden(), 0);
    }
    ports.Launcher.OnRun = test::Run_In_Shell;
    ports.Launcher.Folder = folder.Path;
    begin();
    EXPECT_EQ(prompts.Last_Text(), "Unable to launch  " + (folder / "sushw"));
    EXPECT_EQ(workspace.Project.NbShots, 4);
    EXPECT_FALSE(workspace.Edits.Can_Undo());
    Resize_Channels(workspace, ports.Ports);
    EXPECT_EQ(prompts.Last_Text(), "Unable to shell SURESAMP");
    EXPECT_EQ(Hidden(), 0);
}

TEST_F(Chain, a_dropped_record_takes_its_traces_alone_in_both_files) {
    // The twin holds other samples, one trace more that was cut short, and another dead trace.
    const std::string twin = folder / "twin.su";
    std::string unfiltered = original + Trace(1).substr(0, 200);
    Put_Word16(unfiltered, 28, dead_trace);
    ASSERT_EQ(Replace_File(twin, unfiltered), "");
    workspace.Record.TwinSuFile = twin;
    {
        FreshFiles fresh = Rewrite_SU(workspace, ports.Ports, 2);
        ASSERT_EQ(fresh.size(), 2U);
        EXPECT_EQ(Content(), original) << "nothing is in place yet";
        EditScope edit(workspace, "Drop");
        ASSERT_EQ(Put_All(fresh), "");
    }
    const auto without = [](const std::string& file) {
        return file.substr(0, 3 * Length()) + file.substr(6 * Length());
    };
    EXPECT_EQ(Content(), without(original)) << "dead traces stay dead, any mark stays";
    EXPECT_EQ(Read_File(twin), without(unfiltered));
    ASSERT_EQ(workspace.Edits.Undo(workspace.Project), "");
    EXPECT_EQ(Content(), original);
    EXPECT_EQ(Read_File(twin), unfiltered);
}

TEST_F(Chain, channels_are_extracted_and_records_resampled_into_files_of_their_own) {
    auto& prompts = ports.Prompts;
    prompts.Expect_Input("Enter the first trace to keep (0=exit)", "2");
    prompts.Expect_Input("Enter the Last trace to keep (0=exit)", "9");
    Extract_Traces(workspace, ports.Ports);
    const std::string extracted = folder / "my line_Xtract.su";
    std::string expected;
    for (const int trace : {2, 3, 5, 6, 8, 9, 11, 12}) {
        expected += Trace(trace);
        Put_Word(expected, static_cast<int>(expected.size() - Length()) + 12, (trace - 1) % channels);
    }
    EXPECT_EQ(Read_File(extracted), expected);
    EXPECT_EQ(prompts.Last_Text(), "Trace extraction OK ! New SU file has been recorded as " + extracted);
    prompts.Expect_Input("Enter the first trace to keep (0=exit)", "7");
    prompts.Expect_Input("Enter the Last trace to keep (0=exit)", "9");
    Extract_Traces(workspace, ports.Ports);
    EXPECT_TRUE(prompts.Last_Text().starts_with("No trace of "));
    ASSERT_EQ(workspace.Edits.Undo(workspace.Project), "");
    EXPECT_FALSE(File_Exists(extracted));

    Resize_Channels(workspace, ports.Ports);  // the latest pick is 43 ms
    SuTraces resized(folder / "my line_RS.SU");
    EXPECT_EQ(resized.Nb_Traces(), 12);
    EXPECT_EQ(resized.Nb_Samples(), 64);
    EXPECT_EQ(resized.Sample_Interval(), 1000);
    EXPECT_EQ(prompts.Last_Text(), (folder / "my line_RS.SU") + " has been recorded ");
    EXPECT_EQ(Content(), original);
}

TEST_F(Chain, traces_are_shifted_whole_and_lost_signal_is_told) {
    auto& prompts = ports.Prompts;
    const auto shift = [&](const char* what, double ms) {
        prompts.Expect_Input("Do you want to shift 1-Active trace 2-Active shot 3-All shots ", what);
        Shift_Traces(workspace, ports.Ports, ms);
    };
    const auto shifted = [&](int first, int last, int count) {
        std::string file = original;
        for (int trace = first; trace <= last; ++trace) {
            const std::size_t at = (trace - 1) * Length() + 240;
            std::string row = original.substr(at, 4 * samples);
            row = count > 0 ? std::string(4 * count, '\0') + row.substr(0, row.size() - 4 * count)
                            : row.substr(-4 * count) + std::string(-4 * count, '\0');
            file.replace(at, row.size(), row);
        }
        return file;
    };
    Shift_Traces(workspace, ports.Ports, 0);
    shift("4", 3);
    shift("1", 3);
    EXPECT_EQ(prompts.Last_Text(), "No trace has been clicked yet");
    EXPECT_EQ(Content(), original);
    workspace.Record.PickedTrace = 5;
    shift("1", -2.5);  // two samples, halves to even
    EXPECT_EQ(Content(), shifted(5, 5, -2));
    EXPECT_EQ(prompts.Last_Text(), "Samples with signal of 1 trace have been pushed out of the record");
    ASSERT_EQ(workspace.Edits.Undo(workspace.Project), "");
    workspace.Record.FirstTrace = 4;
    workspace.Record.LastTrace = 6;
    shift("2", 3);
    EXPECT_EQ(Content(), shifted(4, 6, 3));
    ASSERT_EQ(workspace.Edits.Undo(workspace.Project), "");
    shift("3", 19);
    EXPECT_EQ(Content(), shifted(1, 12, 19));
    EXPECT_EQ(workspace.Edits.Undo_Name(), "Shift all traces by 19 ms");
    ASSERT_EQ(workspace.Edits.Undo(workspace.Project), "");
    EXPECT_EQ(Content(), original);
}

/// A program that works on the line until it is killed, or runs out of room.
TEST_F(Chain, a_kill_and_a_full_disk_leave_the_old_file_or_the_new_one) {
    const std::string stacked = Stacked(2, 3);
    ASSERT_EQ(Copy_File(path, folder / "my line_bak.su"), "");
    for (int round = 0; round < 25; ++round) {
        const bool no_room = round >= 20;
        const pid_t child = fork();
        if (child == 0) {
            if (no_room) {
                signal(SIGXFSZ, SIG_IGN);
                const auto room = static_cast<rlim_t>(500 * (round - 19));
                const rlimit limit{room, room};
                setrlimit(RLIMIT_FSIZE, &limit);
            }
            do {
                Expect_Stack_Questions("2", "3", false);
                Stack();
                if (!no_room) workspace.Edits.Undo(workspace.Project);
            } while (!no_room);
            _exit(workspace.Edits.Can_Undo() ? 1 : 0);
        }
        if (!no_room) {
            usleep(static_cast<useconds_t>(1000 + 3000 * round));
            kill(child, SIGKILL);
        }
        int status = 0;
        waitpid(child, &status, 0);
        usleep(20'000);  // a tool that outlives its program for a moment writes into the hidden folder
        if (no_room) {
            EXPECT_EQ(Content(), original) << round;
        } else {
            EXPECT_TRUE(Content() == original || Content() == stacked) << round;
        }
        ASSERT_EQ(Replace_File(path, original), "");
    }
}

}  // namespace
}  // namespace tarnvik
