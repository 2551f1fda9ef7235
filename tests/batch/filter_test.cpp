#include <algorithm>
#include <cmath>

#include "batch_fixture.h"
#include "records/su_file.h"
#include "support/su_builder.h"

namespace tarnvik::test {
namespace {

double Largest_Sample(const std::string& path, int trace) {
    SuTraces file(path);
    std::vector<float> samples(static_cast<std::size_t>(file.Nb_Samples()));
    file.Samples(trace, samples);
    float largest = 0;
    for (const float value : samples)
        largest = std::max(largest, std::abs(value));
    return largest;
}

TEST_F(Batch, su_filter_filters_the_traces_told_and_keeps_the_picks) {
    SuBuilder builder(6, 800, 250);
    builder.Records(3);
    for (int trace = 1; trace <= 6; ++trace) {
        for (int sample = 1; sample <= 800; ++sample) {
            const double angle = 2 * 3.14159265358979 * sample * 250e-6;
            builder.Sample(trace, sample,
                           static_cast<float>(70 + 10 * std::sin(50 * angle) + 4 * std::sin(100 * angle)));
        }
        builder.Put16(trace, 222, 123);
    }
    const std::string in = builder.Write(Folder / "in.su");
    const std::string out = Folder / "out.su";
    Outcome done =
        Run("su-filter " + in + " --notch 50 --harmonics 1 --remove-mean --traces 2:5 --json --out " + out);
    ASSERT_EQ(done.Status, 0) << done.Errors;
    EXPECT_EQ(done.Json()["file"], out);
    EXPECT_EQ(done.Json()["traces"], 4);
    EXPECT_GT(Largest_Sample(out, 1), 80);
    EXPECT_LT(Largest_Sample(out, 2), 0.01);
    EXPECT_LT(Largest_Sample(out, 5), 0.01);
    EXPECT_GT(Largest_Sample(out, 6), 80);
    EXPECT_EQ(SuTraces(out).Pick_Ms(2), 12.3);

    EXPECT_EQ(Run("su-filter " + in + " --balance --out " + out).Status, 1) << "it exists";
    done = Run(
        "su-filter " + in +
        " --band-pass 20,40,60,80 --agc 20 --mute=100 --balance --reverse --remove-drift --yes --out " + out);
    ASSERT_EQ(done.Status, 0) << done.Errors;
    SuTraces filtered(out);
    EXPECT_EQ(filtered.Sample(1, 401), 0);
    // The top of the swing, upside down, well behind the mute; a period earlier the same.
    const double size = filtered.Sample(1, 740).value_or(0);
    EXPECT_LT(size, -1);
    EXPECT_NEAR(filtered.Sample(1, 660).value_or(0), size, 0.05);
}

TEST_F(Batch, su_filter_refuses_what_makes_no_sense_and_leaves_no_file) {
    const std::string in = Demo("demo1.su");
    const std::string before = Content_Of(in);
    const std::string out = Folder / "out.su";
    for (const std::string& options :
         std::vector<std::string>{"--band-pass 16,8,150,250", "--band-pass 8,16,150,2500", "", "--traces 1:5",
                                  "--balance --traces 1:9999", "--notch 2100", "--agc 0.1"}) {
        const Outcome refused = Run("su-filter " + in + " " + options + " --json --out " + out);
        EXPECT_EQ(refused.Status, 1) << options;
        EXPECT_FALSE(refused.Json()["messages"].empty()) << options;
        EXPECT_FALSE(File_Exists(out)) << options;
    }
    for (const std::string& options :
         std::vector<std::string>{"--band-pass 8,16,150", "--harmonics 2", "--notch 0", "--agc none"})
        EXPECT_EQ(Run("su-filter " + in + " " + options + " --out " + out).Status, 2) << options;
    EXPECT_EQ(Run("su-filter " + in + " --balance --yes --out " + in).Status, 1);
    EXPECT_EQ(Content_Of(in), before);
}

}  // namespace
}  // namespace tarnvik::test
