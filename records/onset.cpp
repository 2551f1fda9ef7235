#include "records/onset.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace tarnvik {

namespace {

constexpr double above_noise = 4;        ///< standard deviations
constexpr double least_share = 0.02;     ///< of the stretch's largest amplitude, where there is no noise
constexpr double rise_over_noise = 1.5;  ///< of the lobe's top over the threshold
constexpr double least_bump = 0.1;       ///< of the stretch's largest amplitude
constexpr std::ptrdiff_t noise_samples = 400;
constexpr std::ptrdiff_t least_noise = 6;
constexpr double fitted_share = 0.6;  ///< of the first lobe's height, from its foot

/// A stretch of samples counted from 0, both ends included.
struct Stretch {
    std::ptrdiff_t First = 0;
    std::ptrdiff_t Last = -1;
    bool Empty() const { return Last <= First; }
};

Stretch Around(std::span<const float> samples, double near, double reach) {
    if (!std::isfinite(near) || near < 1 || near > static_cast<double>(samples.size())) return {};
    const double first = std::max(near - 1 - reach, 0.0);
    const double last = std::min(near - 1 + reach, static_cast<double>(samples.size()) - 1);
    return {static_cast<std::ptrdiff_t>(std::floor(first)), static_cast<std::ptrdiff_t>(std::ceil(last))};
}

double At(std::span<const float> samples, std::ptrdiff_t i) {
    const float value = samples[static_cast<std::size_t>(i)];
    return std::isfinite(value) ? value : 0;
}

struct Noise {
    double Mean = 0;
    double Deviation = 0;
};

Noise Noise_Of(std::span<const float> samples, std::ptrdiff_t first, std::ptrdiff_t end) {
    Noise noise;
    const auto count = static_cast<double>(end - first);
    if (count < 2) return noise;
    for (std::ptrdiff_t i = first; i < end; ++i)
        noise.Mean += At(samples, i) / count;
    for (std::ptrdiff_t i = first; i < end; ++i) {
        const double off = At(samples, i) - noise.Mean;
        noise.Deviation += off * off / count;
    }
    noise.Deviation = std::sqrt(noise.Deviation);
    return noise;
}

/// Place where a rise began, from a fit of (x - place)^power through it, and the fit's error.
struct Foot {
    double Place = 0;
    double Error = std::numeric_limits<double>::infinity();
};

Foot Fit(const std::vector<double>& heights, double power) {
    double sum_x = 0;
    double sum_y = 0;
    double sum_xx = 0;
    double sum_xy = 0;
    const auto count = static_cast<double>(heights.size());
    for (std::size_t i = 0; i < heights.size(); ++i) {
        const auto x = static_cast<double>(i);
        const double y = std::pow(std::max(heights[i], 0.0), 1 / power);
        sum_x += x;
        sum_y += y;
        sum_xx += x * x;
        sum_xy += x * y;
    }
    const double spread = count * sum_xx - sum_x * sum_x;
    if (spread <= 0) return {};
    const double slope = (count * sum_xy - sum_x * sum_y) / spread;
    if (slope <= 0) return {};
    Foot foot;
    foot.Place = -(sum_y - slope * sum_x) / count / slope;
    foot.Error = 0;
    for (std::size_t i = 0; i < heights.size(); ++i) {
        const double line = std::max(slope * (static_cast<double>(i) - foot.Place), 0.0);
        const double off = std::pow(line, power) - heights[i];
        foot.Error += off * off;
    }
    return foot;
}

/// Beginning of the rise whose first sample above the noise is `crossing`.
double Foot_Of(std::span<const float> samples, std::ptrdiff_t crossing, const Noise& noise, double side) {
    const auto height = [&](std::ptrdiff_t i) { return side * (At(samples, i) - noise.Mean); };
    std::ptrdiff_t top = crossing;
    while (top + 1 < std::ssize(samples) && height(top + 1) > height(top))
        ++top;
    std::vector<double> flank;
    for (std::ptrdiff_t i = crossing; i <= top; ++i) {
        if (i > crossing + 1 && height(i) > fitted_share * height(top)) break;
        flank.push_back(height(i));
    }
    // The foot lies between the last sample that is noise and the first one that is not.
    std::ptrdiff_t quiet = crossing - 1;
    while (quiet > 0 && height(quiet) > std::max(noise.Deviation, height(top) * least_share * least_bump) &&
           height(quiet) < height(quiet + 1))
        --quiet;
    const auto earliest = static_cast<double>(std::max<std::ptrdiff_t>(quiet, 0));
    if (flank.size() < 2) return earliest;
    const Foot line = Fit(flank, 1);
    const Foot parabola = flank.size() > 2 ? Fit(flank, 2) : Foot{};
    const Foot& best = parabola.Error < line.Error ? parabola : line;
    if (!std::isfinite(best.Error)) return earliest;
    return std::clamp(static_cast<double>(crossing) + best.Place, earliest - 1, static_cast<double>(crossing));
}

/// The local extreme next to `near` on the side given, at a fraction of a sample.
std::optional<double> Extreme(std::span<const float> samples, double near, double reach, double side) {
    const Stretch stretch = Around(samples, near, reach);
    if (stretch.Empty()) return std::nullopt;
    double largest = 0;
    for (std::ptrdiff_t i = stretch.First; i <= stretch.Last; ++i)
        largest = std::max(largest, std::abs(At(samples, i)));
    std::optional<double> found;
    for (std::ptrdiff_t i = std::max<std::ptrdiff_t>(stretch.First, 1);
         i <= std::min(stretch.Last, std::ssize(samples) - 2); ++i) {
        const double before = side * At(samples, i - 1);
        const double here = side * At(samples, i);
        const double after = side * At(samples, i + 1);
        if (here <= before || here < after || here < least_bump * largest) continue;
        const double bend = before - 2 * here + after;
        const double place = static_cast<double>(i) + 1 + (bend < 0 ? (before - after) / (2 * bend) : 0);
        if (!found || std::abs(place - near) < std::abs(*found - near)) found = place;
    }
    return found;
}

}  // namespace

