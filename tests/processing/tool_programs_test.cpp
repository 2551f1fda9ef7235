#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>

#include "support/su_builder.h"
#include "support/test_ports.h"
#include "traces_support.h"

namespace tarnvik::test {
namespace {

/// The programs as a user's own script runs them.
class ToolPrograms : public testing::Test {
  protected:
    /// Runs a line in the folder with the tools on the path; what it says goes to `told`. Answers its exit
    /// status.
    int Run_Line(const std::string& line) {
        const std::string script =
            "cd '" + Folder.Path + "' && PATH='" TARNVIK_TOOLS "':$PATH && (" + line + ") 2>told";
        const int status = std::system(("bash -c '" + Quoted(script) + "'").c_str());
        Told = Content_Of(Folder / "told");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    static std::string Quoted(const std::string& script) {
        std::string quoted;
        for (const char letter : script)
            quoted += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
        return quoted;
    }
    TemporaryFolder Folder;
    std::string Told;
};

TEST_F(ToolPrograms, StackRecordsInAPipe) {
    // 5 records of 12 channels; records 2 to 4 are added channel by channel and numbered afresh.
    SuBuilder su = SuBuilder(60, 300, 500).Records(12);
    for (int trace = 1; trace <= 60; ++trace) {
        for (int i = 1; i <= 300; ++i)
            su.Sample(trace, i, static_cast<float>(trace + 0.001 * i));
    }
    su.Write(Folder / "in put.su");
    ASSERT_EQ(Run_Line("set -o pipefail; suwind <'in put.su' key=fldr min=2 max=4 tmin=0.01 tmax=0.05 |"
                       " susort tracf | sustack key=tracf | sushw key=fldr,tracf a=7,1 b=0,1 >out.su"),
              0)
        << Told;
    EXPECT_EQ(Told, "");
    const std::string out = Content_Of(Folder / "out.su");
    const std::size_t length = 240 + 4 * 81;
    ASSERT_EQ(out.size(), 12 * length);
    EXPECT_EQ(Values_Of(out, "fldr"), std::vector<double>(12, 7));
    EXPECT_EQ(Values_Of(out, "nhs"), std::vector<double>(12, 3));
    EXPECT_EQ(Values_Of(out, "delrt"), std::vector<double>(12, 10));
    for (std::size_t channel = 0; channel < 12; ++channel) {
        EXPECT_EQ(Values_Of(out, "tracf")[channel], static_cast<double>(channel) + 1);
        // Mean of the traces 12 + c, 24 + c, 36 + c; sample 21 is at 10 ms.
        EXPECT_FLOAT_EQ(Samples_Of(out, channel)[0],
                        static_cast<float>(25.0 + static_cast<double>(channel) + 0.021));
    }
}

TEST_F(ToolPrograms, TellWhatFailedAndAnswerOne) {
    SuBuilder(400, 2000, 500).Records(12).Write(Folder / "in.su");
    for (const char* tool : {"suwind", "sushw", "susort", "sustack", "suresamp"}) {
        SCOPED_TRACE(tool);
        const std::string name(tool);
        EXPECT_EQ(Run_Line(name + " <in.su >/dev/full"), 1);
        EXPECT_EQ(Told.find(name + ": the output cannot be written: "), 0U) << Told;
        EXPECT_EQ(Run_Line(name + " </dev/null >out.su"), 1);
        EXPECT_EQ(Told, name + ": the input is empty\n");
        EXPECT_EQ(Run_Line(name + " nonsense=1 <in.su >out.su"), 1);
        EXPECT_NE(Told.find("nonsense"), std::string::npos) << Told;
        EXPECT_EQ(Run_Line(name + " <in.su 1<>in.su"), 1);
        EXPECT_EQ(Told, name + ": input and output are the same file\n");
        EXPECT_EQ(Run_Line(name + " <. >out.su"), 1);
        EXPECT_NE(Told.find("the input cannot be read"), std::string::npos) << Told;
        EXPECT_EQ(Run_Line(name + " --help | grep -q '" + name + " <in.su'"), 0);
    }
    // A reader that goes away.
    EXPECT_EQ(Run_Line("suwind <in.su | head -c 1000 >out.su; exit ${PIPESTATUS[0]}"), 1);
    EXPECT_NE(Told.find("suwind: the output cannot be written"), std::string::npos) << Told;
    // No trace kept is no failure; a note is none either.
    EXPECT_EQ(Run_Line("suwind <in.su >out.su min=5000"), 0);
    EXPECT_EQ(Content_Of(Folder / "out.su"), "");
    EXPECT_EQ(Run_Line("suwind <in.su >out.su tmin=0.0005"), 0);
    EXPECT_NE(Told.find("delrt holds whole milliseconds"), std::string::npos) << Told;
    // A stream goes on from where its file stands.
    EXPECT_EQ(Run_Line("(head -c 8240 >/dev/null; susort -tracf | suwind count=1 >out.su) <in.su"), 0);
    EXPECT_EQ(Values_Of(Content_Of(Folder / "out.su"), "tracf"), std::vector<double>{12});
}

}  // namespace
}  // namespace tarnvik::test
