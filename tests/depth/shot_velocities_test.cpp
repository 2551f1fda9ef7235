#include "depth/shot_velocities.h"

#include <gtest/gtest.h>

namespace tarnvik {
namespace {

TEST(ShotVelocities, AreTheMeanOfTheSidesOrTheOneThereIs) {
    struct Case {
        std::array<int, 5> A;
        std::array<int, 5> B;
        int Count;
        std::array<double, 6> Velocities;
    };
    const Case cases[] = {
        {{400, 1500, 0, 0, 0}, {500, 0, 3000, 0, 0}, 3, {0, 450, 1500, 3000, 0, 0}},
        {{0, 0, 0, 0, 0}, {0, 0, 0, 0, 0}, 2, {}},
        {{1, 2, 30, 4000, 5000}, {1, 2, 70, 0, 0}, 5, {0, 1, 2, 50, 4000, 5000}},
        {{1, 2, 30, 4000, 5000}, {1, 2, 69, 0, 0}, 2, {0, 1, 2, 49.5, 4000, 5000}},
        {{1, 2, 3000, 0, 5000}, {1, 2, 3000, 0, 5000}, 3, {0, 1, 2, 3000, 0, 5000}},
        {{32767, 32767, 0, 0, 0}, {32767, 32767, 0, 0, 0}, 2, {0, 32767, 32767, 0, 0, 0}},
    };
    for (const Case& c : cases) {
        Project project;
        project.NbShots = 1;
        project.NbReceivers = 1;
        Redimension_Project(project);
        for (int layer = 1; layer <= 5; ++layer) {
            const auto i = static_cast<std::size_t>(layer) - 1;
            project.VelocityA(1, layer) = static_cast<std::int16_t>(c.A.at(i));
            project.VelocityB(1, layer) = static_cast<std::int16_t>(c.B.at(i));
        }
        int count = 0;
        std::array<double, 6> velocities{};
        velocities.fill(-1);
        Shot_Velocities(project, 1, count, velocities);
        EXPECT_EQ(count, c.Count);
        EXPECT_EQ(velocities, c.Velocities);
    }
}

}  // namespace
}  // namespace tarnvik
