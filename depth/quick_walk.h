#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/workspace.h"
#include "depth/quick_limits.h"
#include "traveltime/regression.h"

namespace tarnvik {

/// What one stretch of the curve gave for a layer on one side of the shot.
struct QuickValue {
    bool Asked = false;   ///< the walk came by
    bool Fitted = false;  ///< the values are the stretch's own
    double Velocity = 0;
    double Intercept = 0;  ///< ms
};

/// A shot's curve cut at the limits and fitted piece by piece.
struct QuickWalk {
    using Layers = std::array<QuickValue, most_quick_layers + 1>;
    Layers Left;   ///< from layer 1; the side towards lower distance
    Layers Right;  ///< a shot at an end of the line has the same on both
    std::vector<FittedLine> Lines;
    std::vector<std::string> Texts;  ///< why stretches have no velocity, in the order of the walk
    StretchVelocity Last;            ///< of the last stretch, with what those before it have left
    int ShotSide = 0;                ///< of the last stretch that had one
};

/// Fits every layer of a shot between the limits: on the left side from the start of the line to the shot,
/// deepest layer first, then on the right side from the shot on. The stretch beside the shot is a line
/// through the shot. A stretch without a velocity takes over that of the stretch before it (at first
/// `former`) with an intercept of 0, and Fitted tells that they are not its own. A shot that does not exist,
/// or a line without length, is a Fault.
QuickWalk Walk_Between_Limits(const Project& project, int shot, int layers, const QuickLimits& limits,
                              const StretchVelocity& former);

}  // namespace tarnvik
