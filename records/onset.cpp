#include "records/onset.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace tarnvik {

namespace {

constexpr double above_noise = 4;        ///< standard deviations of what the trend does not foresee
constexpr double least_share = 0.02;     ///< of the stretch's largest surprise, where there is no noise
constexpr double rise_over_noise = 1.5;  ///< of the lobe's top over the threshold
constexpr double least_bump = 0.1;       ///< of the stretch's largest amplitude
constexpr std::ptrdiff_t noise_samples = 400;
constexpr double fitted_share = 0.6;       ///< of the first lobe's height, from its foot
constexpr double fitted_thresholds = 8;    ///< and no higher than so many thresholds
constexpr double early_share = 0.02;       ///< of the largest surprise, that an early onset comes to
constexpr double arrival_above_noise = 6;  ///< of the first arrival of a whole trace
constexpr double arrival_share = 0.005;    ///< of the trace's largest surprise, that it comes to

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

/// What a straight line through the samples some way before a sample lets one expect there: the slow swing
/// of the ground before an arrival is no arrival.
class Trend {
  public:
    Trend(std::span<const float> samples, double reach)
        : Values(samples),
          Length(std::max<std::ptrdiff_t>(6, static_cast<std::ptrdiff_t>(0.7 * reach))),
          Ahead(std::max<std::ptrdiff_t>(2, static_cast<std::ptrdiff_t>(reach / 4))) {}

    std::ptrdiff_t First_Foreseen() const { return Length + Ahead; }
    std::ptrdiff_t Steps_Ahead() const { return Ahead; }
    /// Expected value of sample `at` from the line before sample `from`; a short line at the trace's start.
    double Expected(std::ptrdiff_t from, std::ptrdiff_t at) const {
        const std::ptrdiff_t end = std::max<std::ptrdiff_t>(from - Ahead, 0);
        const std::ptrdiff_t first = std::max<std::ptrdiff_t>(end - Length, 0);
        const auto count = static_cast<double>(end - first);
        if (count < 1) return At(Values, 0);
        double mean = 0;
        for (std::ptrdiff_t i = first; i < end; ++i)
            mean += At(Values, i) / count;
        if (count < static_cast<double>(Length)) return mean;
        const double middle = static_cast<double>(first + end - 1) / 2;
        double rise = 0;
        for (std::ptrdiff_t i = first; i < end; ++i)
            rise += (static_cast<double>(i) - middle) * (At(Values, i) - mean);
        const double slope = rise * 12 / (count * (count * count - 1));
        return mean + slope * (static_cast<double>(at) - middle);
    }
    double Surprise(std::ptrdiff_t at) const { return At(Values, at) - Expected(at, at); }

