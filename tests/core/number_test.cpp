#include "core/text/number.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/text/print_line.h"

namespace tarnvik {

TEST(Numbers, ValueOfATextStopsAtTheFirstCharacterThatIsNoPartOfANumber) {
    const struct {
        const char* Text;
        double Value;
    } cases[] = {
        {"", 0},
        {"abc", 0},
        {"  12.5 m", 12.5},
        {"-3", -3},
        {"+4", 4},
        {".5", 0.5},
        {"5.", 5},
        {"1,5", 1},
        {"1e3", 1000},
        {"1D2x", 100},
        {"1e", 1},
        {"1e+", 1},
        {"-", 0},
        {".", 0},
        {"1.2.3", 1.2},
        {"12 34", 12},
        {"&H10", 16},
        {"&h00FF0000&", 0xFF0000},
        {"&HFFFFFFFF&", -1},
        {"nan", 0},
        {"inf", 0},
        {"1e999", 0},
        {"True", 0},
        {"\t7", 7},
        {"--5", 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Val(c.Text), c.Value) << c.Text;
}

TEST(Numbers, ConversionToIntegersTakesHalvesToEvenAndRefusesWhatDoesNotFit) {
    EXPECT_EQ(CInt(0.5), 0);
    EXPECT_EQ(CInt(1.5), 2);
    EXPECT_EQ(CInt(-2.5), -2);
    EXPECT_EQ(CInt(32767.4), 32767);
    EXPECT_FALSE(CInt(32767.5));
    EXPECT_EQ(CInt(-32768.5), -32768);
    EXPECT_FALSE(CInt(std::nan("")));
    EXPECT_EQ(CLng(2147483647.2), 2147483647);
    EXPECT_FALSE(CLng(3e9));
    EXPECT_EQ(Int(-1.2), -2);
}

TEST(Numbers, PrintRuleShowsBlanksAndSwitchesToTheScientificForm) {
    const struct {
        double Value;
        const char* Text;
    } doubles[] = {
        {0, " 0 "},
        {100, " 100 "},
        {-12.5, "-12.5 "},
        {0.5, " 0.5 "},
        {-0.25, "-0.25 "},
        {1.0 / 3, " 0.333333333333333 "},
        {1.0 / 30, " 3.33333333333333E-02 "},
        {0.05, " 0.05 "},
        {0.1 + 0.2, " 0.3 "},
        {123456789012345.0, " 123456789012345 "},
        {1e15, " 1E+15 "},
        {1.5e300, " 1.5E+300 "},
        {1e-15, " 0.000000000000001 "},
        {1e-16, " 1E-16 "},
    };
    for (const auto& c : doubles)
        EXPECT_EQ(Print_Number(c.Value), c.Text);
    EXPECT_EQ(Print_Number(0.1F), " 0.1 ");
    EXPECT_EQ(Print_Number(9999999.0F), " 9999999 ");
    EXPECT_EQ(Print_Number(12345678.0F), " 1.234568E+07 ");
    EXPECT_EQ(Print_Number(0.0123456F), " 0.0123456 ");
    EXPECT_EQ(Print_Number(0.01234567F), " 1.234567E-02 ");
    EXPECT_EQ(Print_Number(-7), "-7 ");
    EXPECT_EQ(Str(0.9731), " .9731");
    EXPECT_EQ(Str(-0.5), "-.5");
    EXPECT_EQ(Str(1), " 1");
    EXPECT_EQ(CStr(0.5), "0.5");
}

TEST(Numbers, PatternsRoundHalvesAwayFromZeroOnTheDecimalForm) {
    const struct {
        double Value;
        const char* Pattern;
        const char* Text;
    } cases[] = {
        {0, "##00.00", "00.00"},       {1.005, "##00.00", "01.01"},  {2.675, "###0.00", "2.68"},
        {-2.675, "###0.00", "-2.68"},  {-0.001, "###0.00", "0.00"},  {123456.7, "##00.0", "123456.7"},
        {99.995, "##00.00", "100.00"}, {9.996, "###0.00", "10.00"},  {7, "##000", "007"},
        {12.5, "##000", "013"},        {0.5, "##000", "001"},        {0.04, "##00.0", "00.0"},
        {0.05, "##00.0", "00.1"},      {-99.96, "##00.0", "-100.0"}, {0.999, "##0.0", "1.0"},
        {1e-9, "##00.00", "00.00"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Format(c.Value, c.Pattern), c.Text) << c.Value;
}

TEST(Numbers, APrintZoneIsFourteenCharactersWide) {
    PrintLine line;
    line.Item(15).Zone().Item(48.0).Zone().Item(48);
    EXPECT_EQ(line.End(), " 15            48            48 \r\n");
}

}  // namespace tarnvik