std::optional<double> Find_Onset(std::span<const float> samples, double near, double reach) {
    const Stretch stretch = Around(samples, near, reach);
    if (stretch.Empty()) return std::nullopt;
    // At the trace's beginning, where there is little before the stretch, its own beginning has to serve.
    const std::ptrdiff_t quiet_end =
        stretch.First >= least_noise ? stretch.First : stretch.First + (stretch.Last - stretch.First) / 4;
    const Noise noise =
        Noise_Of(samples, std::max<std::ptrdiff_t>(0, quiet_end - noise_samples), quiet_end);
    double largest = 0;
    for (std::ptrdiff_t i = stretch.First; i <= stretch.Last; ++i)
        largest = std::max(largest, std::abs(At(samples, i) - noise.Mean));
    const double threshold = std::max(above_noise * noise.Deviation, least_share * largest);
    if (threshold <= 0) return std::nullopt;
    for (std::ptrdiff_t i = stretch.First; i <= stretch.Last; ++i) {
        const double off = At(samples, i) - noise.Mean;
        if (std::abs(off) < threshold) continue;
        const double side = off > 0 ? 1 : -1;
        // One sample that sticks out is no arrival: the lobe goes on and up.
        double top = 0;
        std::ptrdiff_t length = 0;
        for (std::ptrdiff_t j = i; j < std::ssize(samples); ++j, ++length) {
            const double height = side * (At(samples, j) - noise.Mean);
            if (height < threshold / 2) break;
            top = std::max(top, height);
        }
        if (length < 2 || top < rise_over_noise * threshold) continue;
        return std::max(Foot_Of(samples, i, noise, side) + 1, 1.0);
    }
    return std::nullopt;
}

std::optional<double> Find_Zero_Crossing(std::span<const float> samples, double near, double reach) {
    const Stretch stretch = Around(samples, near, reach);
    std::optional<double> found;
    for (std::ptrdiff_t i = stretch.First; i < stretch.Last; ++i) {
        const double here = At(samples, i);
        const double next = At(samples, i + 1);
        if (here * next > 0 || here == next || next == 0) continue;
        const double place = static_cast<double>(i) + 1 + here / (here - next);
        if (!found || std::abs(place - near) < std::abs(*found - near)) found = place;
    }
    return found;
}

std::optional<double> Find_Peak(std::span<const float> samples, double near, double reach) {
    return Extreme(samples, near, reach, 1);
}

std::optional<double> Find_Trough(std::span<const float> samples, double near, double reach) {
    return Extreme(samples, near, reach, -1);
}

std::optional<double> Find_Feature(SnapTo feature, std::span<const float> samples, double near, double reach) {
    switch (feature) {
        case SnapTo::Onset:
            return Find_Onset(samples, near, reach);
        case SnapTo::ZeroCrossing:
            return Find_Zero_Crossing(samples, near, reach);
        case SnapTo::Peak:
            return Find_Peak(samples, near, reach);
        case SnapTo::Trough:
            return Find_Trough(samples, near, reach);
    }
    return std::nullopt;
}

std::optional<double> First_Arrival(std::span<const float> samples, double reach) {
    std::ptrdiff_t largest = 0;
    for (std::ptrdiff_t i = 1; i < std::ssize(samples); ++i) {
        if (std::abs(At(samples, i)) > std::abs(At(samples, largest))) largest = i;
    }
    const double top = std::abs(At(samples, largest));
    if (samples.empty() || top == 0) return std::nullopt;
    // Before and behind the onset the samples are two noises of their own: where the logarithms of their
    // variances, each with its length, are smallest together, the one goes over into the other.
    const std::ptrdiff_t count = largest + 1;
    std::vector<double> sum(static_cast<std::size_t>(count) + 1, 0.0);
    std::vector<double> squares(sum);
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const double value = At(samples, i) / top;
        sum[at + 1] = sum[at] + value;
        squares[at + 1] = squares[at] + value * value;
    }
    const auto weight = [&](std::ptrdiff_t first, std::ptrdiff_t end) {
        const auto from = static_cast<std::size_t>(first);
        const auto to = static_cast<std::size_t>(end);
        const auto length = static_cast<double>(end - first);
        const double mean = (sum[to] - sum[from]) / length;
        const double variance = (squares[to] - squares[from]) / length - mean * mean;
        constexpr double least_variance = 1e-8;  // of noise that is none
        return length * std::log(std::max(variance, least_variance));
    };
    std::ptrdiff_t parting = largest;
    double smallest = std::numeric_limits<double>::infinity();
    for (std::ptrdiff_t i = 2; i + 2 <= count; ++i) {
        const double together = weight(0, i) + weight(i, count);
        if (together < smallest) {
            smallest = together;
            parting = i;
        }
    }
    const double place = static_cast<double>(parting) + 1;
    return Find_Onset(samples, place, reach).value_or(place);
}

}  // namespace tarnvik
