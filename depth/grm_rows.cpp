#include "depth/grm_rows.h"

#include <algorithm>
#include <cmath>

#include "core/fault.h"
#include "core/text/number.h"
#include "depth/reference_velocity.h"
#include "depth/true_velocity.h"

namespace tarnvik {

namespace {

constexpr double ms_per_second = 1000;

double Finite(double value) {
    if (!std::isfinite(value)) throw Fault("a value beyond all range");
    return value;
}

/// Cosine of the critical angle between two layers.
double Critical_Cosine(double upper, double lower) {
    return std::cos(ArcSinus(Divide(upper, lower)));
}

}  // namespace

std::vector<GrmTime> Grm_Times(const Project& project, int half, double& velocity, double given) {
    std::vector<GrmTime> found(static_cast<std::size_t>(std::max<int>(0, project.NbReceivers)));
    const Array2<double>& times = project.GrmData;
    double over_xy = 0;
    for (int j = half + 1; j <= project.NbReceivers - half; ++j) {
        const double tay = times(1, j + half);
        const double tbx = times(2, j - half);
        if (!(tay > 0 && tbx > 0)) continue;
        const double distance = std::abs(Receiver_Distance(project, j + half, j - half));
        velocity = given > 0 ? given : Reference_Velocity(project, j + half, j - half, velocity);
        if (velocity != 0) over_xy = ms_per_second * (distance / velocity);
        GrmTime& own = found[static_cast<std::size_t>(j) - 1];
        own.Velocity = velocity;
        own.Time = (tay + tbx - (project.TotalTime + over_xy)) / 2;
    }
    return found;
}

void Interpolate_Between_Anchors(std::vector<double>& values, GrmCut cut) {
    std::size_t from = 0;
    for (std::size_t to = 1; to < values.size(); ++to) {
        if (values[to] == 0) continue;
        const double first = values[from];
        const double step = (values[to] - first) / static_cast<double>(to - from);
        for (std::size_t row = from + 1; row < to; ++row) {
            const double value = step * static_cast<double>(row - from) + first;
            values[row] = cut == GrmCut::Whole ? Int(value) : Int(100 * value) / 100;
        }
        from = to;
    }
}

double Second_Thickness(double time, const GrmLayers& layers) {
    const double seconds = time / ms_per_second;
    double intercept = 0;
    try {
        intercept = Finite(Divide(layers.Z1 * Critical_Cosine(layers.V1, layers.V2), layers.V1));
    } catch (const Fault&) {
        intercept = 0;
    }
    try {
        const double thickness =
            Divide(layers.V2 * (seconds - intercept), Critical_Cosine(layers.V2, layers.V3));
        return Int(10 * Finite(thickness)) / 10;
    } catch (const Fault&) {
        return 0;
    }
}

}  // namespace tarnvik
