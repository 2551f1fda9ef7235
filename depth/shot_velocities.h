#pragma once

#include <array>
#include <cstdint>

#include "core/project.h"

namespace tarnvik {

/// Velocities of the layers below a shot, in elements 1 to 5: the mean of its two sides, or the one side that
/// is not 0; 0 where neither was determined. `count` is the number of layers, 2 to 5: the first of the layers
/// 3, 4, 5 whose two sides add up to less than 100 ends them, so a fifth layer without a fourth does not
/// count. A shot that does not exist is a Fault.
void Shot_Velocities(const Project& project, int shot, int& count, std::array<double, 6>& velocities);

/// The same count for the velocities of two sides, elements 1 to 5.
int Layers_Determined(const std::array<std::int16_t, 6>& side_a, const std::array<std::int16_t, 6>& side_b);

}  // namespace tarnvik
