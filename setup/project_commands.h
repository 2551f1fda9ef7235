#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// How all picks of a line are changed at once.
struct PickChange {
    double Factor = 1;
    double Shift = 0;  ///< ms
};

/// Every pick above 0 times the factor plus the shift. A pick that a shift carries to 0 or below is stored as
/// it is; no pick stays no pick.
void Change_All_Picks(Project& project, PickChange change);

/// Menu "Time pick scale or shift": asks how, asks for a project file, opens it, changes all its picks and
/// writes it. When the project chosen is the one in memory, that one is taken, with what was not saved yet.
void shiftFBP(Workspace& workspace, Ports& ports);

/// Menu "Delete File": asks, then removes the current project file. The project stays in memory and can be
/// saved again.
void Deletename(Workspace& workspace, Ports& ports);

}  // namespace tarnvik
