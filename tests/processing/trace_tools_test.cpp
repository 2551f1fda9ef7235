#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <set>
#include <tuple>

#include "support/su_builder.h"
#include "traces_support.h"

namespace tarnvik::test {
namespace {

constexpr int delrt_at = 108;
constexpr int tracl_at = 0;
constexpr int cdp_at = 20;
constexpr int offset_at = 36;
constexpr int f1_at = 184;

/// Traces whose sample i, from 1, is 1000 * trace + i; `tracl` runs from 1.
SuBuilder Counted(int traces, int samples, int interval_us) {
    SuBuilder su(traces, samples, interval_us);
    for (int trace = 1; trace <= traces; ++trace) {
        su.Put32(trace, tracl_at, trace);
        for (int i = 1; i <= samples; ++i)
            su.Sample(trace, i, static_cast<float>(1000 * trace + i));
    }
    return su;
}

TEST(TraceStream, RefusesWhatIsNoWholeStreamOfEqualTraces) {
    const SuBuilder good = Counted(40, 500, 250).Records(4);
    SuBuilder varying = good;
    varying.Put16(37, 114, 499);
    SuBuilder without_ns = good;
    without_ns.Put16(1, 114, 0);
    std::string turned = good.Bytes;
    for (std::size_t at = 0; at < turned.size(); at += 240 + 4 * 500) {
        for (int word = 1; word <= header_words; ++word) {
            const HeaderWord& row = Header_Word(word);
            const auto from = turned.begin() + static_cast<std::ptrdiff_t>(at) + row.Offset;
            std::reverse(from, from + (row.Type == WordType::Int16 ? 2 : 4));
        }
    }
    const std::string cut = good.Bytes.substr(0, good.Bytes.size() - 1);
    const struct {
        std::string Bytes;
        std::string Told;
    } cases[] = {
        {"", "empty"},
        {good.Bytes.substr(0, 239), "239 bytes"},
        {cut, "trace 40 is cut short: 2239 bytes instead of 2240"},
        {varying.Bytes, "trace 37: ns = 499, the traces before have 500"},
        {without_ns.Bytes, "trace 1: ns, the number of samples, is 0"},
        {turned, "big-endian"},
        {std::string(5000, 'a'), "text file"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.Told);
        for (const TraceTool& tool : Trace_Tools()) {
            const Outcome known = Run_Traces(tool.Name, {}, one.Bytes);
            EXPECT_NE(known.Result.Failure.find(one.Told), std::string::npos) << known.Result.Failure;
            // Where the length is known, a cut file is refused before anything is written.
            EXPECT_TRUE(known.Bytes.empty() || one.Bytes == varying.Bytes) << tool.Name;
            Trickle pipe(one.Bytes);
            const Outcome unknown = Run_Traces(tool.Name, {}, pipe);
            EXPECT_NE(unknown.Result.Failure.find(one.Told), std::string::npos) << unknown.Result.Failure;
        }
    }
}

TEST(TraceStream, PassesLargeAndSmallTracesThroughUnchanged) {
    // Longer than a block, about a block, and many in a block with a remainder; also above 32767 samples.
    for (const int samples : {65535, 40000, 4000, 3, 1}) {
        const std::string bytes = Counted(samples > 1000 ? 9 : 5000, samples, 250).Bytes;
        Trickle pipe(bytes);
        EXPECT_EQ(Run_Traces("suwind", {}, pipe).Bytes, bytes) << samples;
        EXPECT_EQ(Run_Traces("sushw", {"key=cdp"}, bytes).Bytes, bytes) << samples;
        EXPECT_EQ(Run_Traces("susort", {"tracl"}, bytes).Bytes, bytes) << samples;
    }
}

TEST(Arguments, OnesThatCannotBeUnderstoodAreTold) {
    const std::string bytes = Counted(2, 10, 250).Bytes;
    const struct {
        std::string Tool;
        std::vector<std::string> Given;
        std::string Told;
    } cases[] = {
        {"suwind", {"keys=tracl"}, "no argument keys"},
        {"suwind", {"key=nonsense"}, "\"nonsense\""},
        {"suwind", {"min=1x"}, "min=1x"},
        {"suwind", {"min="}, "min="},
        {"suwind", {"max=nan"}, "max=nan"},
        {"suwind", {"count=1.5"}, "count=1.5"},
        {"suwind", {"j=0"}, "j=0"},
        {"suwind", {"tmin=0.002", "tmax=0.001"}, "ends before it begins"},
        {"suwind", {"tmax=1e300"}, "does not fit"},
        {"suwind", {"tracl"}, "name=value"},
        {"sushw", {"key=ep,fldr", "a=1"}, "a= has 1 values for 2 keys"},
        {"sushw", {"key=ep", "j=-1"}, "j=-1"},
        {"sushw", {"key=ns", "a=9"}, "trace 1: ns must stay 10"},
        {"susort", {"+tracl=1"}, "\"tracl=1\""},
        {"sustack", {"key=tracl,ep"}, "\"tracl,ep\""},
        {"suresamp", {"nt=0"}, "nt=0"},
        {"suresamp", {"dt=0"}, "dt=0"},
        {"suresamp", {"dt=0.0000625"}, "whole microseconds"},
        {"suresamp", {"tmin=40"}, "delrt"},
    };
    for (const auto& one : cases) {
        const Outcome outcome = Run_Traces(one.Tool, one.Given, bytes);
        EXPECT_NE(outcome.Result.Failure.find(one.Told), std::string::npos)
            << one.Tool << ": " << outcome.Result.Failure;
        EXPECT_EQ(outcome.Bytes, "");
    }
}

TEST(Window, KeepsTracesByTheirWord) {
    constexpr int traces = 3000;  // several blocks
    SuBuilder su = Counted(traces, 60, 250);
    for (int trace = 1; trace <= traces; ++trace)
        su.Put32(trace, cdp_at, (trace * 7) % 50 - 10);
    const auto kept = [&](const std::vector<std::string>& arguments) {
        const Outcome outcome = Run_Traces("suwind", arguments, su.Bytes);
        EXPECT_EQ(outcome.Result.Failure, "");
        return Values_Of(outcome.Bytes, "tracl");
    };
    const auto expected = [&](const auto& rule) {
        std::vector<double> list;
        for (int trace = 1; trace <= traces; ++trace) {
            if (rule(trace, (trace * 7) % 50 - 10)) list.push_back(trace);
        }
        return list;
    };
    EXPECT_EQ(kept({"min=5", "max=2990"}), expected([](int n, int) { return n >= 5 && n <= 2990; }));
    EXPECT_EQ(kept({"key=cdp", "min=-8.5", "max=+3"}),
              expected([](int, int k) { return k >= -8 && k <= 3; }));
    EXPECT_EQ(kept({"key=CDP", "j=4", "s=-9", "min=-10"}),
              expected([](int, int k) { return (k + 9) % 4 == 0; }));
    EXPECT_EQ(kept({"key=cdp", "max=-100", "accept=4,-2,7", "reject=7"}),
              expected([](int, int k) { return k == 4 || k == -2; }));
    // Pieces of many traces and of few behind each other.
    EXPECT_EQ(kept({"reject=1000"}), expected([](int n, int) { return n != 1000; }));
    int passed = 0;
    EXPECT_EQ(kept({"key=cdp", "min=0", "skip=1500", "count=900"}),
              expected([&](int n, int k) { return n > 1500 && k >= 0 && ++passed <= 900; }));
    EXPECT_EQ(kept({"min=9000"}), std::vector<double>());
    // The traces come whole.
    const Outcome one = Run_Traces("suwind", {"min=2000", "max=2000"}, su.Bytes);
    EXPECT_EQ(one.Bytes, Traces_Of(su.Bytes)[1999]);
}

TEST(Window, CutsTheTimeAskedForFromEveryTrace) {
    // Starts before, at and after the shot; 100 samples of 0.25 ms.
    const int starts[] = {-10, 0, 7, 300};
    SuBuilder su = Counted(4, 100, 250);
    for (int trace = 1; trace <= 4; ++trace)
        su.Put16(trace, delrt_at, starts[trace - 1]);
    const struct {
        std::vector<std::string> Given;
        double FromMs;
        double ToMs;
    } cases[] = {
        {{"tmin=0", "tmax=0.005"}, 0, 5},
        {{"tmin=0.0021", "tmax=0.0299"}, 2, 30},  // nearest samples; beyond the ends there are zeros
        {{"tmin=-0.02"}, -20, 14.75},             // to the end of the first trace
        {{"tmax=0.001"}, -10, 1},
        {{"tmin=0.001", "nt=3"}, 1, 1.5},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.Given[0]);
        const Outcome outcome = Run_Traces("suwind", one.Given, su.Bytes);
        ASSERT_EQ(outcome.Result.Failure, "");
        EXPECT_TRUE(outcome.Result.Notes.empty());
        const auto count = static_cast<std::size_t>((one.ToMs - one.FromMs) / 0.25) + 1;
        EXPECT_EQ(Values_Of(outcome.Bytes, "ns"), std::vector<double>(4, static_cast<double>(count)));
        EXPECT_EQ(Values_Of(outcome.Bytes, "delrt"), std::vector<double>(4, one.FromMs));
        for (std::size_t trace = 0; trace < 4; ++trace) {
            std::vector<float> expected(count);
            for (std::size_t i = 0; i < count; ++i) {
                const double sample = (one.FromMs - starts[trace]) / 0.25 + static_cast<double>(i);
                if (sample >= 0 && sample < 100)
                    expected[i] = static_cast<float>(1000.0 * (trace + 1.0) + sample + 1);
            }
            EXPECT_EQ(Samples_Of(outcome.Bytes, trace), expected) << trace;
        }
    }
    // In samples each trace is cut at the same place of its own.
    const Outcome samples = Run_Traces("suwind", {"itmin=4", "itmax=7"}, su.Bytes);
    EXPECT_EQ(Values_Of(samples.Bytes, "delrt"), (std::vector<double>{-9, 1, 8, 301}));
    EXPECT_EQ(Samples_Of(samples.Bytes, 2), (std::vector<float>{3005, 3006, 3007, 3008}));
    // A start that delrt cannot hold is rounded and told.
    const Outcome between = Run_Traces("suwind", {"tmin=0.00325", "tmax=0.004"}, su.Bytes);
    EXPECT_EQ(Values_Of(between.Bytes, "delrt")[0], 3);
    ASSERT_EQ(between.Result.Notes.size(), 1U);
    EXPECT_NE(between.Result.Notes[0].find("3.25 ms"), std::string::npos);

