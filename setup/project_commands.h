#pragma once

#include <functional>
#include <string>

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
/// writes it. `open` opens another project than the one in memory and answers false when that came to
/// nothing; the one in memory is taken as it stands, with what was not saved yet. The trace headers keep
/// their picks.
void shiftFBP(Workspace& workspace, Ports& ports, const std::function<bool(const std::string& path)>& open);

/// Menu "Delete File": asks, then removes the current project file. The project stays in memory and can be
/// saved again.
void Deletename(Workspace& workspace, Ports& ports);

}  // namespace tarnvik
