#include "core/metafile.h"

#include <gtest/gtest.h>

#include "support/metafile_reader.h"

namespace tarnvik::test {
namespace {

using Played = PlayedMetafile;

TEST(Metafile, FiguresComeBackInOrderWithTheirColoursAndClip) {
    Metafile file(2000, 1000, 1440);
    file.Set_Pen(MetaPen{10, 0x0000FF});
    const std::vector<MetaPoint> line = {{0, 0}, {100, 50}, {40000, -40000}};
    file.Polyline(line);
    file.Set_Clip(MetaBox{100, 200, 300, 400});
    file.Fill_Box({10, 20, 10, 20}, 0xFFFF00);
    file.Fill_Box({250, 350, 900, 360}, 0x00FF00);
    file.Fill_Box({150, 250, 150, 250}, 0x00FF00);
    file.Ellipse({150, 350, 250, 450});
    file.Ellipse({150, 250, 250, 350});
    file.Set_Clip(MetaBox{-10, -10, 3000, 1000});
    file.Set_Text_Colour(0xFF0000);
    file.Set_Font({.Family = "Sans", .Height = 160, .TenthDegrees = 900});
    const std::vector<int> advances = {80, 81, 82};
    file.Text({50, 60}, "N\u00B0\u4E00", advances);
    file.Set_Brush(0x123456);
    const std::vector<MetaPoint> figures[] = {{{0, 0}, {9, 0}, {0, 9}}, {{20, 20}, {29, 20}, {20, 29}}};
    file.Polygons(figures, true);

    const Played played = Play_Metafile(file.Bytes());
    ASSERT_EQ(played.Fault, "");
    EXPECT_EQ(played.Width, 2000);
    EXPECT_EQ(played.Height, 1000);
    EXPECT_EQ(played.UnitsAnInch, 1440);
    ASSERT_EQ(played.Figures.size(), 7U);
    EXPECT_EQ(played.Figures[0].Places, (std::vector{0, 0, 100, 50, 32767, -32768}));
    EXPECT_EQ(played.Figures[0].Ink, 0x0000FF);
    EXPECT_EQ(played.Figures[1].Places, (std::vector{250, 350, 300, 360})) << "boxes end at the clip";
    EXPECT_EQ(played.Figures[1].Filling, 0x00FF00);
    EXPECT_EQ(played.Figures[1].Ink, 0x00FF00);
    EXPECT_EQ(played.Figures[2].Places, (std::vector{150, 250, 151, 251})) << "never without a surface";
    EXPECT_TRUE(played.Figures[2].Clip.empty());
    EXPECT_EQ(played.Figures[3].Clip, (std::vector{100, 200, 300, 400}));
    EXPECT_EQ(played.Figures[3].Ink, 0x0000FF) << "the pen of before";
    EXPECT_EQ(played.Figures[3].Filling, -1);
    EXPECT_EQ(played.Figures[5].Letters, "N\xB0?");
    EXPECT_EQ(played.Figures[5].Advances, advances);
    EXPECT_EQ(played.Figures[5].FontHeight, 160);
    EXPECT_EQ(played.Figures[5].Ink, 0xFF0000);
    EXPECT_TRUE(played.Figures[5].Clip.empty()) << "one around the drawing is none";
    EXPECT_EQ(played.Figures[6].Function, Played::Polygons);
    EXPECT_EQ(played.Figures[6].Places.size(), 12U);
    EXPECT_EQ(played.Figures[6].Filling, 0x123456);
}

TEST(Metafile, ManyColoursAndLongLinesKeepWithinTheFormat) {
    Metafile file(20000, 1000, 1440);
    constexpr int boxes = 1000;
    for (int box = 0; box < boxes; ++box) {
        if (box % 7 == 0) file.Set_Clip(MetaBox{0, 0, 10000 + box, 900});
        file.Fill_Box({box, 0, box + 1, 10}, box * 16);
        if (box % 7 == 3) file.Ellipse({-10, -10, 20000, 950});
    }
    std::vector<MetaPoint> trace;
    for (int at = 0; at < 20000; ++at)
        trace.push_back({at, at % 500});
    file.Set_Pen(MetaPen{1, 7});
    file.Polyline(trace);
    file.Polygons({&trace, 1}, false);

    const Played played = Play_Metafile(file.Bytes());
    ASSERT_EQ(played.Fault, "");
    EXPECT_GT(played.Deletions, boxes);
    const auto drawn = played.All(Played::Rectangle);
    ASSERT_EQ(drawn.size(), static_cast<std::size_t>(boxes));
    for (int box = 0; box < boxes; ++box)
        ASSERT_EQ(drawn[static_cast<std::size_t>(box)].Filling, box * 16) << box;
    // Each part of the line begins where the one before ended.
    std::vector<int> whole;
    for (const auto& part : played.All(Played::Polyline)) {
        EXPECT_LE(part.Places.size(), 16000U);
        if (!whole.empty()) {
            EXPECT_EQ(part.Places[0], whole[whole.size() - 2]);
            whole.resize(whole.size() - 2);
        }
        whole.insert(whole.end(), part.Places.begin(), part.Places.end());
    }
    ASSERT_EQ(whole.size(), 2 * trace.size());
    EXPECT_EQ(whole[30000], 15000);
    EXPECT_GT(played.All(Played::Polygon).at(0).Places.size(), 8000U);
}

TEST(Metafile, LargePaperGetsFewerUnitsAnInch) {
    EXPECT_EQ(Metafile::Density_For(11.7, 8.3), 1440);
    EXPECT_EQ(Metafile::Density_For(40, 10), 750);
    EXPECT_EQ(Metafile::Density_For(10, 700), 42);
    EXPECT_EQ(Metafile::Density_For(1e9, 1), 1);
}

}  // namespace
}  // namespace tarnvik::test
