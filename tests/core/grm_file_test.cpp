#include "core/grm_file.h"

#include <gtest/gtest.h>

#include <string>

#include "core/files.h"
#include "support/test_ports.h"

namespace tarnvik {
namespace {

GrmContent Two_Receivers() {
    GrmContent content{120.5, 8, Array2<double>(10, 2)};
    for (int row = 1; row <= 9; ++row) {
        content.Data(row, 1) = row + 0.25;
        content.Data(row, 2) = -row;
    }
    content.Data(10, 1) = 77;
    return content;
}

TEST(GrmFile, StandsLineByLineAndComesBack) {
    const std::string bytes = Grm_Bytes(Two_Receivers(), 2);
    EXPECT_EQ(bytes.substr(0, bytes.find(" 3.25")), " 120.5         8 \r\n 1.25 -1 \r\n 2.25 -2 \r\n");
    EXPECT_EQ(bytes.substr(bytes.find(" 9.25")),
              " 9.25 -9 \r\n1 ligne = TotalTime\r\n2 ligne = Time ay \r\n3 ligne = Time bx \r\n"
              "4 ligne = Time GRM \r\n5 ligne = Velocity \r\n6 ligne = Velocity \r\n7 ligne = Thickness \r\n"
              "8 ligne = Thickness \r\n9 ligne = BedRock depth 0\r\n");
    const GrmReading read = Parse_Grm(bytes, 2);
    ASSERT_TRUE(read.Good);
    EXPECT_TRUE(read.Remark.empty());
    EXPECT_EQ(read.Content.GrmXY, 8);
    EXPECT_EQ(Grm_Bytes(read.Content, 2), bytes);
}

TEST(GrmFile, TellsWhatIsNoFileOfTheLine) {
    const std::string whole = Grm_Bytes(Two_Receivers(), 2);
    const auto with = [&whole](const std::string& from, const std::string& to) {
        std::string changed = whole;
        return changed.replace(changed.find(from), from.size(), to);
    };
    struct Case {
        const char* What;
        std::string Bytes;
        bool Good;
        bool Remark;
    };
    const Case cases[] = {
        {"with commas", with(" 3.25 -3 ", "3.25,-3,"), true, false},
        {"without remarks", whole.substr(0, whole.find("1 ligne")), true, false},
        {"cut in the last row", whole.substr(0, whole.find(" -9")), false, false},
        {"a word for a number", with(" 3.25", " none"), false, false},
        {"a number that nothing holds", with(" 3.25", " 1E999"), false, false},
        {"an XY that no integer holds", with(" 8 \r", " 80000 \r"), false, false},
        {"a receiver too many in a row", with(" -9 ", " -9  4 "), true, true},
        {"empty", "", false, false},
    };
    for (const Case& c : cases) {
        const GrmReading read = Parse_Grm(c.Bytes, 2);
        EXPECT_EQ(read.Good, c.Good) << c.What;
        EXPECT_EQ(!read.Remark.empty(), c.Remark) << c.What;
    }
    EXPECT_FALSE(Parse_Grm(whole, 3).Good) << "of a shorter line";
}

TEST(GrmFile, IsNamedByTheFirstPointOfTheName) {
    const test::TemporaryFolder folder;
    EXPECT_EQ(Grm_File_Written("/a.b/my.line.tv5"), "/a.b/my.GRM");
    EXPECT_EQ(Grm_File_Beside(folder / "my.line.tv5"), folder / "my.GRM") << "none exists";
    Replace_File(folder / "MY.Line.grm", "x");
    EXPECT_EQ(Grm_File_Beside(folder / "my.line.tv5"), folder / "MY.Line.grm");
    Replace_File(folder / "My.grm", "x");
    EXPECT_EQ(Grm_File_Beside(folder / "my.line.tv5"), folder / "My.grm");
}

}  // namespace
}  // namespace tarnvik
