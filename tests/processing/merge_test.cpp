// Several SU files as one: order, numbers, lengths, and what is refused.

#include <gtest/gtest.h>

#include "core/files.h"
#include "processing/merge_file.h"
#include "support/su_builder.h"
#include "support/test_ports.h"
#include "traces_support.h"

namespace tarnvik::test {
namespace {

constexpr int pick_offset = 228;

class Merging : public testing::Test {
  protected:
    /// Records of three channels whose samples tell file, trace and sample.
    std::string Write(const std::string& name, int mark, int traces, int samples, int interval = 500) {
        SuBuilder file(traces, samples, interval);
        file.Records(3);
        for (int trace = 1; trace <= traces; ++trace) {
            for (int sample = 1; sample <= samples; ++sample)
                file.Sample(trace, sample, static_cast<float>(mark * 1000 + trace * 100 + sample));
        }
        return file.Write(Folder / name);
    }
    std::string Out() const { return Read_File(Dialog.Out).value_or(""); }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (int row = 1; row < Dialog.Files.Rows(); ++row)
            names.push_back(Dialog.Files.Text(row, 1));
        return names;
    }

    TemporaryFolder Folder;
    TestPorts Outside;
    MergeFile Dialog{Outside.Ports, "Merge"};
};

TEST_F(Merging, files_stand_behind_each_other_as_the_table_shows) {
    const std::string second = Write("shot10.su", 2, 3, 40);
    const std::string first = Write("Shot2.su", 1, 6, 40);
    const std::string before = *Read_File(first);
    Dialog.Add({second, first, second});
    EXPECT_EQ(Names(), (std::vector<std::string>{"shot10.su", "Shot2.su"}));
    Dialog.Sort_By_Name();
    EXPECT_EQ(Names(), (std::vector<std::string>{"Shot2.su", "shot10.su"}));
    Dialog.FirstRecord = "5";
    Dialog.Changed();
    EXPECT_EQ(Dialog.Files.Text(1, 8), "1 - 2");
    EXPECT_EQ(Dialog.Files.Text(1, 9), "5 - 6");
    EXPECT_EQ(Dialog.Files.Text(2, 9), "7");
    EXPECT_EQ(Dialog.Hint, "9 traces of 40 samples in 3 records");
    Dialog.Merge();
    EXPECT_EQ(Outside.Prompts.Last_Text(), Dialog.Out + " has been recorded, 9 traces of 2 files");
    EXPECT_EQ(Values_Of(Out(), "fldr"), (std::vector<double>{5, 5, 5, 6, 6, 6, 7, 7, 7}));
    EXPECT_EQ(Values_Of(Out(), "tracf"), (std::vector<double>{1, 2, 3, 1, 2, 3, 1, 2, 3}));
    EXPECT_EQ(Samples_Of(Out(), 3)[39], 1440);
    EXPECT_EQ(Samples_Of(Out(), 8)[0], 2301);
    EXPECT_EQ(Read_File(first), before);

    // All else of a file is taken over byte for byte.
    Dialog.NumberAnew = false;
    Dialog.Row = 2;
    Dialog.Move_Up();
    EXPECT_NE(Dialog.Hint.find("Record numbers of Shot2.su stand in a file before it too"),
              std::string::npos);
    Outside.Prompts.Expect(Dialog.Out + " already exists, overwrite ?", Answer::Yes);
    Dialog.Merge();
    EXPECT_EQ(Out(), *Read_File(second) + before);
}

TEST_F(Merging, traces_of_other_lengths_are_cut_or_filled_up_and_a_cut_end_is_left_out) {
    const std::string longer = Write("a.su", 1, 3, 50);
    const std::string shorter = Write("b.su", 2, 3, 30);
    Replace_File(shorter, *Read_File(shorter) + std::string(100, 'x'));
    Dialog.Add({longer, shorter});
    EXPECT_NE(Dialog.Hint.find("cut to 30 samples"), std::string::npos);
    EXPECT_NE(Dialog.Hint.find("b.su: 100 bytes behind the last whole trace"), std::string::npos);
    Dialog.Merge();
    EXPECT_EQ(Traces_Of(Out()).size(), 6U);
    EXPECT_EQ(Values_Of(Out(), "ns"), std::vector<double>(6, 30));
    EXPECT_EQ(Samples_Of(Out(), 0).back(), 1130);

    Dialog.Length = 1;
    Outside.Prompts.Expect(Dialog.Out + " already exists, overwrite ?", Answer::Yes);
    Dialog.Merge();
    EXPECT_EQ(Values_Of(Out(), "ns"), std::vector<double>(6, 50));
    EXPECT_EQ(Samples_Of(Out(), 3)[29], 2130);
    EXPECT_EQ(Samples_Of(Out(), 3)[30], 0);
}

TEST_F(Merging, what_does_not_go_together_is_refused_and_leaves_the_target) {
    const std::string good = Write("a.su", 1, 3, 40);
    Dialog.Add({good});
    const std::string other = Write("b.su", 2, 3, 40, 250);
    Dialog.Add({other});
    EXPECT_FALSE(Dialog.Ready());
    EXPECT_NE(Dialog.Hint.find("a.su is sampled at 0.5 ms, b.su at 0.25 ms"), std::string::npos);
    Dialog.Row = 2;
    Dialog.Remove();
    EXPECT_TRUE(Dialog.Ready());

    Replace_File(Folder / "text.su", "no traces at all\n");
    Dialog.Add({Folder / "text.su"});
    EXPECT_FALSE(Dialog.Ready());
    EXPECT_NE(Dialog.Hint.find("text.su"), std::string::npos);
    Dialog.Remove();
    Dialog.Row = static_cast<int>(Names().size());
    Dialog.Remove();

    Dialog.Add({good});
    Dialog.Out = good;
    const std::string before = *Read_File(good);
    Outside.Prompts.Expect(good + " already exists, overwrite ?", Answer::Yes);
    Dialog.Merge();
    EXPECT_NE(Outside.Prompts.Last_Text().find("is one of the files that are merged"), std::string::npos);
    EXPECT_EQ(Read_File(good), before);

    Dialog.Out = Folder / "out.su";
    Dialog.FirstRecord = "0";
    Dialog.Changed();
    EXPECT_FALSE(Dialog.Ready());
    Dialog.FirstRecord = "1";
    Dialog.Changed();
    Replace_File(Dialog.Out, "former");
    Outside.Prompts.Expect(Dialog.Out + " already exists, overwrite ?", Answer::Yes);
    Dialog.Merge([](std::int64_t, std::int64_t) { return false; });  // stopped
    EXPECT_EQ(Read_File(Dialog.Out), "former");
}

TEST_F(Merging, picks_go_along_and_records_without_channel_numbers_are_told_by_their_own) {
    SuBuilder file(4, 20, 500);
    for (int trace = 1; trace <= 4; ++trace)
        file.Put32(trace, 8, trace < 3 ? 7 : 9).Put16(trace, 28, 1);
    file.Put_Float(2, pick_offset, 12);
    const std::string path = file.Write(Folder / "plain.su");
    Dialog.Add({path, Write("b.su", 1, 3, 20)});
    EXPECT_EQ(Dialog.Files.Text(1, 3), "2");
    Dialog.Merge();
    EXPECT_EQ(Values_Of(Out(), "fldr"), (std::vector<double>{1, 1, 2, 2, 3, 3, 3}));
    EXPECT_EQ(Out().substr(264 + 56 + pick_offset, 4), file.Bytes.substr(264 + 56 + pick_offset, 4));
}

}  // namespace
}  // namespace tarnvik::test