    su.Put16(3, 116, 500);
    EXPECT_NE(Run_Traces("suwind", {"tmax=0.001"}, su.Bytes).Result.Failure.find("trace 3: dt = 500"),
              std::string::npos);
    su.Put16(1, 116, 0);
    EXPECT_NE(Run_Traces("suwind", {"tmax=0.001"}, su.Bytes).Result.Failure.find("dt"), std::string::npos);
}

TEST(HeaderWords, FollowTheFormula) {
    const SuBuilder su = Counted(2000, 30, 250);
    const Outcome outcome = Run_Traces("sushw",
                                       {"key=fldr,f1,Shot St,delrt", "a=1,0.5,-7,100", "b=0,0.25,3,-1",
                                        "c=1,-2,10,5", "d=0,0,-9,3", "j=24,10,6,0"},
                                       su.Bytes);
    ASSERT_EQ(outcome.Result.Failure, "");
    EXPECT_EQ(outcome.Result.Written, 2000);
    const auto record = Values_Of(outcome.Bytes, "fldr");
    const auto first = Values_Of(outcome.Bytes, "f1");
    const auto station = Values_Of(outcome.Bytes, "shotst");
    const auto start = Values_Of(outcome.Bytes, "delrt");
    for (int n = 0; n < 2000; ++n) {
        const auto i = static_cast<std::size_t>(n);
        ASSERT_EQ(record[i], 1 + n / 24);
        ASSERT_EQ(first[i], 0.5 + 0.25 * (n % 10) - 2.0 * (n / 10));
        const double group = std::floor((n - 9) / 6.0);
        ASSERT_EQ(station[i], -7 + 3 * (n - 9 - 6 * group) + 10 * group) << n;
        ASSERT_EQ(start[i], 100 - (n + 3));
    }
    // No other byte changed.
    const std::set<std::int64_t> words = {8, 9, 10, 11, 184, 185, 186, 187, 228, 229, 230, 231, 108, 109};
    for (const std::int64_t byte : Changed_Bytes(su.Bytes, outcome.Bytes))
        ASSERT_TRUE(words.count(byte % 360)) << byte;
    // 16 and 32 bits and float have their ends; rounding is to the nearest, halves to even.
    EXPECT_EQ(Run_Traces("sushw", {"key=delrt", "a=-32768", "b=65535", "j=2"}, su.Bytes).Result.Failure, "");
    const Outcome small = Run_Traces("sushw", {"key=delrt", "b=20"}, su.Bytes);
    EXPECT_EQ(small.Result.Failure, "trace 1640: 32780 does not fit the header word delrt");
    EXPECT_NE(Run_Traces("sushw", {"key=sx", "a=2147483648"}, su.Bytes).Result.Failure, "");
    EXPECT_NE(Run_Traces("sushw", {"key=d1", "a=1e39"}, su.Bytes).Result.Failure, "");
    const auto halves = Values_Of(Run_Traces("sushw", {"key=sx", "a=-0.5"}, su.Bytes).Bytes, "sx");
    EXPECT_EQ(halves[0], 0);
}

TEST(Sorting, IsStableByAllKeysFromFileAndPipe) {
    std::mt19937 random(5);
    constexpr int traces = 4000;
    SuBuilder su = Counted(traces, 50, 250);
    std::vector<std::array<double, 3>> keys;
    for (int trace = 1; trace <= traces; ++trace) {
        const int cdp = static_cast<int>(random() % 9) - 4;
        const int offset = static_cast<int>(random() % 7) - 3;
        const auto f1 = static_cast<float>(random() % 3) * 0.5F;
        su.Put32(trace, cdp_at, cdp).Put32(trace, offset_at, offset).Put_Float(trace, f1_at, f1);
        keys.push_back({static_cast<double>(cdp), static_cast<double>(offset), static_cast<double>(f1)});
    }
    const auto expected = [&](const auto& less) {
        std::vector<int> order(traces);
        std::iota(order.begin(), order.end(), 0);
        std::stable_sort(order.begin(), order.end(), [&](int one, int other) {
            return less(keys[static_cast<std::size_t>(one)], keys[static_cast<std::size_t>(other)]);
        });
        const std::vector<std::string> all = Traces_Of(su.Bytes);
        std::string bytes;
        for (const int trace : order)
            bytes += all[static_cast<std::size_t>(trace)];
        return bytes;
    };
    const auto by_default = expected([](const auto& one, const auto& other) {
        return std::tie(one[0], one[1]) < std::tie(other[0], other[1]);
    });
    const auto mixed = expected([](const auto& one, const auto& other) {
        return std::tie(other[2], one[1], other[0]) < std::tie(one[2], other[1], one[0]);
    });
    EXPECT_TRUE(Run_Traces("susort", {}, su.Bytes).Bytes == by_default);
    EXPECT_TRUE(Run_Traces("susort", {"-f1", "offset", "-cdp"}, su.Bytes).Bytes == mixed);
    Trickle pipe(su.Bytes);
    EXPECT_TRUE(Run_Traces("susort", {"-f1", "+offset", "-cdp"}, pipe).Bytes == mixed);

    // What is no number comes last, whichever way.
    su.Put_Float(1, f1_at, std::numeric_limits<float>::quiet_NaN());
    for (const char* key : {"+f1", "-f1"})
        EXPECT_EQ(Values_Of(Run_Traces("susort", {key}, su.Bytes).Bytes, "tracl").back(), 1) << key;
}

TEST(Stacking, DividesByTheContributionsThatAreNotZero) {
    // Groups of 3, 1 and 2 traces; the last has the key of the first and stays a group of its own.
    SuBuilder su(6, 4, 250);
    const int keys[] = {5, 5, 5, 2, 5, 5};
    const std::vector<float> samples[] = {{1, 0, 4, 0}, {2, 0, 0, 0}, {6, 3, -4, 0},
                                          {7, 8, 9, 0}, {1, 1, 1, 1}, {2, 0, -1, 4}};
    for (int trace = 1; trace <= 6; ++trace)
        su.Put32(trace, tracl_at, trace).Put32(trace, 12, keys[trace - 1]).Samples(trace, samples[trace - 1]);
    const auto root = static_cast<float>(std::sqrt(2.0));
    const struct {
        std::string Power;
        std::vector<float> First;
        std::vector<float> Last;
    } cases[] = {
        {"1", {3, 3, 0, 0}, {1.5F, 1, 0, 2.5F}},
        {"0", {9, 3, 0, 0}, {3, 1, 0, 5}},
        {"0.5", {static_cast<float>(9 / std::sqrt(3.0)), 3, 0, 0}, {3 / root, 1, 0, 5 / root}},
    };
    for (const auto& one : cases) {
        const Outcome outcome = Run_Traces("sustack", {"key=tracf", "normpow=" + one.Power}, su.Bytes);
        ASSERT_EQ(outcome.Result.Failure, "");
        EXPECT_EQ(Values_Of(outcome.Bytes, "tracl"), (std::vector<double>{1, 4, 5}));
        EXPECT_EQ(Values_Of(outcome.Bytes, "nhs"), (std::vector<double>{3, 1, 2}));
        const std::vector<float>* expected[] = {&one.First, &samples[3], &one.Last};
        for (std::size_t group = 0; group < 3; ++group) {
            for (std::size_t i = 0; i < 4; ++i)
                EXPECT_FLOAT_EQ(Samples_Of(outcome.Bytes, group)[i], (*expected[group])[i])
                    << group << " " << i;
        }
    }
    EXPECT_EQ(Run_Traces("sustack", {"key=tracf"}, su.Bytes).Bytes,
              Run_Traces("sustack", {"key=tracf", "normpow=1"}, su.Bytes).Bytes);
    su.Put16(2, 116, 500);
    EXPECT_NE(Run_Traces("sustack", {"key=tracf"}, su.Bytes).Result.Failure.find("trace 2: dt = 500"),
              std::string::npos);
    // More traces than the word for their number can tell.
    EXPECT_NE(Run_Traces("sustack", {"key=ep"}, SuBuilder(32768, 1).Bytes).Result.Failure.find("nhs"),
              std::string::npos);
}

/// Sines up to `highest` Hz all along; peak below 1.
double Signal(double seconds, double highest) {
    double sum = 0;
    for (const double part : {0.13, 0.37, 0.61, 0.8, 1.0})
        sum += std::sin(2 * M_PI * part * highest * seconds + 9 * part) / 5;
    return sum;
}

/// Two traces of the signal, the first of which starts 3 ms earlier.
SuBuilder Sampled(int samples, int interval_us, int delrt_ms, double highest) {
    SuBuilder su(2, samples, interval_us);
    for (int trace = 1; trace <= 2; ++trace) {
        const int start = delrt_ms - (trace == 1 ? 3 : 0);
        su.Put16(trace, delrt_at, start);
        for (int i = 0; i < samples; ++i)
            su.Sample(trace, i + 1,
                      static_cast<float>(Signal(start * 1e-3 + i * interval_us * 1e-6, highest)));
    }
    return su;
}

double Largest_Error(const std::string& bytes, double highest, double margin_s, double begins, double ends) {
    const std::vector<float> samples = Samples_Of(bytes, 1);
    const double start = Values_Of(bytes, "delrt")[1] * 1e-3;
    const double interval = Values_Of(bytes, "dt")[1] * 1e-6;
    double largest = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double time = start + static_cast<double>(i) * interval;
        if (time < begins + margin_s || time > ends - margin_s) continue;
        largest = std::max(largest, std::abs(static_cast<double>(samples[i]) - Signal(time, highest)));
    }
    return largest;
}

