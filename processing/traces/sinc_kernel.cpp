#include "processing/traces/sinc_kernel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace tarnvik {

namespace {

constexpr double half_width = 48;  ///< samples of the coarser interval
// Kaiser's rules for 80 dB: shape of the window, and width of the passage from flat to nothing as part of the
// Nyquist frequency.
constexpr double attenuation = 80;
constexpr double beta = 0.1102 * (attenuation - 8.7);
constexpr double passage = (attenuation - 8) / (2.285 * 2 * half_width) / std::numbers::pi;

double Kaiser(double place) {
    if (std::abs(place) >= 1) return 0;
    return std::cyl_bessel_i(0.0, beta * std::sqrt(1 - place * place)) / std::cyl_bessel_i(0.0, beta);
}

double Sinc(double place) {
    const double angle = std::numbers::pi * place;
    return std::abs(angle) < 1e-9 ? 1 : std::sin(angle) / angle;
}

/// Sum of products in eight lanes, which the compiler keeps in one register each.
float Sum_Of_Products(const float* one, const float* other, std::size_t count) {
    std::array<float, 8> lanes{};
    std::size_t i = 0;
    for (; i + lanes.size() <= count; i += lanes.size()) {
        for (std::size_t lane = 0; lane < lanes.size(); ++lane)
            lanes[lane] += one[i + lane] * other[i + lane];
    }
    float sum =
        ((lanes[0] + lanes[1]) + (lanes[2] + lanes[3])) + ((lanes[4] + lanes[5]) + (lanes[6] + lanes[7]));
    for (; i < count; ++i)
        sum += one[i] * other[i];
    return sum;
}

}  // namespace

SincResampler::SincResampler(const Sampling& from, const Sampling& to) : From(from), To(to) {
    const double coarser =
        std::max(1.0, static_cast<double>(to.Interval) / static_cast<double>(from.Interval));
    Cutoff = coarser > 1 ? (1 - passage / 2) / coarser : 1;
    HalfWidth = static_cast<std::int64_t>(std::ceil(half_width * coarser));
    const double offset = to.Start - from.Start;
    Offset = static_cast<std::int64_t>(std::floor(offset));
    Fraction = offset - std::floor(offset);
    ByPhase.resize(static_cast<std::size_t>(from.Interval));
}

const std::vector<float>& SincResampler::Weights(std::int64_t phase) {
    std::vector<float>& weights = ByPhase[static_cast<std::size_t>(phase)];
    if (!weights.empty()) return weights;
    const double part = (static_cast<double>(phase) + Fraction) / static_cast<double>(From.Interval);
    std::vector<double> exact;
    double sum = 0;
    for (std::int64_t tap = 1 - HalfWidth; tap <= HalfWidth; ++tap) {
        const double place = static_cast<double>(tap) - part;
        exact.push_back(Sinc(Cutoff * place) * Kaiser(place / static_cast<double>(HalfWidth)));
        sum += exact.back();
    }
    // A constant stays the constant that it is.
    for (const double weight : exact)
        weights.push_back(static_cast<float>(weight / sum));
    return weights;
}

void SincResampler::Reflect_Ends(std::span<const float> from) {
    const auto count = static_cast<std::int64_t>(from.size());
    Reflected.resize(static_cast<std::size_t>(count + 2 * HalfWidth));
    const auto at = [&](std::int64_t i) { return from[static_cast<std::size_t>(i)]; };
    for (std::int64_t i = 1; i <= HalfWidth; ++i) {
        // A trace shorter than the kernel holds its last value further out.
        const std::int64_t inside = std::min(i, count - 1);
        Reflected[static_cast<std::size_t>(HalfWidth - i)] = 2 * at(0) - at(inside);
        Reflected[static_cast<std::size_t>(HalfWidth + count - 1 + i)] =
            2 * at(count - 1) - at(count - 1 - inside);
    }
    std::copy(from.begin(), from.end(), Reflected.begin() + HalfWidth);
}

void SincResampler::Resample(std::span<const float> from, std::span<float> to) {
    Reflect_Ends(from);
    const auto count = static_cast<std::int64_t>(from.size());
    for (std::size_t i = 0; i < to.size(); ++i) {
        const std::int64_t time = Offset + static_cast<std::int64_t>(i) * To.Interval;
        std::int64_t sample = time / From.Interval;
        std::int64_t phase = time % From.Interval;
        if (phase < 0) {
            phase += From.Interval;
            --sample;
        }
        const bool between = phase > 0 || Fraction > 0;
        if (sample < 0 || sample > count - 1 || (sample == count - 1 && between)) {
            to[i] = 0;
        } else if (!between && Cutoff == 1) {
            to[i] = from[static_cast<std::size_t>(sample)];
        } else {
            const std::vector<float>& weights = Weights(phase);
            to[i] = Sum_Of_Products(weights.data(), Reflected.data() + sample + 1, weights.size());
        }
    }
}

}  // namespace tarnvik
