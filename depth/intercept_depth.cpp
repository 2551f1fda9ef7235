#include "depth/intercept_depth.h"

#include <algorithm>
#include <cmath>

#include "core/fault.h"

namespace tarnvik {

void Intercept_Thicknesses(const InterceptTimes& input, DepthWork::PerRefractor& thickness,
                           DepthWork::LayerMatrix& delay) {
    const auto layers = static_cast<std::size_t>(std::clamp(input.Layers, 0, Project::MaxLayers));
    const auto& angle = input.Angle;
    for (std::size_t layer = 1; layer < layers; ++layer) {
        const std::size_t refractor = layer + 1;
        double time = input.IT[layer];
        for (std::size_t upper = 1; upper < layer; ++upper)
            time -= delay[refractor][upper];
        const double cosine = 2 * std::cos(angle[refractor][layer]);
        // Half the shot depth belongs to layer 1; the delays are those without it.
        const double half_shot_depth = layer == 1 ? input.HalfShotDepth : 0;
        thickness[layer] = half_shot_depth + Divide(input.V[layer] * time, cosine);
        const double for_delays = thickness[layer] - half_shot_depth;
        for (std::size_t deeper = refractor + 1; deeper <= layers; ++deeper)
            delay[deeper][layer] = 2 * Divide(for_delays, input.V[layer]) * std::cos(angle[deeper][layer]);
    }
}

}  // namespace tarnvik
