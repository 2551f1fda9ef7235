// header, as a script uses it.

#include "batch/batch_fixture.h"
#include "support/su_builder.h"

namespace tarnvik::test {

TEST_F(Batch, header_words_are_shown_set_checked_and_written) {
    const std::string file = Folder / "line.su";
    SuBuilder(4, 10).Records(2).Put16(2, 222, 55).Write(file);
    const std::string before = *Read_File(file);

    Outcome outcome = Run("header " + file + " --json --words 'First breaks,fldr,d1/fbp' --traces 2:3");
    EXPECT_EQ(outcome.Status, 0) << outcome.Errors;
    EXPECT_EQ(outcome.Json()["words"], nlohmann::json::parse(R"(["First breaks", "fldr", "d1/fbp"])"));
    EXPECT_EQ(outcome.Json()["traces"], nlohmann::json::parse("[[55, 1, 0.0], [0, 2, 0.0]]"));
    EXPECT_EQ(Run("header " + file + " --json").Json()["traces"][0].size(), 90U);

    // A value is looked at first, then written with --save; one that does not fit is not.
    const std::string set = "header " + file + " --json --words ep,wevel --traces 2:2 --set WEVEL=";
    EXPECT_EQ(Run(set + "850").Json()["traces"][0][1], 850);
    EXPECT_EQ(*Read_File(file), before);
    outcome = Run(set + "40000 --save");
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_TRUE(outcome.Json()["traces"].empty());
    EXPECT_EQ(Run(set + "850 --save --out " + file).Status, 2) << "no table by its ending";
    EXPECT_EQ(*Read_File(file), before);
    EXPECT_EQ(Run(set + "850 --save").Status, 0);
    EXPECT_EQ(Changed_Bytes(before, *Read_File(file)), (std::vector<std::int64_t>{280 + 90, 280 + 91}));
    // Into a float word goes a whole number, read back as a tiny one.
    EXPECT_LT(Run("header " + file + " --json --words f1 --set f1=3").Json()["traces"][0][0], 1e-40);

    outcome = Run("header " + file + " --json --check");
    EXPECT_EQ(outcome.Json()["faults"], std::vector<std::string>{"Record 2 (traces 3 to 4): no picks."});
    const std::string out = Folder / "table.csv";
    EXPECT_EQ(Run("header " + file + " --words fldr,nhs --traces 3:4 --out " + out).Status, 0);
    EXPECT_EQ(*Read_File(out),
              "Trace Nb;Original field record number.;Number of horizontally stacked\r\n3;2;0\r\n4;2;0\r\n");
    EXPECT_EQ(Run("header " + file + " --out " + out).Status, 1) << "it stands there already";
    EXPECT_EQ(Run("header " + file + " --out " + (Folder / "table.xlsx")).Status, 0);
    EXPECT_EQ(Run("header " + file + " --traces 2:5").Status, 1);
    EXPECT_EQ(Run("header " + file + " --words fldr,nothing").Status, 2);
    EXPECT_EQ(Run("header " + (Folder / "none.su")).Status, 1);
}

}  // namespace tarnvik::test
