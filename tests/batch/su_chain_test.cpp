#include "batch_fixture.h"
#include "records/su_file.h"
#include "support/su_builder.h"

namespace tarnvik::test {
namespace {

/// Three records of four channels, 10 samples of 0.5 ms.
class SuChain : public Batch {
  protected:
    std::string Records() {
        SuBuilder builder(12, 10, 500);
        builder.Records(4);
        for (int trace = 1; trace <= 12; ++trace) {
            for (int sample = 1; sample <= 10; ++sample)
                builder.Sample(trace, sample, static_cast<float>(10 * trace + sample));
        }
        return builder.Write(Folder / "in.su");
    }
    std::vector<float> Samples(const std::string& path, int trace) {
        std::vector<float> samples(10);
        SuTraces(path).Samples(trace, samples);
        return samples;
    }
};

TEST_F(SuChain, writes_each_kind_of_file_by_the_tools_beside_the_program) {
    const std::string in = Records();
    const std::string before = Content_Of(in);
    const std::string out = Folder / "out.su";
    // Records of four channels are not found by their channel words.
    Outcome done = Run("su-stack " + in + " --first 3 --last 2 --channels 4 --json --out " + out);
    ASSERT_EQ(done.Status, 0) << done.Errors;
    EXPECT_EQ(done.Json()["file"], out);
    EXPECT_TRUE(done.Json()["messages"].empty());
    EXPECT_EQ(SuTraces(out).Nb_Traces(), 8);
    EXPECT_EQ(Samples(out, 5)[0], (51 + 91) / 2.0F);
    EXPECT_EQ(SuTraces(out).Word(8, words::fldr), 2);

    EXPECT_EQ(Run("su-window " + in + " --extract 2:3 --out " + out).Status, 1) << "it exists";
    ASSERT_EQ(Run("su-window " + in + " --extract 2:3 --yes --out " + out).Status, 0);
    EXPECT_EQ(SuTraces(out).Nb_Traces(), 6);
    EXPECT_EQ(SuTraces(out).Word(3, words::tracf), 1);
    ASSERT_EQ(Run("su-window " + in + " --key fldr --min 2 --max 2 --yes --out " + out).Status, 0);
    EXPECT_EQ(Samples(out, 1)[0], 51);
    ASSERT_EQ(Run("su-window " + in + " --tmax 2 --yes --out " + out).Status, 0);
    EXPECT_EQ(SuTraces(out).Nb_Samples(), 5);
    ASSERT_EQ(Run("su-resample " + in + " --nt 5 --dt 1000 --yes --out " + out).Status, 0);
    EXPECT_EQ(SuTraces(out).Sample_Interval(), 1000);

    done = Run("su-shift " + in + " --shift=-1 --traces 2:3 --json --yes --out " + out);
    EXPECT_EQ(done.Json()["ShiftSamples"], -2);
    EXPECT_EQ(done.Json()["traces"], 2);
    EXPECT_EQ(done.Json()["messages"].size(), 1U) << "signal was pushed out";
    EXPECT_EQ(Samples(out, 2)[0], 23);
    EXPECT_EQ(Samples(out, 2)[9], 0);
    EXPECT_EQ(Samples(out, 1)[0], 11);
    EXPECT_EQ(Content_Of(in), before);
}

TEST_F(SuChain, a_refused_command_leaves_no_file) {
    const std::string in = Records();
    const std::string out = Folder / "out.su";
    for (const std::string& arguments : std::vector<std::string>{
             "su-window " + in + " --key fldr --min 8 --max 9",
             "su-window " + in + " --key nonsense --min 1 --max 2", "su-window " + in + " --extract 7:9",
             "su-window " + in + " --drop-record 99", "su-stack " + in + " --first 0 --last 2 --channels 4",
             "su-stack " + in + " --first 1 --last 9", "su-shift " + in + " --shift=1 --trace 13",
             "su-resample " + (Folder / "none.su") + " --nt 5 --dt 1000"}) {
        const Outcome refused = Run(arguments + " --json --out " + out);
        EXPECT_EQ(refused.Status, 1) << arguments;
        EXPECT_FALSE(refused.Json()["messages"].empty()) << arguments << refused.Errors;
        EXPECT_FALSE(File_Exists(out)) << arguments;
    }
    EXPECT_EQ(Run("su-window " + in + " --out " + out).Status, 2);
    EXPECT_EQ(Run("su-shift " + in + " --shift=1 --out " + out).Status, 2);
    EXPECT_EQ(Run("su-window " + in + " --extract 1:2 --yes --out " + in).Status, 1);
}

}  // namespace
}  // namespace tarnvik::test
