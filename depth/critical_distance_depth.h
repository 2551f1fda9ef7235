#pragma once

#include "core/workspace.h"

namespace tarnvik {

/// Thicknesses of layers 1 to layers - 1 (layers 2 to 5) under a shot by critical distances, after B. B.
/// Redpath, "Seismic refraction exploration for engineering site investigations" (1973). `distance` are the
/// distances from the shot at which a refractor overtakes the one above; `velocity` the true velocities. Half
/// the shot depth is added to layer 1, and the deeper layers reckon with that sum. Velocities that do not
/// grow with depth are a Fault.
void Critical_Distance_Thicknesses(int layers, const DepthWork::PerLayer& velocity,
                                   const DepthWork::PerRefractor& distance, double half_shot_depth,
                                   DepthWork::PerRefractor& thickness);

}  // namespace tarnvik
