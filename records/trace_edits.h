#pragma once

#include "core/workspace.h"

namespace tarnvik {

/// What mouse and keys do to one trace of the SU file, each an edit of its own named after its shot and
/// receiver. Where the file cannot be written the pick still goes to ShotTimes, and the status field tells
/// what is missing where. Nothing is drawn here.

/// Sets the pick. A dead trace comes back to life.
void Pick_Trace(Workspace& workspace, int trace, double ms);
/// Takes the pick away; the trace lives on.
void Remove_Pick(Workspace& workspace, int trace);
/// Marks the trace as dead and takes its pick away.
void Kill_Trace(Workspace& workspace, int trace);
void Revive_Trace(Workspace& workspace, int trace);

}  // namespace tarnvik
