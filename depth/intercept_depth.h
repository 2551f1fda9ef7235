#pragma once

#include "core/workspace.h"

namespace tarnvik {

/// What the intercept-time method starts from: true velocities, critical angles, mean intercept times in
/// seconds, half the depth of the shot.
struct InterceptTimes {
    int Layers = 0;  ///< 2 to 5
    DepthWork::PerLayer V{};
    DepthWork::LayerMatrix Angle{};
    DepthWork::PerRefractor IT{};
    double HalfShotDepth = 0;
};

/// Thicknesses of layers 1 to Layers - 1 under a shot by intercept times, after B. B. Redpath, "Seismic
/// refraction exploration for engineering site investigations" (1973): each refractor's intercept less the
/// two-way delays of the layers above. `delay` takes those delays in seconds. Half the shot depth is added to
/// layer 1 and does not take part in the delays. A velocity of 0 that is divided by is a Fault.
void Intercept_Thicknesses(const InterceptTimes& input, DepthWork::PerRefractor& thickness,
                           DepthWork::LayerMatrix& delay);

}  // namespace tarnvik
