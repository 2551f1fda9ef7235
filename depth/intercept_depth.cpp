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
        double below_shot = Divide(input.V[layer] * time, cosine);
        // The delays are those of the whole layer without the shot depth.
        const double for_delays =
            layer == 1 ? input.HalfShotDepth + below_shot - input.HalfShotDepth : below_shot;
        if (layer == 1) below_shot += input.HalfShotDepth;
        thickness[layer] = below_shot;
        for (std::size_t deeper = refractor + 1; deeper <= layers; ++deeper)
            delay[deeper][layer] = 2 * Divide(for_delays, input.V[layer]) * std::cos(angle[deeper][layer]);
    }
}

}  // namespace tarnvik
