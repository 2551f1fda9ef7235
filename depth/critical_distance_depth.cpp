#include "depth/critical_distance_depth.h"

#include <algorithm>
#include <cmath>

#include "core/fault.h"

namespace tarnvik {

namespace {

double Square_Root(double value) {
    if (value < 0) throw Fault("square root of a negative number");
    return std::sqrt(value);
}

double Q(double upper, double lower) {
    return Square_Root(Divide(lower - upper, lower + upper));
}

double R(double upper, double lower) {
    return Square_Root(lower * lower - upper * upper);
}

}  // namespace

void Critical_Distance_Thicknesses(int layers, const DepthWork::PerLayer& velocity,
                                   const DepthWork::PerRefractor& distance, double half_shot_depth,
                                   DepthWork::PerRefractor& thickness) {
    const auto count = static_cast<std::size_t>(std::clamp(layers, 0, Project::MaxLayers));
    for (std::size_t layer = 1; layer < count; ++layer) {
        const double above = velocity[layer];
        const double below = velocity[layer + 1];
        double result = distance[layer] / 2 * Q(above, below);
        if (layer == 1) result = half_shot_depth + result;
        for (std::size_t upper = 1; upper < layer; ++upper) {
            const double v = velocity[upper];
            result -=
                Divide(thickness[upper] * (above * R(v, below) - below * R(v, above)), v * R(above, below));
        }
        thickness[layer] = result;
    }
}

}  // namespace tarnvik
