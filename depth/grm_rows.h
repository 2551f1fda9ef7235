#pragma once

#include <optional>
#include <vector>

#include "core/project.h"

namespace tarnvik {

/// The GRM time below one receiver.
struct GrmTime {
    std::optional<double> Time;      ///< ms; nothing for a receiver without one of its two times
    std::optional<double> Velocity;  ///< reference velocity that it was computed with
};

/// GRM times of receivers 1 to NbReceivers (element 0 is receiver 1) with `half` receivers on each side, by
/// the times of GrmData and TotalTime. The receivers at the ends have none. `velocity` is the reference
/// velocity until a pair of receivers gives one, and afterwards the last one. At a reference velocity of 0
/// the travel time over XY stays that of the receiver before. A velocity above 0 that is `given` counts for
/// all receivers.
std::vector<GrmTime> Grm_Times(const Project& project, int half, double& velocity, double given = 0);

/// What a column is cut to when it is interpolated.
enum class GrmCut { Whole, Hundredths };

/// Fills the values of 0 between two that are not, along a straight line and cut. The ends must not be 0.
void Interpolate_Between_Anchors(std::vector<double>& values, GrmCut cut);

/// The three layers below a receiver: velocities in units per second, the upper thickness.
struct GrmLayers {
    double V1 = 0;
    double V2 = 0;
    double V3 = 0;
    double Z1 = 0;
};

/// Thickness of the second layer, cut to tenths, from a GRM time in ms. A layer as fast as the one below it,
/// or faster, has no critical angle: what is computed with it counts as 0.
double Second_Thickness(double time, const GrmLayers& layers);

}  // namespace tarnvik
