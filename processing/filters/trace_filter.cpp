#include "processing/filters/trace_filter.h"

#include <cmath>
#include <numbers>

#include "processing/filters/band_pass.h"
#include "processing/filters/hum.h"
#include "processing/filters/trend.h"
#include "records/agc.h"

namespace tarnvik {

TraceFilter::TraceFilter(const FilterChoice& choice, int samples, double interval_us)
    : Choice(choice), IntervalMs(interval_us / 1000) {
    const auto count = static_cast<std::size_t>(samples);
    if (choice.Hum) Hum = std::make_unique<HumRemover>(*choice.Hum, count, interval_us);
    if (choice.Band) Band = std::make_unique<BandPassFilter>(*choice.Band, count, interval_us);
    // No window is longer than twice the trace: each sample then sees all of it.
    if (choice.Agc)
        AgcSamples = static_cast<int>(std::lround(std::min(*choice.Agc / IntervalMs, 2.0 * samples)));
}

TraceFilter::~TraceFilter() = default;

void TraceFilter::Mute(std::span<float> samples, double start_ms) const {
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double behind = start_ms + static_cast<double>(i) * IntervalMs - *Choice.Mute;
        if (behind >= mute_taper) break;
        const double sine = behind > 0 ? std::sin(behind / mute_taper * std::numbers::pi / 2) : 0;
        samples[i] = static_cast<float>(samples[i] * sine * sine);
    }
}

int TraceFilter::Apply(std::span<float> samples, double start_ms, bool reversed) {
    const int bridged = Bridge_Gaps(samples);
    if (Choice.RemoveMean) Remove_Mean(samples);
    if (Choice.RemoveDrift) Remove_Line(samples);
    if (Hum) Hum->Apply(samples);
    if (Band) Band->Apply(samples);
    if (Choice.Mute) Mute(samples, start_ms);
    Level_Amplitudes(samples, AgcSamples);
    if (Choice.Balance) Balance_Amplitudes(samples);
    if (reversed) {
        for (float& value : samples)
            value = -value;
    }
    return bridged;
}

}  // namespace tarnvik
