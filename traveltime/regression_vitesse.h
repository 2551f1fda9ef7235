#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "traveltime/regression.h"

namespace tarnvik {

/// Velocity and intercept of the stretch of a shot's curve between two receivers, without a dialog: what a
/// drag on the picture computes. The receivers may come in any order and are corrected in place
/// to 1..NbReceivers. FocusField "V1A" or "V1B" asks for the line through the shot point; otherwise a stretch
/// that holds the shot takes the direct method and any other the least squares. InterceptResult, Correlation
/// and ShotSide are shared values; `velocity` stays as it was when the stretch cannot be fitted, and the
/// routine answers false. The curve is drawn in blue with the fitted line in black. Messages go to
/// QuickStatus in mode "quick".
bool Regression_Vitesse(Workspace& workspace, Ports& ports, int shot, int& first, int& last,
                        double& velocity);

/// The fitted line in black over a curve; through the shot point it is carried on to time 0 at the shot.
void Draw_Fitted_Line(Workspace& workspace, Ports& ports, const StretchVelocity& fitted, double shot_x,
                      bool through_shot);

}  // namespace tarnvik
