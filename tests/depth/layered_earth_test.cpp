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

}  // namespace tarnvik
