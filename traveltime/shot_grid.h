#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Grille_Shot gets one row a shot with its number. While the count of shots stays, so do the marks of shots
/// left out.
void Fill_Shot_Grid(Workspace& workspace);

/// Leaves a shot (from 1) out of the curves, or takes it back, by the red mark of its row; the curves are
/// redrawn. A shot outside the project does nothing.
void Toggle_Shot(Workspace& workspace, Ports& ports, int shot);

/// True when the shot's curve is to be drawn: all are asked for (Check11), or its row is not red.
bool Shot_Displayed(const Workspace& workspace, int shot);

}  // namespace tarnvik
