#include "core/end_shots.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarnvik {
namespace {

TEST(EndShots, AreCountedPastTheOffsetShots) {
    struct Case {
        std::vector<double> Distances;
        int First;
        int Last;
    };
    const std::vector<Case> cases = {
        {{-20, 0, 50, 100, 120}, 2, 4},
        {{0, 50, 100}, 1, 3},
        {{-20, 120}, 1, 2},              // two shots are the end shots wherever they stand
        {{0, 50, -20, 100, 120}, 2, 4},  // the place in the list does not matter
        {{-1, -2, -3}, 3, 4},            // 4 and 3, swapped
        {{101, 102, 103}, 1, 1},         // 1 and 0, swapped, and no 0 left
        {{50}, 1, 1},
        {{}, 1, 1},
    };
    for (const Case& c : cases) {
        Project project;
        project.NbShots = static_cast<std::int16_t>(c.Distances.size());
        project.NbReceivers = 1;
        project.LineLength = 100;
        Redimension_Project(project);
        for (std::size_t i = 0; i < c.Distances.size(); ++i)
            project.ShotDistance(static_cast<int>(i) + 1) = c.Distances[i];
        int first = -9;
        int last = -9;
        First_Last_End_Shot(project, first, last);
        EXPECT_EQ(first, c.First) << testing::PrintToString(c.Distances);
        EXPECT_EQ(last, c.Last) << testing::PrintToString(c.Distances);
    }
}

}  // namespace
}  // namespace tarnvik
