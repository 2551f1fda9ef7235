#pragma once

#include "core/workspace.h"

namespace tarnvik {

/// How far the two sides of a shot disagree about the depth of each interface, elements 1 to 4: half the
/// difference of the depths that the intercept times of either side alone give with the same true velocities.
/// It is the only error of a depth that a project holds. 0 where a side has no intercept time, at an
/// interface or above it, where there are no depths, and where the velocities allow none. A shot that does
/// not exist is a Fault.
DepthWork::PerRefractor Spread_Of_Sides(const Project& project, int shot);

}  // namespace tarnvik