TEST(Resampling, BringsABandLimitedSignalBack) {
    // 1 s from -100 ms; signal up to 0.85 of the coarsest Nyquist frequency met on the way.
    const struct {
        int From;
        std::string To;
        int Coarsest;
    } cases[] = {{500, "0.000125", 500},
                 {500, "0.001", 1000},
                 {250, "0.001003", 1003},
                 {333, "0.0005", 500},
                 {1000, "0.000999", 1000}};
    for (const auto& one : cases) {
        SCOPED_TRACE(one.To);
        const double highest = 0.85 * 0.5e6 / one.Coarsest;
        const double margin = 48e-6 * one.Coarsest;
        const int samples = 1000000 / one.From;
        const double ends = -0.1 + (samples - 1) * one.From * 1e-6;
        const SuBuilder su = Sampled(samples, one.From, -100, highest);
        const int nt = static_cast<int>(1.0 / std::stod(one.To));
        const Outcome there = Run_Traces("suresamp", {"dt=" + one.To, "nt=" + std::to_string(nt)}, su.Bytes);
        ASSERT_EQ(there.Result.Failure, "");
        EXPECT_EQ(Values_Of(there.Bytes, "dt")[0], std::round(std::stod(one.To) * 1e6));
        EXPECT_EQ(Values_Of(there.Bytes, "ns")[0], nt);
        EXPECT_EQ(Values_Of(there.Bytes, "delrt"), (std::vector<double>{-103, -100}));
        EXPECT_LT(Largest_Error(there.Bytes, highest, margin, -0.1, ends), 1e-3);
        const Outcome back =
            Run_Traces("suresamp", {"dt=" + std::to_string(one.From * 1e-6), "nt=" + std::to_string(samples)},
                       there.Bytes);
        EXPECT_LT(Largest_Error(back.Bytes, highest, 2 * margin, -0.1, ends), 1e-3);
    }
}

