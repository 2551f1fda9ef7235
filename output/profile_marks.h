#pragma once

#include "core/ports/picture.h"

namespace tarnvik {

/// Arc of a circle round a point of the surface with the depth as radius: the refractor touches it somewhere.
/// Drawn from -half_angle to +half_angle (degrees, 0 straight down) in steps of 5 degrees. `radius`, in world
/// units, is multiplied by `vertical_scale` in place before the arc is drawn, as its callers count on.
void Depth_Arc(Picture& picture, double x, double y, double& radius, int half_angle, Colour colour,
               double vertical_scale);

/// A yellow geophone on its spike, whose tip is at (x, y).
void Receiver_Mark(Picture& picture, double x, double y);

/// A red explosion above (x, y).
void Shot_Mark(Picture& picture, double x, double y);

}  // namespace tarnvik
