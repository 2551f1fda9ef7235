// The header editor on real files: what it writes, what it refuses, and that an undo gives the first bytes
// back.

#include "processing/header_editor.h"

#include <gtest/gtest.h>

#include "core/files.h"
#include "records/su_file.h"
#include "support/su_builder.h"
#include "support/test_ports.h"

namespace tarnvik::test {
namespace {

constexpr int traces = 12;
constexpr int channels = 4;
constexpr int ns = 5;
constexpr int cdp = 6;  // a word without a meaning here

SuBuilder Small_File(int samples = ns) {
    SuBuilder file(traces, samples);
    file.Records(channels);
    for (int trace = 1; trace <= traces; ++trace)
        for (int sample = 1; sample <= samples; ++sample)
            file.Sample(trace, sample, static_cast<float>(trace * 100 + sample));
    return file;
}

class HeaderEditor : public testing::Test {
  protected:
    HeaderEditor() {
        Editor.Load();
        Open(Path);
    }
    void Open(const std::string& path) {
        Editor.Texth1 = path;
        Editor.File_Typed();
    }
    std::vector<double> Words(int word, const std::string& path) const {
        std::vector<double> values;
        SuTraces file(path);
        for (int trace = 1; trace <= file.Nb_Traces(); ++trace)
            values.push_back(file.Word_Or_Zero(trace, word));
        return values;
    }
    std::vector<double> Words(int word) const { return Words(word, Path); }
    std::string Bytes() const { return Content_Of(Path); }
    /// The history has as many edits, and without them the file is as it was.
    void Expect_Edits_Taken_Back(std::size_t count) {
        EXPECT_EQ(Work.Edits.All().size(), count);
        EXPECT_EQ(Work.Edits.Go_To(Work.Project, 0), "");
        EXPECT_TRUE(Bytes() == First);
        EXPECT_EQ(Work.Edits.Go_To(Work.Project, count), "");
    }
    std::string Told(const std::function<void()>& act) {
        Ports.Prompts.Messages.clear();
        act();
        return Ports.Prompts.Last_Text();
    }

