#pragma once

#include <optional>
#include <span>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Elevation at `place` on the straight line between the two points that enclose it. The points need no
/// order; of points at one place the first counts. Nothing when the place lies outside them.
std::optional<double> Elevation_Between(std::span<const double> places, std::span<const double> elevations,
                                        double place);

/// Elevation of a shot from the receivers beside it: the first receiver's at distance 0, the last one's at
/// the end of the line, and else the mean of the two beside it, cut to 2 decimals; the end receiver's where
/// there is only one. A shot at a receiver counts as beside it and the next. Nothing for an offset shot
/// (below 0 or beyond the line) and without receivers. Receivers in the order of the line.
std::optional<double> Shot_Elevation_From_Receivers(std::span<const double> receiver_places,
                                                    std::span<const double> receiver_elevations,
                                                    double line_length, double shot_place);

/// Which elevations the button Command3 computes, and from which.
enum class ElevationUpdate { ShotsFromReceivers, ReceiversFromShots };

/// Caption of Command3 for the option in force.
std::string Elevation_Caption(ElevationUpdate update);

/// Button Command3: asks, then interpolates the elevations of all shots from the receivers or of all
/// receivers from the shots. Points that nothing encloses keep theirs. Results have the two decimals that the
/// table shows.
void CalculAltiShot(Workspace& workspace, Ports& ports, ElevationUpdate update);

}  // namespace tarnvik
