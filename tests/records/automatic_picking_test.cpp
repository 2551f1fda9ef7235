#include "records/automatic_picking.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <vector>

namespace tarnvik {
namespace {

constexpr int samples = 50;  // at 1 ms: a pick at sample s is the word 10 s

/// Stretches of equal value over a background of -1.
struct Stretch {
    int First;
    int Last;
    float Value;
};
std::vector<float> Trace(const std::vector<Stretch>& stretches, float background = -1) {
    std::vector<float> trace(samples, background);
    for (const Stretch& stretch : stretches) {
        for (int i = stretch.First; i <= stretch.Last; ++i)
            trace[static_cast<std::size_t>(i - 1)] = stretch.Value;
    }
    return trace;
}

class MemorySource : public TraceSource {
  public:
    std::optional<std::int16_t> Identification(int trace) override {
        return static_cast<std::int16_t>(Dead.contains(trace) ? 2 : 1);
    }
    void Read_Samples(int trace, std::span<float> target) override {
        const std::vector<float>& from = Traces.at(static_cast<std::size_t>(trace - 1));
        std::copy(from.begin(), from.end(), target.begin());
    }
    std::vector<std::vector<float>> Traces;
    std::map<int, bool> Dead;
};

AutomaticPickingParameters Defaults() {
    AutomaticPickingParameters with;
    with.FirstTrace = 1;
    with.NbSamples = samples;
    with.SampleInterval = 1000;
    with.FirstStart = 5;
    with.WindowLength = 20;
    with.HalfCycle = 4;
    return with;
}

/// Words of a record of live traces, -1 where the trace keeps its word.
std::vector<int> Words(AutomaticPickingParameters with, const std::vector<std::vector<float>>& traces,
                       const std::map<int, bool>& dead = {}) {
    MemorySource source;
    source.Traces = traces;
    source.Dead = dead;
    with.LastTrace = static_cast<int>(traces.size());
    std::vector<int> words;
    for (const auto& word : Pick_Record(with, source).Words)
        words.push_back(word ? *word : -1);
    return words;
}

TEST(AutomaticPicking, FindsTheBreakOfOneTrace) {
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    constexpr float infinite = std::numeric_limits<float>::infinity();
    const auto with = [](auto change) {
        AutomaticPickingParameters parameters = Defaults();
        change(parameters);
        return parameters;
    };
    const auto same = [](auto&) {};
    const std::vector<Stretch> ramp = {{12, 12, 1}, {13, 13, 2}, {14, 14, 3}, {15, 20, 10}};
    struct Case {
        const char* What;
        AutomaticPickingParameters With;
        std::vector<float> Samples;
        int Word;
    };
    const std::vector<Case> cases = {
        {"a lobe shorter than the half cycle is passed", with(same), Trace({{8, 9, 5}, {12, 20, 10}}), 120},
        {"a lobe passed by the look ahead still counts as accepted: ten times it is a disturbance",
         with(same), Trace({{8, 9, 0.1F}, {12, 20, 10}}), 270},
        {"a ratio equal to the minimum passes", with([](auto& p) { p.MinAmplitude = 0.3; }), Trace(ramp),
         140},
        {"samples below the minimum count for the half cycle", with([](auto& p) {
             p.MinAmplitude = 0.3;
             p.HalfCycle = 3;
         }),
         Trace({{12, 12, 1}, {13, 13, 2}, {14, 14, 3}, {18, 20, 10}}), 140},
        {"a zero is no negative sample", with(same), Trace({{6, 9, 0}, {20, 30, 10}}), 60},
        {"a zero accepted shuts out everything behind it", with(same), Trace({{6, 7, 0}, {12, 20, 10}}), 270},
        {"without a positive sample the division fails and the first ratio, 0, stays", with(same), Trace({}),
         90},
        {"negated samples", with([](auto& p) { p.Negative = true; }), Trace({{12, 20, -10}}, 1), 120},
        {"absolute samples", with([](auto& p) {
             p.Absolute = true;
             p.MinAmplitude = 0.5;
         }),
         Trace({{12, 20, -10}}), 120},
        {"negated, then absolute", with([](auto& p) {
             p.Absolute = p.Negative = true;
             p.MinAmplitude = 0.5;
         }),
         Trace({{12, 20, 10}}), 120},
        {"the look ahead ends with the trace", with([](auto& p) {
             p.FirstStart = 40;
             p.HalfCycle = 10;
         }),
         Trace({{49, 50, 10}}), 490},
        {"no break: one sample behind the window", with(same), Trace({{40, 50, 10}}), 270},
        {"a start behind the trace searches nothing", with([](auto& p) { p.FirstStart = 70; }), Trace({}),
         710},
        {"a shift, rounded halves to even", with([](auto& p) { p.PickShift = -1.25; }), Trace({{12, 20, 10}}),
         108},
        {"a pick that does not fit its word", with([](auto& p) { p.PickShift = 4000; }),
         Trace({{12, 20, 10}}), -1},
        {"samples that are no number are passed", with(same),
         Trace({{9, 9, nan}, {10, 10, infinite}, {12, 20, 10}}), 120},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.What);
        // The second trace only keeps the first from being the last one, whose forward pass is left out.
        EXPECT_EQ(Words(each.With, {each.Samples, each.Samples}).front(), each.Word);
    }
}

TEST(AutomaticPicking, WindowFollowsThePickBeforeBothWays) {
    AutomaticPickingParameters with = Defaults();
    with.ReferenceTrace = 2;
    with.FirstStart = 11;
    with.StartShift = -2;
    with.WindowLength = 6;
    const auto breaks_at = [](int sample) { return Trace({{3, 8, 10}, {sample, sample + 8, 10}}); };
    // The early lobe at 3 to 8 lies before every window but is the larger run.
    EXPECT_EQ(Words(with, {breaks_at(15), breaks_at(12), breaks_at(14), breaks_at(18)}),
              (std::vector{150, 120, 140, 180}));
}

TEST(AutomaticPicking, CarriesItsStateFromTraceToTrace) {
    AutomaticPickingParameters with = Defaults();
    with.FirstStart = 39;
    with.StartShift = -30;
    // 40 + 20 exceeds 50: the window shrinks to 10 and stays so. The second trace is searched from 12 to 22.
    EXPECT_EQ(Words(with, {Trace({{42, 50, 10}}), Trace({{25, 40, 10}})}), (std::vector{420, 230}));
    // Back beyond the start of the trace: the search begins again at sample 1, with 10 samples.
    with.StartShift = -60;
    EXPECT_EQ(Words(with, {Trace({{42, 50, 10}}), Trace({{25, 40, 10}})}), (std::vector{420, 120}));

    // 0.05 accepted on the first trace makes the full amplitude of the second one a disturbance, and that of
    // the reference trace when the backward pass comes to it again.
    with = Defaults();
    const auto weak = Trace({{12, 16, 0.5F}, {17, 20, 10}});
    const auto strong = Trace({{12, 20, 10}});
    with.StartShift = -7;
    EXPECT_EQ(Words(with, {weak, strong}), (std::vector{120, 260}));
    with.ReferenceTrace = 2;
    EXPECT_EQ(Words(with, {strong, strong, weak}), (std::vector{410, 270, 120}));
}

TEST(AutomaticPicking, DeadTracesTakeOverTheLastPick) {
    AutomaticPickingParameters with = Defaults();
    with.StartShift = -3;
    const auto at = [](int sample) { return Trace({{sample, sample + 8, 10}}); };
    EXPECT_EQ(Words(with, {at(12), at(12), at(14), at(28)}, {{1, true}, {3, true}}),
              (std::vector{0, 120, 120, 280}));
    // A dead reference trace gets, in the backward pass, the pick of the far end.
    with.ReferenceTrace = 2;
    EXPECT_EQ(Words(with, {at(10), at(12), at(14)}, {{2, true}}), (std::vector{100, 140, 140}));
}

TEST(AutomaticPicking, ReferenceTraceAtTheEndsAndOutside) {
    AutomaticPickingParameters with = Defaults();
    const auto trace = Trace({{12, 20, 10}});
    with.StartShift = -5;
    with.ReferenceTrace = 3;
    EXPECT_EQ(Words(with, {trace, trace, trace}), (std::vector{120, 120, 120}));
    with.ReferenceTrace = 9;  // of another record: nothing outside this one is touched
    EXPECT_EQ(Words(with, {trace, trace, trace}), (std::vector{120, 120, 120}));
    EXPECT_EQ(Words(with, {trace}), std::vector{-1});
}

TEST(AutomaticPicking, RepairsLowSpikesInPlace) {
    struct Case {
        std::vector<std::int16_t> Before;
        std::vector<std::int16_t> After;
    };
    for (const Case& each : std::vector<Case>{
             {{100, 20, 121}, {100, 110, 121}},                  // 110.5 to even
             {{100, 20, 30, 100}, {100, 65, 82, 100}},           // 65 serves for the next step
             {{100, 50, 80, 60, 200}, {100, 90, 80, 140, 200}},  // 80 is not below 60
             {{100, 300, 100}, {100, 300, 100}},
             {{32767, -5, 32767}, {32767, 32767, 32767}},
             {{5, 1}, {5, 1}},
         }) {
        auto words = each.Before;
        Repair_Low_Spikes(words);
        EXPECT_EQ(words, each.After);
    }
}

}  // namespace
}  // namespace tarnvik