    TemporaryFolder Folder;
    const std::string Path = Small_File().Write(Folder / "line.su");
    const std::string First = Content_Of(Path);
    TestPorts Ports;
    Workspace Work;
    Header Editor{Work, Ports.Ports};
};

TEST_F(HeaderEditor, typed_and_pasted_cells_are_edits) {
    EXPECT_EQ(Editor.FlexArray.Rows(), traces + 1);
    EXPECT_EQ(Editor.FlexArray.Text(0, 0), "Trace Nb");
    EXPECT_EQ(Editor.FlexArray.Text(0, 86), "First breaks");
    EXPECT_TRUE(Editor.Type(5, words::ep, "-77"));
    EXPECT_EQ(Words(words::ep)[4], -77);
    EXPECT_EQ(Editor.FlexArray.Text(5, words::ep), "-77");
    EXPECT_TRUE(Editor.Changed(5, words::ep));
    EXPECT_FALSE(Editor.Changed(4, words::ep));
    EXPECT_EQ(Work.Edits.Undo_Name(), "Header word ep of trace 5, line.su");

    // A whole number goes into a float word as its bytes.
    EXPECT_TRUE(Editor.Type(2, 73, "3"));
    EXPECT_EQ(Editor.FlexArray.Text(2, 73), "4.203895E-45");
    EXPECT_TRUE(Editor.Type(2, 73, "4.203895E-45")) << "what the cell shows is no new value";
    EXPECT_FALSE(Editor.Type(2, 74, "2.5"));

    EXPECT_TRUE(Editor.Paste(3, words::wevel, {{"800", "2100"}, {" 900 ", ""}}));
    EXPECT_EQ(Words(words::wevel)[3], 900);
    EXPECT_EQ(Words(words::swevel)[2], 2100);
    Expect_Edits_Taken_Back(3);

    const std::string before = Bytes();
    EXPECT_FALSE(Editor.Paste(3, words::wevel, {{"1", "2"}, {"3", "32768"}})) << "all or nothing";
    EXPECT_EQ(Editor.Hint, "Trace 4, swevel: 32768 does not fit, only -32768 to 32767; nothing was pasted");
    EXPECT_FALSE(Editor.Type(1, words::trid, "40000"));
    EXPECT_FALSE(Editor.Type(1, words::sx, "2147483648"));
    EXPECT_TRUE(Bytes() == before);
    EXPECT_EQ(Editor.FlexArray.Text(4, words::swevel), "0");
    EXPECT_TRUE(Editor.Paste(traces, 90, {{"5", "6"}, {"7"}}));
    EXPECT_EQ(Editor.Hint, "2 of the cells reach beyond the grid and were left out");
    Editor.Clear(3, words::wevel, 4, words::swevel);
    EXPECT_EQ(Words(words::wevel)[3], 0);
    Expect_Edits_Taken_Back(5);
}

TEST_F(HeaderEditor, grid_holds_120_traces_and_follows_an_undo) {
    SuBuilder(300, 2).Records(50).Write(Folder / "long.su");
    Open(Folder / "long.su");
    EXPECT_EQ(Editor.FlexArray.Rows(), 121);
    EXPECT_FALSE(Editor.Has_Previous());
    Editor.Texth2 = "100";
    Editor.Texth3 = "290";
    Editor.Commandh1();
    EXPECT_EQ(Editor.Texth3, "219");
    EXPECT_EQ(Editor.FlexArray.Text(120, 0), "219");
    Editor.Command17();
    EXPECT_EQ(Editor.Texth2, "220");
    EXPECT_EQ(Editor.FlexArray.Rows(), 82);
    EXPECT_FALSE(Editor.Has_Next());
    Editor.Command16();
    EXPECT_EQ(Editor.FlexArray.Text(1, 0), "100");

    Work.Edits.On_Change = [this](const ChangeNotice& notice) { Editor.Follow(notice); };
    Editor.Type(1, cdp, "8");
    EXPECT_EQ(Work.Edits.Undo(Work.Project), "");
    EXPECT_EQ(Editor.FlexArray.Text(1, cdp), "0");
    EXPECT_FALSE(Editor.Changed(1, cdp));
    EXPECT_EQ(Work.Edits.Redo(Work.Project), "");
    EXPECT_TRUE(Editor.Changed(1, cdp));
    EXPECT_TRUE(Work.Edits.Is_Saved()) << "no line is in memory";
}

TEST_F(HeaderEditor, each_way_of_a_change_writes_its_values) {
    ASSERT_EQ(Replace_File(Folder / "values.txt",
                           "10\r\n20\r\n30\r\n40\r\n50\r\n60\r\n70\r\n80\r\n90\r\n100\r\n\r\n"),
              "");
    struct Row {
        ChangeWay Way;
        std::vector<double> Values;  ///< on traces 3 to 10, four channels a record
    };
    const std::vector<Row> rows = {
        {ChangeWay::Constant, {7, 7, 7, 7, 7, 7, 7, 7}},
        {ChangeWay::Multiply, {-10, -10, -10, -10, -10, -10, -10, -10}},  // 7 * -1.5, halves to even
        {ChangeWay::Increment, {100, 98, 96, 94, 92, 90, 88, 86}},
        {ChangeWay::Channels, {3, 4, 1, 2, 3, 4, 1, 2}},
        {ChangeWay::ValueByTrace, {10, 20, 30, 40, 50, 60, 70, 80}},
        {ChangeWay::ValueByShot, {10, 10, 20, 20, 20, 20, 30, 30}},
        {ChangeWay::ValueByReceiver, {30, 40, 30, 40, 50, 60, 50, 60}},
    };
    Editor.Combo1 = words::sdepth - 1;
    Editor.Text2 = "3";
    Editor.Text3 = "10";
    Editor.Text4 = "7";
    Editor.Text9 = "-1.5";
    Editor.Text7 = "100";
    Editor.Text10 = "-2";
    Editor.Text6 = "4";
    Editor.Text8 = "2";
    Editor.Text5 = Folder / "values.txt";
    for (const Row& row : rows) {
        Editor.Way = static_cast<int>(row.Way);
        EXPECT_EQ(Told([&] { Editor.Command1(); }), "OK, Header has been updated in " + Path);
        std::vector<double> expected(traces, 0);
        std::copy(row.Values.begin(), row.Values.end(), expected.begin() + 2);
        EXPECT_EQ(Words(words::sdepth), expected) << "way " << Editor.Way;
    }
    for (const std::int64_t byte : Changed_Bytes(First, Bytes()))
        EXPECT_EQ(byte % Trace_Length(ns) / 4, Header_Word(words::sdepth).Offset / 4);
    Expect_Edits_Taken_Back(rows.size());

    // The same into 16 bits: a value without room leaves all traces as they are.
    const std::string before = Bytes();
    Editor.Combo1 = words::trid - 1;
    Editor.Way = static_cast<int>(ChangeWay::Multiply);
    Editor.Text9 = "32768";
    EXPECT_EQ(
        Told([&] { Editor.Command1(); }),
        "Something wrong happens, Error n°6\r\ncheck the header !\r\n\r\nTrace 3: the value does not fit "
        "trid, only -32768 to 32767. The headers are as they were.");
    Editor.Way = static_cast<int>(ChangeWay::ValueByReceiver);
    Editor.Text8 = "5";
    EXPECT_NE(Told([&] { Editor.Command1(); }).find("values.txt has 10 lines, 12 are needed"),
              std::string::npos);
    Replace_File(Folder / "values.txt", "1\n\n3\n");
    EXPECT_NE(Told([&] { Editor.Command1(); }).find("line 2 is no number"), std::string::npos);
    EXPECT_TRUE(Bytes() == before);
}

TEST_F(HeaderEditor, a_change_of_a_word_is_checked_in_this_order) {
    const auto says = [this] { return Told([this] { Editor.Command1(); }); };
    Open("");
    EXPECT_EQ(says(), "File name missing");
    Open(Folder / "none.su");
    EXPECT_EQ(says(), Folder / "none.su" + " does not exist !");
    Replace_File(Folder / "empty.su", "");
    Open(Folder / "empty.su");
    EXPECT_EQ(says(), Folder / "empty.su" + " is empty !");
    Open(Path);
    Editor.Way = static_cast<int>(ChangeWay::ValueByShot);
    Editor.Text2 = Editor.Text3 = "4";
    EXPECT_EQ(says(), "Same trace...");
    Editor.Text3 = "3";
    EXPECT_EQ(says(), "First trace must be < Last trace..");
    Editor.Text3 = "99";
    EXPECT_EQ(says(), "Number of channel required");
    EXPECT_EQ(Editor.Text3, "12") << "cut to the traces of the file";
    Editor.Way = static_cast<int>(ChangeWay::ValueByTrace);
    EXPECT_EQ(says(), "No file selected ");
    Editor.Way = static_cast<int>(ChangeWay::ValueByShot);
    Editor.Text6 = "4";
    EXPECT_EQ(says(), "You must select a word to change");
    Editor.Combo1 = 0;
    EXPECT_EQ(says(), "You must select a data file");
    Editor.Text5 = Folder / "none.txt";
    EXPECT_EQ(says(), Folder / "none.txt" + " does not exist !");
    Editor.Way = static_cast<int>(ChangeWay::Constant);
    EXPECT_EQ(says(), "Value to write: \"\" is no number");
    EXPECT_TRUE(Bytes() == First);
}

TEST_F(HeaderEditor, important_words_are_numbered) {
    ScriptedPrompts& ask = Ports.Prompts;
    ask.Expect("Would you update header values with trace numbers 1 to 12", Answer::Yes);
    std::vector<std::string> told;
    EXPECT_EQ(Told([&] {
                  Editor.Check10([&](std::int64_t, std::int64_t) {
                      told.push_back(Editor.Status);
                      return true;
                  });
              }),
              "The trace number has been updated");
    EXPECT_EQ(told.front(), "Processing trace 0 of 12");
    for (const int word : {words::tracl, words::tracr, words::tracf})
        EXPECT_EQ(Words(word), (std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));

    ask.Expect("This module will update the trace sequence number within original field record.", Answer::Ok);
    ask.Expect_Input("Enter the number of channels per record", "5");
    ask.Expect("Would you update header values with channel numbers", Answer::Yes);
    EXPECT_EQ(Told([&] { Editor.Check8(); }), "Number of channel per shot has been updated");
    for (const int word : {words::tracl, words::tracr, words::tracf})
        EXPECT_EQ(Words(word), (std::vector<double>{1, 2, 3, 4, 5, 1, 2, 3, 4, 5, 1, 2}));

    ask.Expect("This module will update field number record. One record has 5 traces.", Answer::Ok);
    ask.Expect_Input("Enter the first field number", "101");
    ask.Expect("Would you update the FLDR, first number is 101", Answer::Yes);
    EXPECT_EQ(Told([&] { Editor.Check9(); }), "Record field number has been updated");
    EXPECT_EQ(Words(words::fldr),
              (std::vector<double>{101, 101, 101, 101, 101, 102, 102, 102, 102, 102, 103, 103}));

    const auto velocities = [&](const char* second) {
        ask.Expect("Would you update header word WEVEL and SWEVEL of " + Path, Answer::Yes);
        ask.Expect_Input("Enter the Weathering velocity (m/s or ft/s)", "600");
        ask.Expect_Input("Enter the Sub Weathering velocity (m/s or ft/s)", second);
        return Told([&] { Editor.Update_Velocities(); });
    };
    EXPECT_EQ(velocities("1800"), "Header updated with WEVEL and SWEVEL in " + Path);
    EXPECT_EQ(ask.InputDefaults.back(), "2000");
    EXPECT_EQ(Words(words::swevel), std::vector<double>(traces, 1800));
    Expect_Edits_Taken_Back(4);

    const std::string before = Bytes();
    EXPECT_TRUE(velocities("40000").starts_with("Something wrong happens, Error n°6"));
    EXPECT_TRUE(Bytes() == before);
    std::filesystem::remove(Path);
    EXPECT_EQ(Told([&] { Editor.Check9(); }), Path + " does not exists");
}

TEST_F(HeaderEditor, work_that_is_stopped_or_fails_leaves_the_file_as_it_was) {
    const std::string path = SuBuilder(4500, 1).Records(50).Write(Folder / "long.su");
    const std::string before = Content_Of(path);
    Open(path);
    bool half_done = false;
    Ports.Prompts.Expect_Start("Would you update header values with trace numbers", Answer::Yes);
    Editor.Check10([&](std::int64_t done, std::int64_t all) {
        EXPECT_EQ(all, 4500);
        half_done = done > 0 && Content_Of(path) != before;
        return done == 0;
    });
    EXPECT_TRUE(half_done);
    EXPECT_EQ(Editor.Hint, "Stopped: the headers are as they were");
    EXPECT_TRUE(Content_Of(path) == before);

    // The file becomes shorter while it is worked on.
    Ports.Prompts.Expect_Start("Would you update header values with trace numbers", Answer::Yes);
    EXPECT_TRUE(Told([&] {
                    Editor.Check10([&](std::int64_t done, std::int64_t) {
                        if (done == 2000) std::filesystem::resize_file(path, 3000 * 244);
                        return true;
                    });
                }).starts_with("Something wrong happens, Error n°57"));
    EXPECT_TRUE(Content_Of(path) == before.substr(0, 3000 * 244));
    EXPECT_TRUE(Work.Edits.All().empty());
}

TEST_F(HeaderEditor, copies_go_by_the_length_of_each_file) {
    const std::string input = Folder / "input.SU";
    SuBuilder source = Small_File(9);
    for (int trace = 1; trace <= traces; ++trace)
        source.Put16(trace, 222, 10 * trace)
            .Put_Float(trace, 184, 0.5F * static_cast<float>(trace))
            .Put32(trace, 236, 9);
    source.Write(input);
    const std::string input_bytes = Content_Of(input);
    Editor.Textc1 = input;
    Editor.Textc2 = Path;
    EXPECT_TRUE(Told([&] {
                    Editor.Commandc1();
                }).starts_with("The Copy_Header has been copied from " + input + " to " + Path));
    std::string expected = First;
    for (int trace = 1; trace <= traces; ++trace) {
        const auto to = static_cast<std::size_t>(Trace_Position(trace, ns));
        expected.replace(to, 240, input_bytes, static_cast<std::size_t>(Trace_Position(trace, 9)), 240);
        // The output would be unreadable with the `ns` of the input.
        expected.replace(to + 114, 2, First, to + 114, 2);
    }
    EXPECT_TRUE(Bytes() == expected);
    EXPECT_EQ(Work.Edits.Undo(Work.Project), "");
    EXPECT_TRUE(Bytes() == First);

    Editor.WholeHeader = false;
    EXPECT_EQ(Told([&] { Editor.Commandc1(); }), "You must select a word to change");
    Editor.Comboc1 = 73 - 1;
    Editor.Checkc1 = true;
    EXPECT_EQ(Told([&] { Editor.Commandc1(); }), "Finished");
    EXPECT_EQ(Words(73)[4], 2.5);
    EXPECT_TRUE(Content_Of(Folder / "input_val.txt").starts_with("0.5\r\n1\r\n1.5\r\n"));
    Expect_Edits_Taken_Back(1);
    EXPECT_TRUE(Content_Of(input) == input_bytes);

    const auto refused = [&](const std::string& from, const std::string& to) {
        Editor.Textc1 = from;
        Editor.Textc2 = to;
        return Told([&] { Editor.Commandc1(); });
    };
    const std::string other = SuBuilder(traces + 1, ns).Records(channels).Write(Folder / "other.su");
    Replace_File(Folder / "empty.su", "");
    EXPECT_EQ(refused(Path, other), "Your files don't have the same trace number");
    EXPECT_EQ(refused(Path, Folder.Path + "/./line.su"), "Impossible, same file");
    Editor.WholeHeader = true;
    EXPECT_EQ(refused(Path, other), "The two files must have the same trace number...");
    EXPECT_EQ(refused(Path, Path), "Impossible, same file....");
    EXPECT_EQ(refused(Path, Folder / "none.su"), Folder / "none.su" + " does not exists !");
    EXPECT_EQ(refused(Path, Folder / "empty.su"), "Output file is empty !");
    EXPECT_EQ(refused(Folder / "empty.su", Path), Folder / "empty.su" + " is empty !");
}

}  // namespace
}  // namespace tarnvik::test
