// SU files of another size by the real tools, and traces and records numbered anew.

#include <gtest/gtest.h>

#include <filesystem>

#include "core/files.h"
#include "processing/rezize.h"
#include "processing/update_fldr.h"
#include "records/su_file.h"
#include "records/su_loading.h"
#include "support/shell_tools.h"
#include "support/su_builder.h"
#include "support/test_ports.h"

namespace tarnvik::test {
namespace {

constexpr int traces = 12;
constexpr int channels = 4;
constexpr int ns = 600;

class SuUtility : public testing::Test {
  protected:
    SuUtility() {
        Line.Records(channels);
        for (int trace = 1; trace <= traces; ++trace) {
            for (int sample = 1; sample <= ns; ++sample)
                Line.Sample(trace, sample, static_cast<float>(trace * 1000 + sample));
        }
        Path = Line.Write(Folder / "my line.su");
        Work.Project.SuFile = Path;
        Work.Project.CurrentFile = Folder / "line.tv5";
        Work.Edits.Start(Work.Project, true);
        Give_Tools(Outside.Launcher);
        Dialog.Load();
    }
    std::string Go() {
        Outside.Prompts.Messages.clear();
        Dialog.Command3();
        return Outside.Prompts.Last_Text();
    }
    int Runs() const { return static_cast<int>(Outside.Launcher.Ran.size()); }
    std::vector<std::string> Arguments() const { return Outside.Launcher.Ran.back().Arguments; }

