#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "traveltime/regression.h"

namespace tarnvik {

/// Whether the line of a stretch is free or starts at the shot point at time 0.
enum class StretchLine { Free, ThroughShot };

/// Velocity and intercept of the stretch of a shot's curve between two receivers, without a dialog: what a
/// drag on the picture computes. The receivers may come in any order and are corrected in place
/// to 1..NbReceivers. Of the free lines a stretch that holds the shot takes the direct method and any other
/// the least squares; one receiver alone takes the direct method always. InterceptResult, Correlation and
/// ShotSide are shared values; `velocity` stays as it was when the stretch cannot be fitted, and the routine
/// answers false. The curve is drawn in blue with the fitted line in black. Messages go to QuickStatus in
/// mode "quick".
bool Regression_Vitesse(Workspace& workspace, Ports& ports, int shot, int& first, int& last, StretchLine line,
                        double& velocity);

/// The fitted line in black over a curve; through the shot point it is carried on to time 0 at the shot.
void Draw_Fitted_Line(Workspace& workspace, Ports& ports, const StretchVelocity& fitted, double shot_x,
                      bool through_shot);

}  // namespace tarnvik
