// Straight pieces of a branch: known lines, and how many of them a noisy line is read to have.

#include "interpretation/branch_fit.h"

#include <gtest/gtest.h>

#include <limits>

#include "random_earth.h"

namespace tarnvik::test {
namespace {

BranchPicks Picks(const std::vector<double>& distances, const std::vector<double>& times,
                  double error = 0.5) {
    return {distances, times, std::vector<double>(distances.size(), error * error)};
}

TEST(BranchFit, finds_the_knees_of_exact_branches) {
    std::vector<double> distances;
    std::vector<double> times;
    for (int i = 1; i <= 20; ++i) {
        const double x = 5 * i;
        distances.push_back(x);
        times.push_back(std::min({2 * x, 20 + 0.8 * x, 46 + 0.3 * x}));
    }
    const auto fits = Fit_Branch(Picks(distances, times), 5, {});
    ASSERT_GE(fits.size(), 3U);
    const BranchFit& fit = fits[2];
    EXPECT_NEAR(fit.Misfit, 0, 1e-9);
    EXPECT_EQ(fit.Pieces[1].First, 3U);
    EXPECT_EQ(fit.Pieces[2].First, 10U);
    EXPECT_NEAR(fit.Pieces[1].Slowness, 0.8, 1e-9);
    EXPECT_NEAR(fit.Pieces[2].Intercept, 46, 1e-9);
}

TEST(BranchFit, velocity_never_falls_and_a_piece_has_its_picks) {
    // The far half is slower: no second piece can begin there.
    std::vector<double> distances;
    std::vector<double> times;
    for (int i = 1; i <= 12; ++i) {
        distances.push_back(i);
        times.push_back(i < 7 ? i : 6 + 2 * (i - 6));
    }
    EXPECT_EQ(Fit_Branch(Picks(distances, times), 4, {}).size(), 1U);
    EXPECT_TRUE(Fit_Branch(Picks({1, 2}, {1, 2}), 3, {}).empty());
    EXPECT_EQ(Fit_Branch(Picks({1, 2, 3, 4, 5}, {5, 10, 12, 13, 14}), 3, {}).size(), 1U)
        << "five picks are too few for two pieces";
    BranchRules from_shot;
    from_shot.FromShot = true;
    const auto through = Fit_Branch(Picks({2, 4, 6}, {5, 9, 13}), 1, from_shot);
    ASSERT_EQ(through.size(), 1U);
    EXPECT_EQ(through[0].Pieces[0].Intercept, 0);
    EXPECT_NEAR(through[0].Pieces[0].Slowness, (10 + 36 + 78) / 56.0, 1e-12);
}

/// Misfits of the whole line by at most 1 to 5 pieces a branch.
std::vector<double> Misfits(const RandomLine& line, const std::vector<std::vector<double>>& times,
                            double noise) {
    std::vector<double> misfits(5);
    for (std::size_t shot = 0; shot < line.Shots.size(); ++shot) {
        for (const int side : {-1, 1}) {
            std::vector<double> distances;
            std::vector<double> picks;
            const auto take = [&](std::size_t i) {
                const double distance = (line.Receivers[i] - line.Shots[shot]) * side;
                if (distance <= 0) return;
                distances.push_back(distance);
                picks.push_back(times[shot][i]);
            };
            const std::size_t count = line.Receivers.size();
            for (std::size_t i = 0; i < count; ++i)
                take(side > 0 ? i : count - 1 - i);
            const auto fits = Fit_Branch(Picks(distances, picks, noise), misfits.size(), {});
            double best = std::numeric_limits<double>::infinity();
            for (std::size_t i = 0; i < misfits.size() && !fits.empty(); ++i) {
                if (i < fits.size()) best = std::min(best, fits[i].Misfit);
                misfits[i] += best;
            }
        }
    }
    return misfits;
}

// A further layer that is there makes the line fit better by more than noise alone does with a further piece
// in every branch: one margin over the whole line tells the two apart.
TEST(BranchFit, one_margin_over_the_line_tells_layers_from_noise) {
    constexpr double noise = 0.5;
    constexpr double margin = 35;
    std::mt19937 random(20261122);
    int lines = 0;
    int right = 0;
    while (lines < 100) {
        const auto line = Draw_Line(random);
        if (!line) continue;
        const auto layers = static_cast<std::size_t>(line->Earth.Count());
        const auto exact = Misfits(*line, line->Exact, noise);
        if (exact[layers - 2] - exact[layers - 1] < 10) continue;
        ++lines;
        auto times = line->Exact;
        std::normal_distribution<double> error(0, noise);
        for (auto& row : times) {
            for (double& time : row)
                time += error(random);
        }
        const auto misfits = Misfits(*line, times, noise);
        std::size_t found = 1;
        while (found < misfits.size() && misfits[found - 1] - misfits[found] > margin)
            ++found;
        right += found == layers ? 1 : 0;
    }
    EXPECT_GE(right, 95);
}

}  // namespace
}  // namespace tarnvik::test
