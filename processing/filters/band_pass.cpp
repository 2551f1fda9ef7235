#include "processing/filters/band_pass.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "processing/filters/trend.h"

namespace tarnvik {

namespace {

// The echo of a sin^2 slope of width W has died to a ten thousandth after this many times 1 / W.
constexpr double echo = 3;
constexpr std::size_t longest_in_traces = 16;
constexpr std::size_t longest_in_samples = 1U << 20;

std::size_t Row_Length(const BandPass& band, std::size_t samples, double interval_us) {
    const double slope = band.Narrowest_Slope();
    const std::size_t most = std::max(2 * samples, std::min(longest_in_traces * samples, longest_in_samples));
    const double wanted = slope > 0 ? echo / slope * 1e6 / interval_us : 0;
    const std::size_t room =
        wanted < static_cast<double>(most) ? static_cast<std::size_t>(wanted) : most - samples;
    return Fast_Length(std::clamp(samples + room, 2 * samples, most));
}

}  // namespace

BandPassFilter::BandPassFilter(const BandPass& band, std::size_t samples, double interval_us)
    : Samples(samples), Transform(Row_Length(band, samples, interval_us)), AtZero(band.Response(0)) {
    // Half a period of what passes at the top: shorter, and the noise of single samples would set the end.
    const double ends = Nyquist(interval_us) / band.F4;
    EndSamples = std::clamp<std::size_t>(static_cast<std::size_t>(ends), 1, samples);
    const auto length = static_cast<double>(Transform.Length());
    Factors.resize(Transform.Length() / 2 + 1);
    for (std::size_t i = 0; i < Factors.size(); ++i) {
        const double frequency = static_cast<double>(i) * 1e6 / (length * interval_us);
        // The Nyquist frequency itself is a rounding away from the corner that was given as such.
        const double within = std::min(frequency, Nyquist(interval_us));
        Factors[i] = static_cast<float>(band.Response(within) / length);
    }
    Fade.resize((Transform.Length() - Samples) / 2);
    for (std::size_t i = 0; i < Fade.size(); ++i) {
        const double cosine = std::cos((static_cast<double>(i) + 1) / (static_cast<double>(Fade.size()) + 1) *
                                       std::numbers::pi / 2);
        Fade[i] = static_cast<float>(cosine * cosine);
    }
}

void BandPassFilter::Apply(std::span<float> samples) {
    // Without its mean, and as a number near one, a trace loses nothing in single precision.
    const double mean = Mean(samples);
    const float size = Largest_Size(samples, mean);
    const std::span<float> row = Transform.Row();
    if (size > 0) {
        const double scale = 1.0 / size;
        for (std::size_t i = 0; i < Samples; ++i)
            row[i] = static_cast<float>((samples[i] - mean) * scale);
        const auto first = static_cast<float>(Mean(row.first(EndSamples)));
        const auto last = static_cast<float>(Mean(row.subspan(Samples - EndSamples, EndSamples)));
        std::fill(row.begin() + static_cast<std::ptrdiff_t>(Samples), row.end(), 0.0F);
        for (std::size_t i = 0; i < Fade.size(); ++i) {
            row[Samples + i] = last * Fade[i];
            row[row.size() - 1 - i] = first * Fade[i];
        }
        Transform.Forward();
        const std::span<std::complex<float>> frequencies = Transform.Frequencies();
        for (std::size_t i = 0; i < Factors.size(); ++i)
            frequencies[i] *= Factors[i];
        Transform.Backward();
    } else {
        std::fill(row.begin(), row.end(), 0.0F);
    }
    for (std::size_t i = 0; i < Samples; ++i)
        samples[i] = As_Sample(double{row[i]} * size + mean * AtZero);
}

}  // namespace tarnvik
