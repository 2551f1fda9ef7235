#pragma once

#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "traveltime/stretch_velocity.h"

namespace tarnvik {

/// The computation of Regression_Vitesse alone: nothing is changed, drawn or told. The receivers are
/// corrected in place, the intercept is rounded down to 0.1 ms. What is refused leaves in the result what
/// `former` had there, but an intercept of 0.
StretchAnswer Velocity_Without_Dialog(const Project& project, int shot, int& first, int& last,
                                      StretchLine line, const StretchVelocity& former);

/// What the user is told where a stretch has no velocity; empty where it has one.
std::string Refusal_Text(StretchRefusal refusal, int first, int last);

/// Velocity and intercept of the stretch of a shot's curve between two receivers, without a dialog: what a
/// drag on the picture computes, see Velocity_Of_Stretch. The receivers may come in any order and are
/// corrected in place to 1..NbReceivers. InterceptResult, Correlation and ShotSide are shared values;
/// `velocity` stays as it was when the stretch cannot be fitted, and the routine answers false. The curve is
/// drawn in blue with the line fitted for `layer` (0 for none) over it. Messages go to QuickStatus in mode
/// Quick.
bool Regression_Vitesse(Workspace& workspace, Ports& ports, int shot, int& first, int& last, StretchLine line,
                        double& velocity, int layer = 0);

/// Takes away what Regression_Vitesse told in the main form's status field; the next action does.
void Forget_Wrong_Receivers(Workspace& workspace);

}  // namespace tarnvik
