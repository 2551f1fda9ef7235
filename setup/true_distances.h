#pragma once

#include <optional>
#include <span>
#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Horizontal places of receivers whose spacing was measured along the ground: each step is the other side of
/// the right-angled triangle of spacing and difference of elevation (Pythagoras). `first_distance` is the
/// slope distance from end shot 1, at distance 0 and `shot_elevation`, to the first receiver. Nothing when a
/// spacing is shorter than its difference of elevation.
std::optional<std::vector<double>> Places_From_Elevations(std::span<const double> elevations,
                                                          double first_distance, double shot_elevation,
                                                          double spacing);

/// Place of a shot after the receivers moved from `before` to `after`: it keeps its relative place between
/// the two receivers beside it, or between end shot 1 and the first receiver; beyond the last receiver it
/// keeps its distance from it. End shot 1 is the origin: it and offset shots before it stay.
double Moved_With_Receivers(std::span<const double> before, std::span<const double> after, double place);

/// Button Command11 "Compute distances  according to Z": true distances of receivers and shots from the
/// elevations of the table, then on request the elevations of the shots, then on request a save. The place of
/// the last end shot, LineLength, moves with the shots.
void Compute_Distances_According_To_Z(Workspace& workspace, Ports& ports);

}  // namespace tarnvik
