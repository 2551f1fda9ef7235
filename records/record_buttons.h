#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Buttons of the main form that change how the record is drawn, and those that begin picking.

void Reduce_Trace_Size(Workspace& workspace, Ports& ports);      ///< Command10: gain * 0.75, to a tenth
void Enlarge_Trace_Size(Workspace& workspace, Ports& ports);     ///< Command15: gain * 2
void Turn_Display_Polarity(Workspace& workspace, Ports& ports);  ///< Command25
void Open_Or_Close_AutoPik(Workspace& workspace, Ports& ports);  ///< Command5
void Ask_Pick_Time_Shift(Workspace& workspace, Ports& ports);    ///< menu TShift

/// Command16 "FB Shift": moves the picks of some traces of the record on screen by a time. In the table only
/// picks above 0 move; in the file every trace does, so that one without a pick gets the shift as its pick,
/// since a trace has no mark of its own for "no pick".
void Shift_Picks(Workspace& workspace, Ports& ports);

}  // namespace tarnvik