  private:
    std::span<const float> Values;
    std::ptrdiff_t Length;
    std::ptrdiff_t Ahead;
};

/// Standard deviation of the surprises from `first` up to `end`.
double Noise_Of(const Trend& trend, std::ptrdiff_t first, std::ptrdiff_t end) {
    double squares = 0;
    for (std::ptrdiff_t i = first; i < end; ++i) {
        const double surprise = trend.Surprise(i);
        squares += surprise * surprise;
    }
    return end > first ? std::sqrt(squares / static_cast<double>(end - first)) : 0;
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

/// Beginning of the rise whose first sample above the threshold is `crossing`, over the trend before it.
double Foot_Of(std::span<const float> samples, std::ptrdiff_t crossing, const Trend& trend, double threshold,
               double side) {
    const auto height = [&](std::ptrdiff_t i) {
        return side * (At(samples, i) - trend.Expected(crossing, i));
    };
    std::ptrdiff_t top = crossing;
    while (top + 1 < std::ssize(samples) && height(top + 1) > height(top))
        ++top;
    const double highest = std::min(fitted_share * height(top), fitted_thresholds * threshold);
    std::vector<double> flank;
    for (std::ptrdiff_t i = crossing; i <= top; ++i) {
        if (i > crossing + 1 && height(i) > highest) break;
        flank.push_back(height(i));
    }
    // The foot lies between the last sample that is noise and the first one that is not.
    std::ptrdiff_t quiet = crossing - 1;
    while (quiet > 0 && height(quiet) > threshold / above_noise && height(quiet) < height(quiet + 1))
        --quiet;
    const auto earliest = static_cast<double>(std::max<std::ptrdiff_t>(quiet, 0));
    if (flank.size() < 2) return earliest;
    const Foot line = Fit(flank, 1);
    const Foot parabola = flank.size() > 2 ? Fit(flank, 2) : Foot{};
    const Foot& best = parabola.Error < line.Error ? parabola : line;
    if (!std::isfinite(best.Error)) return earliest;
    return std::clamp(static_cast<double>(crossing) + best.Place, earliest - 1,
                      static_cast<double>(crossing));
}

/// True where a lobe begins that goes on and up: one sample that sticks out is no arrival.
/// The top is awaited for no longer than twice the time that the trend looks ahead.
bool Lobe_Begins(std::span<const float> samples, std::ptrdiff_t at, const Trend& trend, double threshold,
                 double side, double least_top) {
    double top = 0;
    std::ptrdiff_t length = 0;
    const std::ptrdiff_t end = std::min(std::ssize(samples), at + 2 * trend.Steps_Ahead() + 1);
    for (std::ptrdiff_t i = at; i < end; ++i, ++length) {
        const double height = side * (At(samples, i) - trend.Expected(at, i));
        if (height < threshold / 2) break;
        top = std::max(top, height);
        if (length >= 1 && top >= least_top) return true;
    }
    return false;
}

/// Onset at the first surprise from `first` to `last` that is above the threshold, counted from 1.
std::optional<double> First_Above(std::span<const float> samples, std::ptrdiff_t first, std::ptrdiff_t last,
                                  const Trend& trend, double threshold, double least_top,
                                  double least_early_top) {
    for (std::ptrdiff_t i = first; i <= last; ++i) {
        const double surprise = trend.Surprise(i);
        if (std::abs(surprise) < threshold) continue;
        const double side = surprise > 0 ? 1 : -1;
        // Before there is a trend at all only what is plain counts.
        const double least = i < trend.First_Foreseen() ? least_early_top : least_top;
        if (Lobe_Begins(samples, i, trend, threshold, side, std::max(least, rise_over_noise * threshold)))
            return std::max(Foot_Of(samples, i, trend, threshold, side) + 1, 1.0);
    }
    return std::nullopt;
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
    const Trend trend(samples, reach);
    // At the trace's beginning, where there is little before the stretch, the first few samples have to
    // serve.
    constexpr std::ptrdiff_t least_noise = 6;
    const std::ptrdiff_t quiet_end = std::max(stretch.First, least_noise);
    const std::ptrdiff_t quiet_start =
        std::min(std::max(trend.First_Foreseen(), quiet_end - noise_samples), quiet_end - least_noise);
    const double noise =
        Noise_Of(trend, std::max<std::ptrdiff_t>(quiet_start, 0), std::min(quiet_end, std::ssize(samples)));
    double largest = 0;
    for (std::ptrdiff_t i = stretch.First; i <= stretch.Last; ++i)
        largest = std::max(largest, std::abs(trend.Surprise(i)));
    const double threshold = std::max(above_noise * noise, least_share * largest);
    if (threshold <= 0) return std::nullopt;
    return First_Above(samples, stretch.First, stretch.Last, trend, threshold, 0, early_share * largest);
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

std::optional<double> Find_Feature(SnapTo feature, std::span<const float> samples, double near,
                                   double reach) {
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
    const Trend trend(samples, reach);
    std::vector<double> surprises;
    for (std::ptrdiff_t i = 0; i < std::ssize(samples); ++i)
        surprises.push_back(trend.Surprise(i));
    double largest = 0;
    for (const double surprise : surprises)
        largest = std::max(largest, std::abs(surprise));
    if (largest == 0) return std::nullopt;
    // The noise is what came before; the last samples before the one in question may belong to the arrival.
    constexpr std::ptrdiff_t least_noise = 6;
    double squares = 0;
    std::ptrdiff_t count = 0;
    for (std::ptrdiff_t i = 0; i < std::ssize(samples); ++i) {
        if (const std::ptrdiff_t past = i - trend.Steps_Ahead(); past >= 0) {
            const double surprise = surprises[static_cast<std::size_t>(past)];
            squares += surprise * surprise;
            ++count;
        }
        if (count < least_noise) continue;
        const double noise = std::sqrt(squares / static_cast<double>(count));
        const double threshold = std::max(arrival_above_noise * noise, least_share * largest);
        if (const auto onset =
                First_Above(samples, i, i, trend, threshold, arrival_share * largest, early_share * largest))
            return onset;
    }
    return std::nullopt;
}

}  // namespace tarnvik
