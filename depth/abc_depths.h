#pragma once

#include <vector>

#include "core/project.h"
#include "depth/abc_interpolation.h"

namespace tarnvik {

/// Depths below the receivers, elements 1 and on, as they stand in the project's rows.
struct AbcDepths {
    std::vector<float> Rock;    ///< row 2, with two layers alone
    std::vector<float> Depth1;  ///< row 11; with two layers a thousand times the depth, kept
    std::vector<float> Depth2;  ///< row 12
    std::vector<float> Depth3;  ///< row 13
    double LargestRock = 0;
};

/// Depths of 2, 3 or 4 layers from the delay at each receiver, after B. B. Redpath, "Seismic refraction
/// exploration for engineering site investigations" (1973): the delay of the refractor, less the intercept
/// times of those above, over the cosines of the critical angles. A receiver without a delay has depths of 0.
/// `half_shot_depth` is added to the first depth. A velocity of 0 below a layer leaves its thickness what it
/// was below the receiver before; velocities without a critical angle count as a ray straight down.
AbcDepths Depth_Below_Receivers(const AbcReceivers& receivers, int layers, double half_shot_depth);

void Store_Depths(Project& project, const AbcDepths& depths);

}  // namespace tarnvik