    TemporaryFolder Folder;
    SuBuilder Line{traces, ns, 1000};
    std::string Path;
    Workspace Work;
    TestPorts Outside;
    rezize Dialog{Work, Outside.Ports};
};

TEST_F(SuUtility, shows_what_the_traces_tell) {
    EXPECT_EQ(Dialog.Text2, Folder / "my line_new.su");
    EXPECT_EQ(Dialog.OriginalTime, "600");
    EXPECT_EQ(Dialog.Records.Rows(), 4);
    EXPECT_EQ(Dialog.Records.Text(3, 0), "Record n° 3");
    EXPECT_EQ(Dialog.Records.Text(3, 1), "4");
    EXPECT_EQ(Dialog.Text10, "4");

    // The length of the record stays, the interval is in whole microseconds.
    Dialog.Text14 = "700";
    Dialog.Samples_Typed();
    EXPECT_EQ(Dialog.Text16, "0.857");
    Dialog.Text16 = "0.25";
    Dialog.Interval_Typed();
    EXPECT_EQ(Dialog.Text14, "2400");

    // A file that is refused leaves the one that stood there.
    const struct {
        int Offset;
        const char* Words;
    } others[] = {{114, "Number of Samples per trace must be constant !"},
                  {116, "Sample rate must be constant !"}};
    for (const auto& other : others) {
        SuBuilder uneven(traces, ns, 1000);
        uneven.Records(channels).Put16(traces, other.Offset, 599);
        Outside.Prompts.Expect_File("SU File selection", uneven.Write(Folder / "uneven.su"));
        Dialog.Command1();
        EXPECT_EQ(Outside.Prompts.Last_Text(), other.Words);
        EXPECT_EQ(Dialog.Text1, Path);
    }

    // Records too long for the program itself can be looked at and shortened here.
    constexpr int long_ns = 40000;
    Outside.Prompts.Expect_File("SU File selection", SuBuilder(2, long_ns, 500).Write(Folder / "long.su"));
    Dialog.Command1();
    EXPECT_EQ(Dialog.OriginalTime, "20000");
    Dialog.Text8 = "17000";
    EXPECT_EQ(Go(), "Records of 34001 samples are too long, the most is 32767: 16383 ms");
    Dialog.Text8 = "10";
    EXPECT_EQ(Go(), "Time has been changed for file " + (Folder / "long_new.su"));
    EXPECT_EQ(SuTraces(Folder / "long_new.su").Nb_Samples(), 21);
}

TEST_F(SuUtility, makes_the_three_kinds_of_files) {
    const std::string made = Folder / "my line_new.su";
    Dialog.Text8 = "250";
    EXPECT_EQ(Go(), "Time has been changed for file " + made);
    EXPECT_EQ(Arguments(), (std::vector<std::string>{"tmin=0", "tmax=0.25"}));
    SuBuilder shorter(traces, 251, 1000);
    shorter.Records(channels);
    for (int trace = 1; trace <= traces; ++trace) {
        for (int sample = 1; sample <= 251; ++sample)
            shorter.Sample(trace, sample, static_cast<float>(trace * 1000 + sample));
    }
    EXPECT_TRUE(Content_Of(made) == shorter.Bytes);
    EXPECT_TRUE(Content_Of(Path) == Line.Bytes);
    const std::string log = Content_Of(Path + ".log");
    EXPECT_NE(log.find("\\SUWIND <" + (Folder / "myline.su") + " >" + (Folder / "myline_new.su") +
                       " tmin=0 tmax=0.25"),
              std::string::npos)
        << log;

    // Over that file only after a question, and the undo brings it back.
    Dialog.SSTab1 = static_cast<int>(rezize::Page::Samples);
    Dialog.Text14 = "300";
    Dialog.Samples_Typed();
    Outside.Prompts.Expect(made + " already exists, overwrite ?", Answer::No);
    Go();
    EXPECT_EQ(Runs(), 1);
    Outside.Prompts.Expect(made + " already exists, overwrite ?", Answer::Yes);
    EXPECT_EQ(Go(), "Trace length has been changed for file " + made);
    EXPECT_EQ(Arguments(), (std::vector<std::string>{"nt=300", "dt=0.002"}));
    EXPECT_EQ(SuTraces(made).Sample_Interval(), 2000);
    EXPECT_NEAR(SuTraces(made).Sample(3, 100).value_or(0), 3199, 0.5);
    EXPECT_EQ(Work.Edits.Undo(Work.Project), "");
    EXPECT_TRUE(Content_Of(made) == shorter.Bytes);

    Dialog.SSTab1 = static_cast<int>(rezize::Page::Channels);
    Dialog.Text9 = "2";
    Dialog.Text10 = "3";
    Dialog.Text2 = Folder / "two";
    EXPECT_EQ(Go(), "Channels have been changed for file " + (Folder / "two.su"));
    SuTraces two(Folder / "two.su");
    EXPECT_EQ(two.Nb_Traces(), 6);
    EXPECT_EQ(two.Word(6, words::tracf), 3) << "channels keep their numbers";

    // Into the project's own file, made of another one: the same road back.
    Dialog.Text1 = Folder / "two.su";
    Dialog.Input_Typed();
    Dialog.Text2 = Path;
    Dialog.Text9 = Dialog.Text10 = "2";
    Outside.Prompts.Expect(Path + " already exists, overwrite ?", Answer::Yes);
    Go();
    EXPECT_EQ(SuTraces(Path).Nb_Traces(), 3);
    EXPECT_EQ(Work.Edits.Undo_Name(), "Channels 2 to 2");
    EXPECT_EQ(Work.Edits.Go_To(Work.Project, 0), "");
    EXPECT_TRUE(Content_Of(Path) == Line.Bytes);
    EXPECT_FALSE(File_Exists(made));
}

TEST_F(SuUtility, refuses_before_anything_runs_and_tells_what_failed) {
    using Page = rezize::Page;
    const struct {
        Page Which;
        std::string rezize::*Field;
        const char* Typed;
        const char* Words;
    } cases[] = {
        {Page::Time, &rezize::Text8, "0", "The new recording time must be above 0 ms"},
        {Page::Time, &rezize::Text8, "600", "The new recording time must be shorter than the original"},
        {Page::Time, &rezize::Text8, "25O", "New recording time: \"25O\" is no number"},
        {Page::Samples, &rezize::Text14, "0", "The new number of samples must be a whole number"},
        {Page::Samples, &rezize::Text14, "40000", "The new number of samples must be a whole number"},
        {Page::Samples, &rezize::Text16, "0.0005", "The new sample interval must be a whole number"},
        {Page::Channels, &rezize::Text9, "4.5", "Channels are whole numbers"},
        {Page::Channels, &rezize::Text9, "5", "The first channel must not be above the last one"},
        {Page::Channels, &rezize::Text10, "", "Last channel: \"\" is no number"},
        {Page::Channels, &rezize::Text10, "0", "The first channel must not be above the last one"},
        {Page::Channels, &rezize::Text2, "", "Output file name missing"},
        {Page::Channels, &rezize::Text2, "/none/out.su", "/none/ does not exist !"},
    };
    for (const auto& c : cases) {
        Dialog.Load();
        Dialog.SSTab1 = static_cast<int>(c.Which);
        Dialog.*c.Field = c.Typed;
        EXPECT_TRUE(Go().starts_with(c.Words)) << Outside.Prompts.Last_Text();
    }
    Dialog.Load();
    Dialog.SSTab1 = static_cast<int>(Page::Channels);
    Dialog.Text9 = Dialog.Text10 = "9";
    EXPECT_TRUE(Go().starts_with("No trace of ")) << Outside.Prompts.Last_Text();
    Dialog.Text9 = "1";
    std::filesystem::create_hard_link(Path, Folder / "same.su");
    Dialog.Text2 = Folder / "same.su";
    EXPECT_EQ(Go(), "The output file must be another one than the input file");
    EXPECT_EQ(Runs(), 0);

    Dialog.Load();
    Outside.Launcher.Folder = Folder.Path;
    EXPECT_EQ(Go(), "Unable to shell application:" + (Folder / "suwind"));
    Outside.Launcher.OnRun = [](const ToolCommand&) { return std::string("suwind: disk full"); };
    EXPECT_TRUE(Go().starts_with("suwind: disk full"));
    EXPECT_FALSE(File_Exists(Folder / "my line_new.su"));
    EXPECT_TRUE(Work.Edits.All().empty());
}

class TraceNumbers : public testing::Test {
  protected:
    TraceNumbers() {
        Work.Project.SuFile = Path;
        Work.Edits.Start(Work.Project, true);
        Start_With_SU_File(Work, Path);
        Dialog.Load();
    }
    std::string Renumber(const std::string& typed, const TraceProgress& progress = {}) {
        Outside.Prompts.Messages.clear();
        Outside.Prompts.Expect(
            "This module will update the trace sequence number and Field record number of your original SU "
            "file.",
            Answer::Ok);
        Outside.Prompts.Expect_Input("Enter the number of channels per record (0=exit)", typed);
        Dialog.Command3(progress);
        return Outside.Prompts.Last_Text();
    }

