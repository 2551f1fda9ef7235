#include "processing/filters/spectrum.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "processing/filters/trend.h"

namespace tarnvik {

namespace {

constexpr double tapered_end = 0.1;

double Weight(Taper taper, double place) {
    if (taper == Taper::None) return 1;
    const double end = taper == Taper::Hann ? 0.5 : tapered_end;
    const double within = std::min(place, 1 - place) / end;
    if (within >= 1) return 1;
    const double sine = std::sin(within * std::numbers::pi / 2);
    return sine * sine;
}

}  // namespace

SpectrumMaker::SpectrumMaker(std::size_t samples, double interval_us, Taper taper, int finer)
    : Samples(samples),
      Step(0),
      Transform(Fast_Length(samples * static_cast<std::size_t>(std::max(finer, 1)))),
      Window(samples),
      Mended(samples),
      AmplitudeSum(Transform.Length() / 2 + 1),
      Sum(AmplitudeSum.size()) {
    Step = 1e6 / (static_cast<double>(Transform.Length()) * interval_us);
    double weights = 0;
    for (std::size_t i = 0; i < samples; ++i) {
        const double weight = Weight(taper, (static_cast<double>(i) + 0.5) / static_cast<double>(samples));
        Window[i] = static_cast<float>(weight);
        weights += weight;
    }
    Scale = 2 / weights;
}

Spectrum SpectrumMaker::Of(std::span<const float> row) {
    std::copy_n(row.begin(), Samples, Mended.begin());
    Bridge_Gaps(Mended);
    const double mean = Mean(Mended);
    const float size = Largest_Size(Mended, mean);
    const std::span<float> input = Transform.Row();
    std::fill(input.begin(), input.end(), 0.0F);
    for (std::size_t i = 0; i < Samples && size > 0; ++i)
        input[i] = static_cast<float>((Mended[i] - mean) / size) * Window[i];
    Transform.Forward();

    Spectrum spectrum{Step, std::vector<double>(Sum.size()), std::vector<double>(Sum.size())};
    const std::span<const std::complex<float>> output = Transform.Frequencies();
    for (std::size_t i = 0; i < Sum.size(); ++i) {
        const std::complex<double> value = std::complex<double>(output[i]) * (Scale * size);
        spectrum.Amplitude[i] = std::hypot(value.real(), value.imag());
        spectrum.Phase[i] = std::arg(value) * 180 / std::numbers::pi;
        AmplitudeSum[i] += spectrum.Amplitude[i];
        Sum[i] += value;
    }
    ++Rows;
    return spectrum;
}

Spectrum SpectrumMaker::Mean_Of_All() const {
    Spectrum mean{Step, AmplitudeSum, std::vector<double>(Sum.size())};
    for (std::size_t i = 0; i < Sum.size(); ++i) {
        if (Rows > 0) mean.Amplitude[i] /= Rows;
        mean.Phase[i] = std::arg(Sum[i]) * 180 / std::numbers::pi;
    }
    return mean;
}

StrongBand Strong_Band(const Spectrum& spectrum) {
    StrongBand band;
    const std::vector<double>& values = spectrum.Amplitude;
    if (values.size() < 2) return band;
    const auto peak =
        static_cast<std::size_t>(std::max_element(values.begin() + 1, values.end()) - values.begin());
    if (!(values[peak] > 0)) return band;
    // The peak lies on the parabola through the largest value and its neighbours.
    double beside = 0;
    if (peak + 1 < values.size()) {
        const double bend = values[peak - 1] - 2 * values[peak] + values[peak + 1];
        if (bend < 0) beside = std::clamp((values[peak - 1] - values[peak + 1]) / (2 * bend), -0.5, 0.5);
        band.PeakAmplitude = values[peak] - (values[peak - 1] - values[peak + 1]) * beside / 4;
    } else {
        band.PeakAmplitude = values[peak];
    }
    band.Peak = (static_cast<double>(peak) + beside) * spectrum.Step;
    const double half = band.PeakAmplitude / 2;
    std::size_t low = peak;
    while (low > 0 && values[low] >= half)
        --low;
    std::size_t high = peak;
    while (high + 1 < values.size() && values[high] >= half)
        ++high;
    const auto crossing = [&](std::size_t outside, std::size_t inside) {
        if (values[outside] >= half) return static_cast<double>(outside) * spectrum.Step;
        const double part = (half - values[outside]) / (values[inside] - values[outside]);
        return (static_cast<double>(outside) +
                part * (static_cast<double>(inside) - static_cast<double>(outside))) *
               spectrum.Step;
    };
    band.Low = crossing(low, low + 1);
    band.High = crossing(high, high - 1);
    return band;
}

double Noteworthy_End(const Spectrum& spectrum) {
    const std::vector<double>& values = spectrum.Amplitude;
    if (values.empty()) return 0;
    const double least = *std::max_element(values.begin(), values.end()) / 50;
    const auto behind =
        std::find_if(values.rbegin(), values.rend(), [&](double value) { return value > least; });
    return static_cast<double>(values.rend() - behind) * spectrum.Step * 1.25;
}

double Decibels(double amplitude, double reference, double lowest) {
    if (!(amplitude > 0) || !(reference > 0)) return lowest;
    return std::max(20 * std::log10(amplitude / reference), lowest);
}

}  // namespace tarnvik
