#pragma once

#include <optional>
#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "traveltime/regression.h"

namespace tarnvik {

/// A line fitted for a layer of a shot belongs to the picture from now on, in the place of one of the same
/// shot and layer on the same side, which is taken off. `shot_x` is where it goes on to when it starts at the
/// shot. The direct method fits no line: then the former one goes and none comes.
void Keep_Fitted_Line(Workspace& workspace, Ports& ports, const StretchVelocity& fitted, int shot, int layer,
                      std::optional<double> shot_x);

/// The dialog has closed, or the user wants the curves alone; nothing is redrawn.
void Forget_Fitted_Lines(CurveView& view);

/// Puts the lines over what stands on the screen.
void Show_Fitted_Lines(Workspace& workspace, Ports& ports);

/// All lines kept, two pixels wide, on a picture that has its scale.
void Draw_Fitted_Lines(Picture& picture, const CurveView& view);

/// The same lines as marks, for what moves under the hand; `time_factor` in ms a unit of the picture. A
/// factor of 0 is a Fault.
std::vector<Mark> Marks_Of_Fitted_Line(const FittedLine& line, double time_factor);

}  // namespace tarnvik
