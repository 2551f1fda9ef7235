#include "records/su_loading.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/su_builder.h"
#include "support/test_ports.h"

namespace tarnvik::test {
namespace {

class SuLoading : public testing::Test {
  protected:
    TemporaryFolder Folder;
    Workspace Work;
    TestPorts Outside;

    std::string Write(const SuBuilder& builder, const std::string& name = "line.su") {
        return builder.Write(Folder / name);
    }
    std::optional<Answer> Numbering;  ///< answer to the question whether headers are numbered
    /// `typed` answers the questions for records and channels.
    bool Load(const std::string& path, const std::vector<std::string>& typed = {}) {
        Outside.Prompts.Expect_File("Load ", path);
        const char* questions[] = {"Enter the total number of records for your spread",
                                   "Enter the number of channel for each record (must be constant)"};
        for (std::size_t i = 0; i < typed.size(); ++i)
            Outside.Prompts.Expect_Input(questions[i], typed[i]);
        if (Numbering) Outside.Prompts.Expect_Start("The traces of " + path, *Numbering);
        return Load_SU_File(Work, Outside.Ports);
    }
};

TEST_F(SuLoading, TheChannelScanFindsTheSpread) {
    struct Case {
        const char* Name;
        std::vector<int> Channels;
        int Found;
        int Records;
    };
    const Case cases[] = {
        {"three records of six", {1, 2, 3, 4, 5, 6, 1, 2, 3, 4, 5, 6, 1, 2, 3, 4, 5, 6}, 6, 3},
        {"a record cut short: 7 traces of 3 are 2", {1, 2, 3, 1, 2, 3, 1}, 3, 2},
        {"constant", {3, 3, 3, 3, 3, 3}, 0, -9},
        {"constant, but too short to tell", {3, 3, 3, 3}, 3, 1},
        {"four channels read as unknown", {1, 2, 3, 4, 1, 2, 3, 4}, 0, -9},
        {"numbers run on", {1, 2, 3, 4, 5, 6, 7}, 7, 1},
        {"starts above 1", {25, 26, 27, 25, 26, 27}, 27, 0},
        {"negative", {-5, -4, -3}, 0, -9},
        {"only the low 16 bits count", {65537, 65538, 65539, 65537}, 3, 1},
    };
    for (const Case& c : cases) {
        SuBuilder builder(static_cast<int>(c.Channels.size()), 4);
        for (std::size_t i = 0; i < c.Channels.size(); ++i)
            builder.Put32(static_cast<int>(i) + 1, 12, c.Channels[i]);
        Work.Record.NbRecords = -9;
        ASSERT_TRUE(Scan_Channels(Work, Write(builder)));
        EXPECT_EQ(Work.Record.ChannelsPerRecord, c.Found) << c.Name;
        EXPECT_EQ(Work.Record.NbRecords, c.Records) << c.Name;
        EXPECT_EQ(Work.Record.FirstTrace, 1);
        EXPECT_EQ(Work.Record.LastTrace, c.Found) << c.Name;
        EXPECT_EQ(Work.Record.Record, 1) << c.Name;
    }
}

TEST_F(SuLoading, ATrustedHeaderLoadsWithoutQuestions) {
    const SuBuilder builder = SuBuilder(12, 100).Records(6).Put16(1, 108, -40);
    const std::string path = Write(builder, "Ridge.SU");
    Work.Record.LastSample = 50;
    Work.Record.TwinSuFile = "other.su";
    Work.Grids.size_grid.Resize(2, 1);
    Work.Grids.size_grid.Set_Text(0, 0, "8");
    Work.Project.ProjectDir = "/data/";
    EXPECT_TRUE(Load(path));
    EXPECT_EQ(Outside.Prompts.FileRequests.at(0).Filter, "Seismic Unix (SU)|*.SU|All files|*.*|");
    EXPECT_EQ(Outside.Prompts.FileRequests.at(0).Directory, "/data/");
    EXPECT_EQ(Work.Project.SuFile, path);
    EXPECT_EQ(Work.Project.CurrentFile, Folder / "Ridge.TV5");
    EXPECT_EQ(Work.Record.TwinSuFile, "");
    EXPECT_EQ(Work.Record.RecordDelay, 40);
    EXPECT_EQ(Work.Record.NbRecords, 2);
    EXPECT_EQ(Work.Record.LastSample, 100);
    EXPECT_EQ(Work.Grids.size_grid.Text(0, 0), "");
    EXPECT_EQ(Outside.Display.Count("Display_Record"), 1);
    EXPECT_TRUE(Content_Of(path) == builder.Bytes);
}

TEST_F(SuLoading, NamesAreDerivedWithoutTouchingTheFolder) {
    std::filesystem::create_directory(Folder / "Lines.sub");
    const SuBuilder builder = SuBuilder(12, 10).Records(6);
    builder.Write(Folder / "Lines.sub/Hill.su");
    EXPECT_TRUE(Load(builder.Write(Folder / "Lines.sub/Hill_FLT.SU")));
    EXPECT_EQ(Work.Record.TwinSuFile, Folder / "Lines.sub/Hill.su");
    // Only the ending counts, whatever stands before it.
    EXPECT_TRUE(Load(Write(builder, "line.summer.su")));
    EXPECT_EQ(Work.Project.CurrentFile, Folder / "line.summer.TV5");
    // A file of another name keeps its own content when the project is saved.
    const std::string other = Write(builder, "Hill.sgy");
    EXPECT_TRUE(Load(other));
    EXPECT_EQ(Work.Project.CurrentFile, other + ".TV5");
}

TEST_F(SuLoading, AnUntrustedHeaderIsNumberedByHand) {
    const SuBuilder builder(7, 10);
    const std::string path = Write(builder);
    Numbering = Answer::Cancel;
    EXPECT_FALSE(Load(path, {"2", "3"}));
    Numbering = Answer::No;
    EXPECT_TRUE(Load(path, {"2", "3"}));
    EXPECT_EQ(Work.Record.ChannelsPerRecord, 3) << "as typed, whatever the headers tell";
    EXPECT_EQ(Work.Record.NbRecords, 2);
    EXPECT_TRUE(Content_Of(path) == builder.Bytes);
    Numbering = Answer::Yes;
    Outside.Prompts.InputDefaults.clear();
    EXPECT_TRUE(Load(path, {"2", "3"}));
    EXPECT_EQ(Outside.Prompts.InputDefaults, (std::vector<std::string>{"5", "4"}));  // 3.5, half to even
    SuBuilder meant(builder);
    for (int trace = 1; trace <= 7; ++trace) {
        meant.Put32(trace, 8, (trace - 1) / 3 + 1).Put32(trace, 12, (trace - 1) % 3 + 1);
    }
    EXPECT_TRUE(Content_Of(path) == meant.Bytes);
    EXPECT_EQ(Work.Record.ChannelsPerRecord, 3);
}

TEST_F(SuLoading, GivingUpLeavesFileAndStateAsTheyWere) {
    const SuBuilder builder(6, 10);
    const std::string path = Write(builder);
    Work.Project.SuFile = "former.su";
    Work.Project.CurrentFile = "former.tv5";
    Work.Record.NbTraces = 48;
    for (const std::string records : {"0", "", "abc", "-2"})
        EXPECT_FALSE(Load(path, {records})) << records;
    for (const std::string channels : {"0", "", "-1", "70000000"})
        EXPECT_FALSE(Load(path, {"20", channels})) << channels;
    EXPECT_FALSE(Load(""));
    EXPECT_EQ(Work.Project.SuFile, "former.su");
    EXPECT_EQ(Work.Project.CurrentFile, "former.tv5");
    EXPECT_EQ(Work.Record.NbTraces, 48);
    EXPECT_TRUE(Content_Of(path) == builder.Bytes);
    EXPECT_EQ(Outside.Display.Count("Display_Record"), 0);
}

TEST_F(SuLoading, ALongRecordingIsAskedAbout) {
    const std::string question =
        "The recording time > 0.5 sec, it is probably not necessary, modify in UTILITY ?";
    Outside.Prompts.Expect_File("Load ", Write(SuBuilder(12, 501).Records(6)));
    Outside.Prompts.Expect(question, Answer::No);
    EXPECT_TRUE(Load_SU_File(Work, Outside.Ports));
    // Yes leads to a shorter file, which can be loaded in the place of the one chosen.
    const std::string chosen = Write(SuBuilder(12, 501).Records(6), "long.su");
    const std::string made = Write(SuBuilder(12, 100).Records(3), "short.su");
    std::string answer;
    Work.Resize = [&](const std::string& path) {
        EXPECT_EQ(path, chosen);
        EXPECT_FALSE(Work.Edits.Is_Open());
        return answer;
    };
    const auto load = [&](const std::string& loads, Answer instead) {
        Outside.Prompts.Expect_File("Load ", chosen);
        Outside.Prompts.Expect(question, Answer::Yes);
        if (!answer.empty())
            Outside.Prompts.Expect_Start("Load " + made + " in the place of long.su ?", instead);
        EXPECT_EQ(Load_SU_File(Work, Outside.Ports), instead != Answer::Cancel);
        EXPECT_EQ(Work.Project.SuFile, loads);
    };
    load(chosen, Answer::No);
    answer = made;
    load(made, Answer::Yes);
    EXPECT_EQ(Work.Record.ChannelsPerRecord, 3);
    load(made, Answer::Cancel);
    load(chosen, Answer::No);
    // Exactly half a second is not long.
    EXPECT_TRUE(Load(Write(SuBuilder(12, 500).Records(6))));
}

TEST_F(SuLoading, PathsThatTheToolsDoNotStandAreRefused) {
    EXPECT_EQ(Path_Refusal("/data/a-b_1.su"), "");
    EXPECT_EQ(Path_Refusal("/a b.su"), "/a b.su contains invalid caracter * * ASCII:32");
    EXPECT_EQ(Path_Refusal("/h\xC3\xA9.su"), "/h\xC3\xA9.su contains invalid caracter *\xC3\xA9* ASCII:233");
    // Letters that become "?" in a project file are refused, and not read as a question mark.
    EXPECT_EQ(Path_Refusal("/\xE6\x97\xA5\xE6\x9C\xAC.su"),
              "/\xE6\x97\xA5\xE6\x9C\xAC.su contains invalid caracter *\xE6\x97\xA5* ASCII:63");
    EXPECT_EQ(Path_Refusal("/what?.su"), "");
    EXPECT_EQ(Path_Refusal(std::string(90, 'x')), "");
    EXPECT_EQ(Path_Refusal(std::string(91, 'x')), std::string(91, 'x') + " path is too long");

    const std::string refusal = "/a b.su contains invalid caracter * * ASCII:32";
    Outside.Prompts.Expect_File("Load ", "/a b.su");
    Outside.Prompts.Expect(refusal, Answer::Ok);
    Outside.Prompts.Expect(refusal, Answer::Yes);
    Outside.Prompts.Expect_File("Load ", "");
    EXPECT_FALSE(Load_SU_File(Work, Outside.Ports));
    EXPECT_EQ(Outside.Prompts.Messages.back().Title, "Search another SU file location ?) ");
}

TEST_F(SuLoading, AMissingFileIsLookedForAndTheProjectKeepsItsName) {
    Work.Project.SuFile = "/gone/line.su";
    Work.Project.CurrentFile = Folder / "A.tv5";
    Outside.Prompts.Expect(" Do you want to locate /gone/line.su", Answer::No);
    EXPECT_FALSE(Locate_SU_File(Work, Outside.Ports));
    const std::string path = Write(SuBuilder(12, 10).Records(6), "B.su");
    Outside.Prompts.Expect(" Do you want to locate /gone/line.su", Answer::Yes);
    Outside.Prompts.Expect_File("Load ", path);
    Offer_SU_File(Work, Outside.Ports);
    EXPECT_EQ(Work.Project.SuFile, path);
    EXPECT_EQ(Work.Project.CurrentFile, Folder / "A.tv5");
    EXPECT_EQ(Work.Record.ChannelsPerRecord, 6);
}

TEST_F(SuLoading, ANameWithoutFolderIsFoundBesideTheProjectAndStaysAsItIs) {
    Write(SuBuilder(12, 10).Records(6), "beside.su");
    Work.Project.SuFile = "beside.su";
    Work.Project.ProjectDir = Folder.Path + "/";
    Offer_SU_File(Work, Outside.Ports);
    EXPECT_EQ(Work.Project.SuFile, "beside.su");
    EXPECT_EQ(Su_Path(Work.Project), Folder / "beside.su");
    EXPECT_EQ(Work.Record.NbTraces, 12);
}

TEST_F(SuLoading, OnlyTheProjectsFolderCountsForANameWithoutFolder) {
    // A file of that name in the folder that the program runs in is a stranger's.
    const std::filesystem::path former = std::filesystem::current_path();
    std::filesystem::create_directory(Folder / "elsewhere");
    std::filesystem::create_directory(Folder / "project");
    SuBuilder(6, 10).Records(3).Write(Folder / "elsewhere/line.su");
    std::filesystem::current_path(Folder / "elsewhere");
    Work.Project.SuFile = "line.su";
    Work.Project.ProjectDir = Folder / "project/";
    EXPECT_EQ(Su_Path(Work.Project), Folder / "project/line.su");
    Outside.Prompts.Expect(" Do you want to locate line.su", Answer::No);
    Offer_SU_File(Work, Outside.Ports);
    EXPECT_EQ(Work.Record.NbTraces, 0);
    Write(SuBuilder(12, 10).Records(6), "project/line.su");
    Offer_SU_File(Work, Outside.Ports);
    EXPECT_EQ(Work.Record.NbTraces, 12);
    std::filesystem::current_path(former);
}

TEST_F(SuLoading, LoadingIsAnEditAndNumbersTheTracesInIt) {
    const SuBuilder builder(6, 10);
    const std::string path = Write(builder);
    Work.Project.SuFile = "former.su";
    Work.Edits.Start(Work.Project, true);
    Numbering = Answer::Yes;
    EXPECT_TRUE(Load(path, {"2", "3"}));
    EXPECT_EQ(Work.Edits.Done(), 1U);
    EXPECT_EQ(Work.Edits.Undo_Name(), "Load line.su");
    EXPECT_EQ(Work.Edits.Undo(Work.Project), "");
    EXPECT_EQ(Work.Project.SuFile, "former.su");
    EXPECT_TRUE(Content_Of(path) == builder.Bytes);
}

TEST_F(SuLoading, PicksGoFromTheTableToTheHeadersAndBack) {
    Work.Project.NbShots = 2;
    Work.Project.NbReceivers = 3;
    Redimension_Project(Work.Project);
    const float times[2][3] = {{12.34F, 0, 3276.8F}, {0.05F, 7, 8.5F}};
    for (int shot = 1; shot <= 2; ++shot)
        for (int receiver = 1; receiver <= 3; ++receiver)
            Work.Project.ShotTimes(shot, receiver) = times[shot - 1][receiver - 1];
    const SuBuilder builder = SuBuilder(6, 4).Records(3).Put16(2, 222, 55).Put16(3, 222, 66);
    Work.Project.SuFile = Write(builder);
    Offer_SU_File(Work, Outside.Ports);
    Work.Edits.Start(Work.Project, true);
    Grid_2_SU(Work, Outside.Ports);
    SuBuilder meant(builder);
    // 12.34 ms is 123 tenths; an empty cell is 0; too late a time leaves the word; 0.05 ms rounds to even.
    meant.Put16(1, 222, 123).Put16(2, 222, 0).Put16(4, 222, 0).Put16(5, 222, 70).Put16(6, 222, 85);
    EXPECT_TRUE(Content_Of(Work.Project.SuFile) == meant.Bytes);

    SuBuilder shorter(meant);
    shorter.Bytes.resize(shorter.Bytes.size() - 200);  // the last trace is gone
    shorter.Write(Work.Project.SuFile);
    const std::string question = "FBP values of the grid will be replaced by FBP from SU Header";
    Outside.Prompts.Expect(question, Answer::Cancel);
    Load_FBP_From_SU_Header(Work, Outside.Ports);
    EXPECT_EQ(Work.Project.ShotTimes(1, 1), 12.34F);
    Outside.Prompts.Expect(question, Answer::Ok);
    Load_FBP_From_SU_Header(Work, Outside.Ports);
    EXPECT_EQ(Work.Project.ShotTimes(1, 1), 12.3F);
    EXPECT_EQ(Work.Project.ShotTimes(1, 3), 6.6F);
    EXPECT_EQ(Work.Project.ShotTimes(2, 3), 8.5F);

    // Both ways are one edit each.
    ASSERT_EQ(Work.Edits.Done(), 2U);
    EXPECT_EQ(Work.Edits.Undo(Work.Project), "");
    EXPECT_EQ(Work.Project.ShotTimes(1, 1), 12.34F);
    meant.Write(Work.Project.SuFile);
    EXPECT_EQ(Work.Edits.Undo(Work.Project), "");
    EXPECT_TRUE(Content_Of(Work.Project.SuFile) == builder.Bytes);
}

TEST_F(SuLoading, WildFilesEndWithoutHarm) {
    const std::string text(5000, 'a');  // a text file: ns and dt are letters
    for (const int ns : {0, -1, -60, -61, -32768, 32767}) {
        SuBuilder builder(3, 100);
        builder.Put16(1, 114, ns);
        const std::string path = Write(builder);
        EXPECT_TRUE(Scan_Channels(Work, path));
        SuTraces file(path);
        for (int word = 1; word <= header_words; ++word)
            file.Word(3, word);
    }
    SuBuilder builder(1, 0);
    for (const std::string& bytes : {std::string(), text.substr(0, 239), text}) {
        builder.Bytes = bytes;
        EXPECT_TRUE(Scan_Channels(Work, Write(builder)));
    }
}

}  // namespace
}  // namespace tarnvik::test
