#include "setup/header_geometry.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tarnvik {
namespace {

using Places = std::vector<double>;

struct Line {
    Places Receivers;
    Places Shots;
    std::int16_t Scale = -100;
    double Dip = 0;  ///< of the line against x, radians
    double Way = 1;  ///< -1: the coordinates fall along the line
    bool Coordinates = true;
    bool Offsets = true;  ///< signed, in whole units

    /// The words as a recorder fills them.
    std::vector<PlaceWords> Words() const {
        const double factor = Scale < 0 ? -Scale : Scale > 0 ? 1.0 / Scale : 1;
        const auto word = [&](double place) {
            return static_cast<std::int32_t>(std::lround(place * factor));
        };
        std::vector<PlaceWords> words;
        for (std::size_t shot = 0; shot < Shots.size(); ++shot) {
            for (std::size_t receiver = 0; receiver < Receivers.size(); ++receiver) {
                PlaceWords t;
                t.fldr = static_cast<std::int32_t>(shot) + 1;
                t.tracf = static_cast<std::int32_t>(receiver) + 1;
                if (Coordinates) {
                    t.scalco = Scale;
                    t.gx = word(Way * Receivers[receiver] * std::cos(Dip) + (Dip != 0 ? 400000 : 0));
                    t.gy = word(Receivers[receiver] * std::sin(Dip));
                    t.sx = word(Way * Shots[shot] * std::cos(Dip) + (Dip != 0 ? 400000 : 0));
                    t.sy = word(Shots[shot] * std::sin(Dip));
                }
                if (Offsets)
                    t.offset = static_cast<std::int32_t>(std::lround(Receivers[receiver] - Shots[shot]));
                words.push_back(t);
            }
        }
        return words;
    }
    HeaderGeometry Told() const { return Geometry_Of_Headers(Words(), static_cast<int>(Receivers.size())); }
};

Places Even(int count, double step) {
    Places places;
    for (int i = 0; i < count; ++i)
        places.push_back(i * step);
    return places;
}

void Expect_Near(const Places& told, const Places& meant, double tolerance, const char* name) {
    ASSERT_EQ(told.size(), meant.size()) << name;
    for (std::size_t i = 0; i < told.size(); ++i)
        EXPECT_NEAR(told[i], meant[i], tolerance) << name << " " << i;
}

TEST(HeaderGeometry, IsTheSameHoweverTheWordsAreFilled) {
    const Line line{Even(24, 4), {-20, -4, 46, 96, 112}};
    const struct {
        const char* Name;
        Line Of;
        double Tolerance;
        const char* Words;
    } cases[] = {
        {"centimetres", line, 1e-9, "gx, scalco"},
        {"metres, scalco 0", {line.Receivers, line.Shots, 0}, 1e-9, "gx"},
        {"pairs of metres, scalco 2", {line.Receivers, line.Shots, 2}, 1e-9, "gx, scalco"},
        {"coordinates fall", {line.Receivers, line.Shots, -10, 0, -1}, 1e-9, "gx, scalco"},
        {"aslant over a map", {line.Receivers, line.Shots, -1000, 0.7}, 0.01, "gx, gy, scalco"},
        {"offsets alone", {line.Receivers, line.Shots, 0, 0, 1, false}, 1e-9, "offset"},
    };
    for (const auto& c : cases) {
        const HeaderGeometry told = c.Of.Told();
        ASSERT_TRUE(told.Spacing && told.FirstDistance && told.LineLength) << c.Name;
        EXPECT_NEAR(*told.Spacing, 4, c.Tolerance) << c.Name;
        EXPECT_EQ(told.SpacingWords, c.Words) << c.Name;
        EXPECT_NEAR(*told.FirstDistance, 4, c.Tolerance) << c.Name;
        EXPECT_NEAR(*told.LineLength, 100, c.Tolerance) << c.Name;
        EXPECT_TRUE(told.Offsets && told.Even && !told.SpreadMoves) << c.Name;
        Expect_Near(told.ShotPlaces, {-16, 0, 50, 100, 116}, c.Tolerance, c.Name);
        EXPECT_EQ(told.Remarks, std::vector<std::string>()) << c.Name;
    }
}

TEST(HeaderGeometry, UnsignedOffsetsAndShotsWithoutCoordinates) {
    const Line line{Even(12, 5), {-2.5, 17.5, 62.5}};
    std::vector<PlaceWords> words = line.Words();
    for (PlaceWords& t : words) {
        t.sx = 0;
        t.offset = std::abs(t.offset);
    }
    const HeaderGeometry told = Geometry_Of_Headers(words, 12);
    EXPECT_EQ(told.ShotWords, "gx, offset, scalco");
    Expect_Near(told.ShotPlaces, {0, 20, 65}, 1.01, "whole units");
    EXPECT_NEAR(*told.FirstDistance, 2.5, 0.51);
}

TEST(HeaderGeometry, EndShotsInsideTheSpreadAndShotsInAnyOrder) {
    const HeaderGeometry inside = Line{Even(48, 5), {-2.5, 27.5, 117.5, 221}}.Told();
    EXPECT_EQ(inside.FirstDistance, 2.5);
    EXPECT_EQ(inside.LineLength, 223.5);
    EXPECT_FALSE(inside.Offsets);
    const HeaderGeometry mixed = Line{Even(12, 5), {57.5, -2.5, 27.5, -30}}.Told();
    EXPECT_EQ(mixed.ShotPlaces, (Places{60, 0, 30, -27.5}));
    ASSERT_EQ(mixed.Remarks.size(), 1U);
    EXPECT_NE(mixed.Remarks[0].find("order"), std::string::npos);
    const HeaderGeometry single = Line{Even(12, 5), {-10}}.Told();
    EXPECT_EQ(single.FirstDistance, 10);
    EXPECT_FALSE(single.LineLength);
}

TEST(HeaderGeometry, TracesThatAreNotFilledAndWordsThatDisagree) {
    const Line line{Even(12, 5), {-5, 27.5, 60}};
    std::vector<PlaceWords> words = line.Words();
    words[4] = words[17] = words[25] = PlaceWords{.fldr = 9};  // nothing filled
    words[17].fldr = 2;
    words[25].fldr = 3;
    words[4].fldr = 1;
    words[7].offset = 3;
    const HeaderGeometry told = Geometry_Of_Headers(words, 12);
    EXPECT_EQ(told.Spacing, 5);
    EXPECT_EQ(told.ShotPlaces, (Places{0, 32.5, 65}));
    EXPECT_EQ(told.ReceiverPlaces.at(4), 25);
    std::string remarks;
    for (const std::string& remark : told.Remarks)
        remarks += remark + "\n";
    EXPECT_NE(remarks.find("on 1 of 36 traces (trace 8: offset 3, by coordinates 40)"), std::string::npos)
        << remarks;
    EXPECT_NE(remarks.find("sx changes inside record 1"), std::string::npos) << remarks;

    EXPECT_TRUE(Geometry_Of_Headers(std::vector<PlaceWords>(24), 12).Empty()) << "nothing filled at all";
    EXPECT_TRUE(Geometry_Of_Headers({}, 12).Empty());
    EXPECT_TRUE(Geometry_Of_Headers(words, 0).Empty());
    std::vector<PlaceWords> angles = Line{Even(12, 5), {0}, -100, 0, 1, true, false}.Words();
    for (PlaceWords& t : angles)
        t.counit = 2;
    EXPECT_TRUE(Geometry_Of_Headers(angles, 12).Empty());
}

TEST(HeaderGeometry, UnevenSpreadsAndSpreadsThatMove) {
    const HeaderGeometry uneven = Line{{0, 5, 10, 14, 20, 25}, {-5, 30}}.Told();
    EXPECT_FALSE(uneven.Even);
    EXPECT_EQ(uneven.Spacing, 5);
    EXPECT_EQ(uneven.ReceiverPlaces, (Places{5, 10, 15, 19, 25, 30}));
    ASSERT_EQ(uneven.Remarks.size(), 1U);
    EXPECT_NE(uneven.Remarks[0].find("steps of 4 to 6"), std::string::npos);

    std::vector<PlaceWords> words = Line{Even(6, 5), {-2.5, 10, 27.5, 40}, -100, 0, 1, true, false}.Words();
    for (std::size_t i = 12; i < words.size(); ++i)
        words[i].gx += 1500;
    const HeaderGeometry moves = Geometry_Of_Headers(words, 6);
    EXPECT_TRUE(moves.SpreadMoves && moves.Even);
    EXPECT_EQ(moves.ReceiverPlaces.size(), 9U);
    EXPECT_EQ(moves.ShotPlaces, (Places{0, 12.5, 30, 42.5}));
}

TEST(HeaderGeometry, ElevationsAndDepth) {
    std::vector<PlaceWords> words = Line{Even(6, 5), {0, 25}}.Words();
    for (std::size_t i = 0; i < words.size(); ++i) {
        words[i].scalel = -100;
        words[i].selev = i < 6 ? 60670 : 60009;
        words[i].gelev = 60000 + static_cast<std::int32_t>(i % 6) * 10;
        words[i].sdepth = i < 6 ? 50 : 100;
    }
    const HeaderGeometry told = Geometry_Of_Headers(words, 6);
    EXPECT_EQ(told.ShotElevations, (Places{606.7, 600.09}));
    EXPECT_EQ(told.ReceiverElevations.at(3), 600.3);
    EXPECT_EQ(told.ShotDepth, 0.75);
    EXPECT_EQ(told.DepthWords, "sdepth, scalel");
}

}  // namespace
}  // namespace tarnvik
