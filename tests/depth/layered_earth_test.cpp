#include "demo/layered_earth.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>

namespace tarnvik {

namespace {
constexpr double degree = std::numbers::pi / 180;
}

TEST(LayeredEarthModel, HorizontalHeadWavesFollowTheInterceptTimeFormula) {
    const std::array velocities{400.0, 900.0, 1800.0, 3200.0, 5500.0};
    const std::array thicknesses{3.0, 6.0, 10.0, 15.0};
    const LayeredEarth earth = LayeredEarth::Horizontal(velocities, thicknesses);
    for (int layer = 1; layer <= 4; ++layer) {
        const double refractor = velocities.at(static_cast<std::size_t>(layer));
        double intercept = 0;
        for (std::size_t i = 0; i < static_cast<std::size_t>(layer); ++i) {
            intercept += 2 * thicknesses[i] *
                         std::sqrt(1 / (velocities[i] * velocities[i]) - 1 / (refractor * refractor));
        }
        EXPECT_NEAR(earth.Head_Wave_Time(layer, {20, 0}, {620, 0}), 1000 * (600 / refractor + intercept),
                    1e-9);
    }
    int branch = 0;
    EXPECT_NEAR(earth.First_Arrival({0, 0}, {2, 0}, &branch), 5, 1e-12);
    EXPECT_EQ(branch, 1);
    earth.First_Arrival({0, 0}, {600, 0}, &branch);
    EXPECT_EQ(branch, 5);
    EXPECT_EQ(earth.Head_Wave_Time(1, {0, 0}, {1, 0}), LayeredEarth::no_arrival) << "nearer than critical";
    EXPECT_EQ(earth.Head_Wave_Time(5, {0, 0}, {600, 0}), LayeredEarth::no_arrival) << "no such boundary";
}

TEST(LayeredEarthModel, ADippingBoundaryIsFasterUpDipAndSlowerDownDip) {
    for (const double dip : {-10.0, -3.0, 5.0, 10.0}) {
        const LayeredEarth earth({{500, 20, dip * degree}, {2000, 0, 0}});
        const double critical = std::asin(500.0 / 2000);
        const double normal = 20 * std::cos(dip * degree);
        const double expected =
            1000 * (100 * std::sin(critical + dip * degree) + 2 * normal * std::cos(critical)) / 500;
        EXPECT_NEAR(earth.Head_Wave_Time(1, {0, 0}, {100, 0}), expected, 1e-9) << dip;
    }
}

TEST(LayeredEarthModel, TimesAreTheSameBothWaysWhateverTheDips) {
    const LayeredEarth earth(
        {{500, 6, 4 * degree}, {1500, 45, -3 * degree}, {3500, 60, 8 * degree}, {6000, 0, 0}});
    for (int layer = 1; layer <= 3; ++layer) {
        const double there = earth.Head_Wave_Time(layer, {10, 0.5}, {290, 0});
        EXPECT_GT(there, 0);
        EXPECT_NEAR(there, earth.Head_Wave_Time(layer, {290, 0}, {10, 0.5}), 1e-9);
    }
}

/// Fermat: the path found by Snell's law is the quickest of its neighbours.
TEST(LayeredEarthModel, AThreeLayerDippingPathIsTheQuickest) {
    const LayeredEarth earth({{600, 8, 5 * degree}, {1400, 40, -4 * degree}, {4000, 0, 0}});
    const double found = earth.Head_Wave_Time(2, {0, 0}, {150, 0});
    // Six points fix a path: down through boundary 1 and 2, along, and up again; coarse descent over their x.
    std::array<double, 4> x{5, 25, 125, 145};
    const auto path = [&](const std::array<double, 4>& at) {
        const auto point = [&](int layer, double where) {
            return SectionPoint{where, earth.Boundary_Depth(layer, where)};
        };
        const std::array<SectionPoint, 6> p{SectionPoint{0, 0}, point(1, at[0]), point(2, at[1]),
                                            point(2, at[2]),    point(1, at[3]), SectionPoint{150, 0}};
        const std::array v{600.0, 1400.0, 4000.0, 1400.0, 600.0};
        double time = 0;
        for (std::size_t i = 0; i < v.size(); ++i)
            time += std::hypot(p[i + 1].X - p[i].X, p[i + 1].Z - p[i].Z) / v[i] * 1000;
        return time;
    };
    for (double step = 4; step > 1e-5;) {
        bool better = false;
        for (double& place : x) {
            for (const double change : {step, -step}) {
                const double before = path(x);
                place += change;
                if (path(x) < before) {
                    better = true;
                } else {
                    place -= change;
                }
            }
        }
        if (!better) step /= 2;
    }
    EXPECT_NEAR(found, path(x), 1e-5);
}

}  // namespace tarnvik