    TemporaryFolder Folder;
    SuBuilder Unnumbered{10, 20, 1000};
    std::string Path = Unnumbered.Write(Folder / "line.su");
    Workspace Work;
    TestPorts Outside;
    Update_FLDR Dialog{Work, Outside.Ports};
};

TEST_F(TraceNumbers, are_one_edit_on_all_traces) {
    Dialog.Text4 = "101";
    int told = 0;
    EXPECT_EQ(Renumber("4", [&told](std::int64_t, std::int64_t) { return ++told > 0; }),
              "Number of channel per shot has been updated");
    EXPECT_GT(told, 0);
    SuBuilder meant(10, 20, 1000);
    for (int trace = 1; trace <= 10; ++trace) {
        const int channel = (trace - 1) % 4 + 1;
        meant.Put32(trace, 0, channel).Put32(trace, 12, channel).Put32(trace, 8, 101 + (trace - 1) / 4);
    }
    EXPECT_TRUE(Content_Of(Path) == meant.Bytes);
    EXPECT_EQ(Work.Record.ChannelsPerRecord, 4);
    EXPECT_EQ(Work.Edits.Undo_Name(), "Trace and record numbers");
    EXPECT_EQ(Work.Edits.Undo(Work.Project), "");
    EXPECT_TRUE(Content_Of(Path) == Unnumbered.Bytes);
}

TEST_F(TraceNumbers, are_refused_or_given_up_with_nothing_written) {
    for (const char* typed : {"0", ""})
        EXPECT_TRUE(Renumber(typed).starts_with("This module")) << typed;
    for (const char* typed : {"x", "-1", "2.5", "11"})
        EXPECT_TRUE(Renumber(typed).starts_with("The number of channels per record must be")) << typed;
    Dialog.Text4 = "2147483647";
    EXPECT_TRUE(Renumber("4").starts_with("The first field record number must be")) << "the last has no room";
    Dialog.Text4 = "1";
    Renumber("4", [](std::int64_t, std::int64_t) { return false; });
    EXPECT_EQ(Dialog.Hint, "Stopped: the headers are as they were");
    Dialog.Text1 = Folder / "none.su";
    Dialog.Command3();
    EXPECT_EQ(Outside.Prompts.Last_Text(), (Folder / "none.su") + " does not exists");
    EXPECT_TRUE(Work.Edits.All().empty());
    EXPECT_TRUE(Content_Of(Path) == Unnumbered.Bytes);
}

}  // namespace
}  // namespace tarnvik::test
