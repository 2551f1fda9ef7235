#include "core/text/letters.h"

#include <gtest/gtest.h>

namespace tarnvik {

TEST(Letters, DerivedNamesKeepTheCaseOfTheRestOfThePath) {
    EXPECT_EQ(Replace_First("/Data/Line1.SU", ".su", ".tv5"), "/Data/Line1.tv5");
    EXPECT_EQ(Replace_First("/my.tv5.d/A.TV5", ".tv5", ".bak"), "/my.bak.d/A.TV5");
    EXPECT_EQ(Replace_First("/Data/Line1", ".su", ".tv5"), "/Data/Line1");
}

TEST(Letters, EveryByteOfTheCodePageSurvivesThereAndBack) {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte)
        bytes.push_back(static_cast<char>(byte));
    EXPECT_EQ(To_Windows_1252(From_Windows_1252(bytes)), bytes);
    EXPECT_EQ(From_Windows_1252("\x80 \xE9"), "\u20AC \u00E9");
    EXPECT_EQ(To_Windows_1252("\u4E2D\xFF"), "??");
}

}  // namespace tarnvik
