#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstring>
#include <limits>
#include <numbers>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "core/files.h"
#include "core/project_file.h"
#include "processing/filters/filter_file.h"
#include "processing/filters/hum.h"
#include "processing/filters/spectrum.h"
#include "processing/filters/trace_filter.h"
#include "records/onset.h"
#include "records/su_file.h"
#include "support/su_builder.h"
#include "support/test_ports.h"
#include "traces_support.h"

namespace tarnvik::test {
namespace {

constexpr double pi = std::numbers::pi;
using Trace = std::vector<float>;

/// The Fourier integral of a trace at one frequency, phases from sample `origin` (from 0) on.
std::complex<double> Transform_At(const Trace& trace, double hertz, double interval_us, double origin = 0) {
    std::complex<double> sum;
    for (std::size_t i = 0; i < trace.size(); ++i) {
        const double angle = -2 * pi * hertz * (static_cast<double>(i) - origin) * interval_us * 1e-6;
        sum += double{trace[i]} * std::polar(1.0, angle);
    }
    return sum;
}

Trace Sinusoid(int samples, double hertz, double interval_us, double amplitude = 1, double phase = 0) {
    Trace trace;
    for (int i = 0; i < samples; ++i)
        trace.push_back(
            static_cast<float>(amplitude * std::cos(2 * pi * hertz * i * interval_us * 1e-6 + phase)));
    return trace;
}

Trace Sum(Trace a, const Trace& b) {
    std::transform(a.begin(), a.end(), b.begin(), a.begin(), std::plus<>());
    return a;
}

/// A break as a hammer makes it: nothing, then a swing of 60 Hz that dies away.
Trace Break(int samples, double onset, double interval_us, double amplitude = 1, double decay_ms = 12) {
    Trace trace;
    for (int i = 0; i < samples; ++i) {
        const double ms = (i - onset) * interval_us / 1000;
        trace.push_back(
            ms < 0 ? 0.0F
                   : static_cast<float>(amplitude * std::sin(2 * pi * 0.06 * ms) * std::exp(-ms / decay_ms)));
    }
    return trace;
}

Trace Noise(int samples, double size, unsigned seed) {
    std::mt19937 random(seed);
    std::normal_distribution<float> normal(0, static_cast<float>(size));
    Trace trace(static_cast<std::size_t>(samples));
    std::generate(trace.begin(), trace.end(), [&] { return normal(random); });
    return trace;
}

Trace Filtered(Trace trace, const FilterChoice& choice, double interval_us, double start_ms = 0) {
    EXPECT_EQ(Refusal(choice, static_cast<int>(trace.size()), interval_us), "");
    TraceFilter(choice, static_cast<int>(trace.size()), interval_us).Apply(trace, start_ms, choice.Reverse);
    return trace;
}

double Largest_Difference(const Trace& a, const Trace& b, std::size_t from = 0) {
    double largest = 0;
    for (std::size_t i = from; i < a.size(); ++i)
        largest = std::max(largest, std::abs(double{a[i]} - b[i]));
    return largest;
}

double Size_Of(const Trace& trace) {
    return std::sqrt(std::inner_product(trace.begin(), trace.end(), trace.begin(), 0.0) /
                     static_cast<double>(trace.size()));
}

FilterChoice Band_Of(double f1, double f2, double f3, double f4) {
    FilterChoice choice;
    choice.Band = BandPass{f1, f2, f3, f4};
    return choice;
}

FilterChoice Hum_Of(double hertz, int harmonics) {
    FilterChoice choice;
    choice.Hum = HumChoice{hertz, harmonics};
    return choice;
}

TEST(BandPass, has_the_response_of_its_formula_and_turns_no_phase) {
    // A spike tells the response at all frequencies at once. The trace is long enough for the echo of the
    // slopes.
    constexpr int samples = 4000;
    constexpr double interval = 250;
    constexpr std::size_t place = 1900;
    for (const FilterChoice& choice :
         {Band_Of(8, 16, 150, 250), Band_Of(0, 0, 100, 160), Band_Of(20, 40, 2000, 2000)}) {
        Trace spike(samples);
        spike[place] = 1;
        const Trace out = Filtered(spike, choice, interval);
        const BandPass& band = *choice.Band;
        for (double hertz = 0; hertz < 400; hertz += 1.7) {
            const double rise = std::sin(pi / 2 * (hertz - band.F1) / (band.F2 - band.F1));
            const double fall = std::cos(pi / 2 * (hertz - band.F3) / (band.F4 - band.F3));
            const double wanted = hertz < band.F1 || hertz > band.F4 ? 0
                                  : hertz < band.F2                  ? rise * rise
                                  : hertz > band.F3                  ? fall * fall
                                                                     : 1;
            const std::complex<double> got = Transform_At(out, hertz, interval, place);
            ASSERT_NEAR(got.real(), wanted, 0.005) << hertz << " Hz";
            ASSERT_NEAR(got.imag(), 0, 0.002) << hertz << " Hz";
        }
        double asymmetry = 0;
        for (std::size_t i = 1; i < 1500; ++i)
            asymmetry = std::max(asymmetry, std::abs(double{out[place - i]} - out[place + i]));
        EXPECT_LT(asymmetry, 1e-4 * out[place]);
    }
    // What lies far from the corners comes through as it was, whatever its phase.
    const Trace tone = Sinusoid(samples, 70, interval, 3, 0.7);
    const Trace out = Filtered(tone, Band_Of(8, 16, 150, 250), interval);
    for (std::size_t i = 800; i < 3200; ++i)
        ASSERT_NEAR(out[i], tone[i], 0.01 * 3);
}

TEST(BandPass, has_quiet_ends) {
    constexpr int samples = 500;
    constexpr double interval = 250;
    const FilterChoice choice = Band_Of(8, 16, 150, 250);
    // Neither an offset nor what happens at the other end is seen at an end.
    const Trace offset(samples, 5e6F);
    for (const float value : Filtered(offset, choice, interval))
        ASSERT_LT(std::abs(value), 1);
    const Trace passed = Filtered(offset, Band_Of(0, 0, 100, 200), interval);
    EXPECT_NEAR(passed.front(), 5e6, 1);
    EXPECT_NEAR(passed.back(), 5e6, 1);
    // Of a wave that is cut off at the end, the beginning gets what it gets behind a long silence.
    Trace late(samples);
    for (std::size_t i = 440; i < samples; ++i)
        late[i] = static_cast<float>(1000 * std::sin(2 * pi * 50 * static_cast<double>(i - 440) * 250e-6));
    Trace behind_silence(6 * samples);
    std::copy(late.begin(), late.end(), behind_silence.end() - samples);
    const Trace longer = Filtered(behind_silence, choice, interval);
    EXPECT_LT(Largest_Difference(Filtered(late, choice, interval), {longer.end() - samples, longer.end()}),
              5);
}

TEST(BandPass, the_usual_one_leaves_first_breaks_in_their_place) {
    // The demo records, at the exact times of their project, on all traces where noise does not hide them.
    const std::string folder = DEMO_FOLDER;
    Project line;
    Parse_Project(Read_File(folder + "/demo1.tv5").value_or(""), line);
    SuTraces records(folder + "/demo1.su");
    const int samples = records.Nb_Samples();
    const double interval = records.Sample_Interval();
    FilterChoice usual;
    usual.Band = Band_Presets(interval).front().Band;
    TraceFilter filter(usual, samples, interval);
    int compared = 0;
    for (int trace = 1; trace <= records.Nb_Traces(); ++trace) {
        const double pick =
            line.ShotTimes((trace - 1) / line.NbReceivers + 1, (trace - 1) % line.NbReceivers + 1);
        Trace before(static_cast<std::size_t>(samples));
        records.Samples(trace, before);
        const double noise = Size_Of({before.begin(), before.begin() + static_cast<int>(pick * 2)});
        const double top = *std::max_element(before.begin(), before.end());
        if (pick < 5 || records.Word(trace, words::trid) != live_trace || top < 100 * noise) continue;
        Trace after = before;
        filter.Apply(after, 0, false);
        const double near = pick * 1000 / interval;
        const auto was = Find_Onset(before, near, 20);
        const auto is = Find_Onset(after, near, 20);
        ASSERT_TRUE(was && is) << trace;
        EXPECT_NEAR(*is, *was, 1) << "trace " << trace;
        ++compared;
    }
    EXPECT_GT(compared, 60);

    // And breaks under noise, drift and an offset, at any sampling.
    for (const double us : {125.0, 250.0, 500.0, 1000.0}) {
        FilterChoice choice;
        choice.Band = Band_Presets(us).front().Band;
        double moved = 0;
        for (unsigned seed = 0; seed <= 10; ++seed) {
            const double onset = 150 + seed * 3.7;
            Trace trace = Sum(Break(600, onset, us), Noise(600, seed == 0 ? 0 : 0.003, seed));
            for (std::size_t i = 0; i < trace.size(); ++i)
                trace[i] += 3 + 0.001F * static_cast<float>(i);
            const auto was = Find_Onset(trace, onset, 20);
            const auto is = Find_Onset(Filtered(trace, choice, us), onset, 20);
            ASSERT_TRUE(was && is);
            // Where a pick lies in noise is a matter of luck by itself.
            EXPECT_NEAR(*is, *was, seed == 0 ? 0.5 : 2) << us << " us, seed " << seed;
            moved += *is - *was;
        }
        EXPECT_LT(std::abs(moved / 11), 0.5) << us;
    }
}

TEST(Hum, goes_from_short_records_and_leaves_the_signal) {
    // A fifth of a second; the break is far stronger than the hum, or far weaker, and its own frequency is
    // near the hum's.
    constexpr int samples = 800;
    constexpr double interval = 250;
    for (const double strength : {0.3, 1.0, 30.0}) {
        for (const double onset : {60.0, 200.0, 420.0}) {
            const Trace signal = Break(samples, onset, interval, strength);
            Trace dirty = signal;
            for (const int multiple : {1, 2, 3})
                dirty = Sum(dirty, Sinusoid(samples, 50 * multiple, interval, 1.0 / multiple, multiple));
            const Trace out = Filtered(dirty, Hum_Of(50, 2), interval);
            EXPECT_LT(Largest_Difference(out, signal), 0.02) << strength << " from " << onset;
        }
    }
    // Noise hides neither; an offset stays.
    Trace noisy = Sum(Break(samples, 200, interval, 10), Noise(samples, 0.1, 7));
    for (float& value : noisy)
        value += 1000;
    const Trace out = Filtered(Sum(noisy, Sinusoid(samples, 60, interval, 2, 1)), Hum_Of(60, 0), interval);
    EXPECT_LT(Largest_Difference(out, noisy), 0.1);
    // Multiples from the Nyquist frequency on are none.
    const Trace slow = Filtered(Sinusoid(400, 150, 2000, 1, 0.4), Hum_Of(50, 20), 2000);
    EXPECT_LT(Size_Of(slow), 1e-4);
}

TEST(Hum, takes_from_an_even_trace_what_its_formula_tells) {
    constexpr int samples = 2000;
    constexpr double interval = 250;
    const double length = samples * interval * 1e-6;
    for (const double d : {1.0, 1.5, 2.0, 2.5, 3.5, 6.0}) {
        const Trace tone = Sinusoid(samples, 50 + d / length, interval, 1, 0.3);
        const Trace out = Filtered(tone, Hum_Of(50, 0), interval);
        Trace taken = tone;
        for (std::size_t i = 0; i < taken.size(); ++i)
            taken[i] -= out[i];
        const double wanted = d == 1 ? 0.5 : std::abs(std::sin(pi * d) / (pi * d * (1 - d * d)));
        EXPECT_NEAR(Size_Of(taken) * std::sqrt(2.0), wanted, 0.01) << "at " << d;
    }
    // No phase is turned: a pulse in the middle stays symmetric.
    Trace pulse(samples + 1);
    for (std::size_t i = 0; i < pulse.size(); ++i) {
        const double ms = (static_cast<double>(i) - 1000) * 0.25;
        pulse[i] = static_cast<float>(std::exp(-ms * ms / 50) + 0.2 * std::cos(2 * pi * 0.05 * ms));
    }
    const Trace out = Filtered(pulse, Hum_Of(50, 0), interval);
    for (std::size_t i = 0; i < 1000; ++i)
        ASSERT_NEAR(out[1000 - i], out[1000 + i], 1e-3);
}

TEST(TraceFilter, levels_and_cuts_by_values_known_by_hand) {
    FilterChoice mean;
    mean.RemoveMean = true;
    EXPECT_EQ(Filtered({1, 2, 3, 6}, mean, 0), (Trace{-2, -1, 0, 3}));
    FilterChoice drift;
    drift.RemoveDrift = true;
    EXPECT_LT(Size_Of(Filtered({5, 7, 9, 11, 13}, drift, 0)), 1e-6);
    EXPECT_LT(Largest_Difference(Filtered({0, 1, 0, 1, 0}, drift, 0), {-0.4F, 0.6F, -0.4F, 0.6F, -0.4F}),
              1e-6);
    FilterChoice balance;
    balance.Balance = balance.Reverse = true;
    EXPECT_LT(Largest_Difference(Filtered({6, -8, 0, 0}, balance, 0), {-1.2F, 1.6F, 0, 0}), 1e-6);
    EXPECT_EQ(Filtered({0, 0, 0}, balance, 0), (Trace{0, 0, 0}));

    // Sample 1 lies at the delay; the taper of 2 ms stands behind the time told.
    FilterChoice mute;
    mute.Mute = 1;
    const Trace muted = Filtered(Trace(10, 4), mute, 500, -1);
    EXPECT_LT(Largest_Difference(muted, {0, 0, 0, 0, 0, 0.585786F, 2, 3.414214F, 4, 4}), 1e-5);
    mute.Mute = -5;
    EXPECT_EQ(Filtered(Trace(3, 4), mute, 500, -1), Trace(3, 4));

    // Window of 1 ms: the sample and one on either side.
    FilterChoice agc;
    agc.Agc = 1;
    const Trace levelled = Filtered({3, 0, 0, 0, 4, 4, 4}, agc, 500);
    EXPECT_LT(Largest_Difference(levelled, {std::sqrt(2.0F), 0, 0, 0, std::sqrt(1.5F), 1, 1}), 1e-6);
}

TEST(TraceFilter, bridges_what_is_no_number_and_spreads_nothing) {
    const float bad = std::numeric_limits<float>::quiet_NaN();
    const float endless = std::numeric_limits<float>::infinity();
    FilterChoice choice = Band_Of(0, 0, 1000, 1500);
    choice.RemoveMean = true;
    Trace trace = Sinusoid(1000, 40, 250);
    Trace broken = trace;
    broken[0] = bad;
    broken[500] = endless;
    broken[501] = bad;
    const Trace out = Filtered(broken, choice, 250);
    EXPECT_LT(Largest_Difference(out, Filtered(trace, choice, 250)), 0.01);
    TraceFilter filter(choice, 1000, 250);
    EXPECT_EQ(filter.Apply(broken, 0, false), 3);
    Trace nothing(1000, bad);
    EXPECT_EQ(filter.Apply(nothing, 0, false), 1000);
    EXPECT_EQ(nothing, Trace(1000, 0));
    // Sizes at the end of what a sample can hold are no reason to lose it.
    Trace huge(1000);
    for (std::size_t i = 0; i < huge.size(); ++i)
        huge[i] = trace[i] * 3e38F;
    FilterChoice all = Band_Of(5, 10, 1000, 1500);
    all.Hum = HumChoice{50, 1};
    all.RemoveDrift = all.Balance = true;
    for (const float value : Filtered(huge, all, 250))
        ASSERT_TRUE(std::isfinite(value));
}

TEST(FilterChoice, is_refused_with_what_is_wrong_with_it) {
    EXPECT_NE(Refusal({}, 500, 250).find("nothing to do"), std::string::npos);
    for (const FilterChoice& wrong :
         {Band_Of(16, 8, 150, 250), Band_Of(8, 16, 12, 250), Band_Of(8, 16, 250, 150),
          Band_Of(-1, 8, 150, 250), Band_Of(8, 16, 150, 2001), Band_Of(50, 50, 50, 50),
          Band_Of(8, 16, 150, NAN), Hum_Of(2000, 0), Hum_Of(50, 21), Hum_Of(5, 0)})
        EXPECT_NE(Refusal(wrong, 500, 250), "");
    FilterChoice agc;
    agc.Agc = 0.4;
    EXPECT_NE(Refusal(agc, 500, 250), "");
    EXPECT_NE(Refusal(Band_Of(8, 16, 150, 250), 500, 0), "");
    EXPECT_EQ(Refusal(Band_Of(8, 16, 150, 2000), 500, 250), "");
    for (const double us : {20.0, 62.0, 250.0, 1000.0, 4000.0, 20000.0}) {
        for (const BandPreset& preset : Band_Presets(us)) {
            FilterChoice choice;
            choice.Band = preset.Band;
            EXPECT_EQ(Refusal(choice, 500, us), "") << preset.Name << " at " << us;
        }
    }
}

/// Ten traces of their own samples, delays and picks, among them a dead one.
std::string Line() {
    SuBuilder builder(10, 600, 250);
    builder.Records(5);
    for (int trace = 1; trace <= 10; ++trace) {
        builder.Samples(
            trace, Sum(Break(600, 40 + 20 * trace, 250, 100), Noise(600, 5, static_cast<unsigned>(trace))));
        builder.Put16(trace, 108, trace - 5);
        builder.Put16(trace, 222, 100 + trace);
    }
    return builder.Put16(4, 28, dead_trace).Bytes;
}

Outcome Filter_Bytes(const FilterRequest& request, const std::string& bytes) {
    MemorySource source(bytes);
    MemorySink sink;
    const TraceResult result = Filter_Traces(request, source, sink);
    return {result, sink.Bytes};
}

TEST(FilterTraces, does_with_a_stream_what_is_done_with_each_trace) {
    const std::string line = Line();
    FilterRequest request{Band_Of(10, 20, 300, 500), {3, 8}, TraceStretch{5, 99}};
    request.Choice.Mute = 10;
    request.Choice.Agc = 30;
    request.Choice.Reverse = true;
    EXPECT_NE(Filter_Bytes(request, line).Result.Failure.find("traces 1 to 10"), std::string::npos);
    request.Reversed->Last = 9;
    const Outcome outcome = Filter_Bytes(request, line);
    ASSERT_EQ(outcome.Result.Failure, "");
    EXPECT_EQ(outcome.Result.Written, 10);
    ASSERT_EQ(outcome.Bytes.size(), line.size());
    for (std::size_t i = 0; i < 10; ++i) {
        const int number = static_cast<int>(i) + 1;
        const std::string before = Traces_Of(line)[i];
        const std::string after = Traces_Of(outcome.Bytes)[i];
        EXPECT_EQ(after.substr(0, 240), before.substr(0, 240));
        if (number < 3 || number > 8) {
            EXPECT_EQ(after, before) << number;
            continue;
        }
        FilterChoice choice = request.Choice;
        choice.Reverse = number >= 5;
        EXPECT_EQ(Samples_Of(outcome.Bytes, i), Filtered(Samples_Of(line, i), choice, 250, number - 5))
            << number;
    }
    // From a pipe the same.
    Trickle pipe(line);
    MemorySink sink;
    EXPECT_EQ(Filter_Traces(request, pipe, sink).Failure, "");
    EXPECT_EQ(sink.Bytes, outcome.Bytes);
}

TEST(FilterTraces, tells_what_is_wrong_with_a_file_and_leaves_no_half_of_one) {
    const TemporaryFolder folder;
    const std::string out = folder / "out.su";
    const FilterRequest request{Band_Of(10, 20, 300, 500), {}, {}};
    std::string line = Line();
    const float bad = std::numeric_limits<float>::quiet_NaN();
    std::string with_gaps = line;
    for (const std::size_t trace : {2U, 7U})
        std::memcpy(&with_gaps[trace * 2640 + 240 + 400], &bad, 4);
    ASSERT_EQ(Replace_File(folder / "in.su", with_gaps), "");
    const TraceResult told = Filter_File(request, folder / "in.su", out);
    ASSERT_EQ(told.Failure, "");
    ASSERT_EQ(told.Notes.size(), 1U);
    EXPECT_EQ(told.Notes[0].rfind("trace 3 and 1 more: 2 samples are no number", 0), 0U) << told.Notes[0];
    const std::string whole = Content_Of(out);

    EXPECT_NE(Filter_File(request, folder / "in.su", folder / "in.su").Failure, "");
    EXPECT_EQ(Content_Of(folder / "in.su"), with_gaps);
    line[6 * 2640 + 116] = 100;
    for (const std::string& wrong : {line, line.substr(0, 5000), std::string()}) {
        ASSERT_EQ(Replace_File(folder / "in.su", wrong), "");
        EXPECT_NE(Filter_File(request, folder / "in.su", out).Failure, "");
        EXPECT_EQ(Content_Of(out), whole);
    }
    ASSERT_EQ(Replace_File(folder / "in.su", with_gaps), "");
    const auto stop = [](std::int64_t, std::int64_t all) { return all != 10; };
    EXPECT_EQ(Filter_File(request, folder / "in.su", out, stop).Failure, "stopped");
    EXPECT_NE(Filter_File(request, folder / "none.su", out).Failure, "");
    EXPECT_EQ(Content_Of(out), whole);
}

TEST(Spectrum, tells_amplitude_phase_and_band_of_what_is_known) {
    // Seven periods and a half, on an offset.
    Trace row = Sinusoid(600, 50, 250, 4, 0.6);
    for (float& value : row)
        value += 100;
    for (const Taper taper : {Taper::None, Taper::Ends, Taper::Hann}) {
        SpectrumMaker maker(600, 250, taper, 8);
        const StrongBand band = Strong_Band(maker.Of(row));
        EXPECT_NEAR(band.Peak, 50, 0.5);
        EXPECT_NEAR(band.PeakAmplitude, 4, 0.15);
        EXPECT_LT(band.Low, 50 - 3);
        EXPECT_NEAR(band.High + band.Low, 100, 1.5);
    }
    SpectrumMaker maker(600, 250, Taper::Hann, 8);
    Spectrum one = maker.Of(row);
    const auto at = static_cast<std::size_t>(std::lround(50 / one.Step));
    EXPECT_NEAR(one.Phase[at], 0.6 * 180 / pi, 5);
    // A second row of twice the size and the other sign: amplitudes are averaged, phases are those of the
    // sum.
    for (float& value : row)
        value *= -2;
    maker.Of(row);
    EXPECT_NEAR(Strong_Band(maker.Mean_Of_All()).PeakAmplitude, 6, 0.1);
    EXPECT_NEAR(maker.Mean_Of_All().Phase[at], 0.6 * 180 / pi - 180, 5);

    // The band of a spike goes from end to end; zeros have none.
    Trace spike(100);
    spike[50] = 1;
    SpectrumMaker flat(100, 1000, Taper::None, 1);
    const StrongBand all = Strong_Band(flat.Of(spike));
    EXPECT_NEAR(all.High, 500, 1e-6);
    EXPECT_EQ(Strong_Band(flat.Of(Trace(100))).PeakAmplitude, 0);
    EXPECT_NEAR(Decibels(0.5, 1, -80), -6.02, 0.01);
    EXPECT_EQ(Decibels(0, 1, -80), -80);
}

}  // namespace
}  // namespace tarnvik::test