TEST(Resampling, KeepsTimesAndTakesOutWhatTheNewIntervalCannotHold) {
    const SuBuilder su = Sampled(2000, 500, 20, 200);
    // From another start, at and between samples: zeros outside the trace.
    const Outcome later = Run_Traces("suresamp", {"tmin=0.005", "dt=0.0004", "nt=2600"}, su.Bytes);
    EXPECT_EQ(Values_Of(later.Bytes, "delrt")[0], 5);
    EXPECT_LT(Largest_Error(later.Bytes, 200, 0.024, 0.02, 1.0195), 1e-3);
    const std::vector<float> samples = Samples_Of(later.Bytes, 1);
    EXPECT_EQ(std::count(samples.begin(), samples.begin() + 38, 0.0F), 38);
    EXPECT_NE(samples[38], 0.0F);  // 20.2 ms
    EXPECT_EQ(std::count(samples.begin() + 2537, samples.end(), 0.0F), 2600 - 2537);
    // The same sampling gives the same samples.
    EXPECT_EQ(Run_Traces("suresamp", {"dt=0.0005"}, su.Bytes).Bytes, su.Bytes);

    // What lies above 500 Hz cannot stand at 1 ms and must not come back as something lower, however near.
    SuBuilder high(2, 4000, 250);
    SuBuilder ramp(1, 4000, 250);
    for (int i = 0; i < 4000; ++i) {
        for (const int trace : {1, 2})
            high.Sample(trace, i + 1,
                        static_cast<float>(std::sin(2 * M_PI * (trace == 1 ? 505 : 700) * i * 250e-6)));
        ramp.Sample(1, i + 1, static_cast<float>(0.01 * i - 7));
    }
    const std::string gone = Run_Traces("suresamp", {"dt=0.001", "nt=1000"}, high.Bytes).Bytes;
    for (std::size_t i = 50; i < 950; ++i) {
        ASSERT_LT(std::abs(Samples_Of(gone, 0)[i]), 1e-3F) << i;
        ASSERT_LT(std::abs(Samples_Of(gone, 1)[i]), 1e-3F) << i;
    }
    // A ramp stays one up to its ends.
    const std::vector<float> straight =
        Samples_Of(Run_Traces("suresamp", {"dt=0.0017", "nt=588"}, ramp.Bytes).Bytes, 0);
    for (std::size_t i = 0; i < straight.size(); ++i)
        ASSERT_NEAR(straight[i], 0.01 * (static_cast<double>(i) * 1700 / 250) - 7, 1e-3) << i;
}

}  // namespace
}  // namespace tarnvik::test
