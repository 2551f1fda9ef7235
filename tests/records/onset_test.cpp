#include "records/onset.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace tarnvik::test {
namespace {

/// A trace of noise and, from `onset` on, a wavelet that rises with the power given, 32 samples a period.
struct Arrival {
    double Onset = 200;
    double Power = 1;
    double Noise = 0;  ///< standard deviation; the wavelet's top is 1
    double Sign = 1;
    double Later = 0;  ///< amplitude of a stronger arrival
    double LaterOnset = 0;
};

std::vector<float> Trace(const Arrival& a, unsigned seed) {
    std::mt19937 random(seed);
    std::normal_distribution<double> noise(0, 1);
    const auto wavelet = [&](double t) {
        if (t <= 0) return 0.0;
        const double rise = std::min(std::pow(t / 8, a.Power), 1.0);
        return rise * std::cos(std::max(t - 8, 0.0) * 3.14159265 / 16) * std::exp(-t / 60);
    };
    std::vector<float> samples;
    for (int s = 1; s <= 600; ++s) {
        samples.push_back(static_cast<float>(a.Noise * noise(random) + a.Sign * wavelet(s - a.Onset) +
                                             a.Later * wavelet(s - a.LaterOnset) + 0.3));
    }
    return samples;
}

TEST(Onset, IsFoundWithinAFewSamplesWhereverTheCursorStands) {
    struct Case {
        const char* What;
        Arrival On;
        double Tolerance;
    };
    const std::vector<Case> cases = {
        {"clean", {.Onset = 200.4}, 0.5},
        {"clean, slow rise", {.Onset = 200.4, .Power = 2}, 1.2},
        {"downward", {.Onset = 123.7, .Sign = -1}, 0.5},
        {"noise of 2 %", {.Onset = 250.2, .Noise = 0.02}, 3},
        {"noise of 2 %, slow rise", {.Onset = 250.2, .Power = 2, .Noise = 0.02}, 2.5},
        {"noise of 5 %", {.Onset = 250.2, .Noise = 0.05}, 3},
        {"early", {.Onset = 9.5}, 0.8},
        {"a strong arrival behind a weak one",
         {.Onset = 200.4, .Noise = 0.01, .Later = 20, .LaterOnset = 230},
         1.8},
    };
    for (const Case& each : cases) {
        for (unsigned seed = 1; seed <= 20; ++seed) {
            const std::vector<float> samples = Trace(each.On, seed);
            for (const double off : {-18.0, -5.0, 0.0, 5.0, 18.0}) {
                const auto found = Find_Onset(samples, std::max(each.On.Onset + off, 1.0), 24);
                ASSERT_TRUE(found) << each.What << ", cursor " << off;
                EXPECT_NEAR(*found, each.On.Onset, each.Tolerance)
                    << each.What << ", cursor " << off << ", seed " << seed;
            }
        }
    }
}

TEST(Onset, NothingIsFoundInQuietTracesAndBesideThem) {
    EXPECT_EQ(Find_Onset(std::vector<float>(100, 0.0F), 50, 20), std::nullopt);
    EXPECT_EQ(Find_Onset({}, 1, 20), std::nullopt);
    const std::vector<float> samples = Trace({.Noise = 0.02}, 1);
    EXPECT_EQ(Find_Onset(samples, -5, 20), std::nullopt);
    EXPECT_EQ(Find_Onset(samples, 1e9, 20), std::nullopt);
    EXPECT_EQ(Find_Onset(samples, NAN, 20), std::nullopt);
    int found = 0;
    for (unsigned seed = 1; seed <= 50; ++seed)
        found += Find_Onset(Trace({.Onset = 500, .Noise = 0.02}, seed), 300, 24).has_value() ? 1 : 0;
    EXPECT_LE(found, 1) << "noise alone is no arrival";
    std::vector<float> broken = Trace({.Onset = 200.4}, 1);
    broken[20] = NAN;
    EXPECT_NEAR(Find_Onset(broken, 205, 24).value_or(0), 200.4, 1);
}

TEST(Onset, PeakTroughAndZeroCrossingNextToTheCursor) {
    std::vector<float> samples;
    for (int s = 1; s <= 200; ++s)
        samples.push_back(static_cast<float>(std::sin((s - 20.3) * 3.14159265 / 20)));
    EXPECT_NEAR(Find_Feature(SnapTo::Peak, samples, 33, 24).value_or(0), 30.3, 0.05);
    EXPECT_NEAR(Find_Feature(SnapTo::Trough, samples, 33, 24).value_or(0), 50.3, 0.05);
    EXPECT_NEAR(Find_Feature(SnapTo::ZeroCrossing, samples, 33, 24).value_or(0), 40.3, 0.05);
    EXPECT_NEAR(Find_Feature(SnapTo::ZeroCrossing, samples, 24, 24).value_or(0), 20.3, 0.05);
    EXPECT_EQ(Find_Feature(SnapTo::Peak, samples, 45, 3), std::nullopt) << "out of reach";
}

TEST(Onset, FirstArrivalOfAWholeTrace) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        for (const double onset : {60.2, 200.4, 400.7}) {
            EXPECT_NEAR(First_Arrival(Trace({.Onset = onset, .Noise = 0.02}, seed), 24).value_or(0), onset, 3)
                << seed;
        }
        EXPECT_NEAR(First_Arrival(Trace({.Onset = 12.5, .Noise = 0.01}, seed), 24).value_or(0), 12.5, 2);
    }
    EXPECT_EQ(First_Arrival(std::vector<float>(100, 0.0F), 24), std::nullopt);
}

}  // namespace
}  // namespace tarnvik::test
