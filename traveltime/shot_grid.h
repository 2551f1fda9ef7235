#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Grille_Shot gets one row a shot with its number, red for a shot left out. Another count of shots is
/// another line: all are drawn again.
void Fill_Shot_Grid(Workspace& workspace);

/// Leaves a shot (from 1) out of the curves, or takes it back; the curves are redrawn. A shot outside the
/// project does nothing.
void Toggle_Shot(Workspace& workspace, Ports& ports, int shot);

/// One shot's curve alone, all, or none; the curves are redrawn. A shot outside the project does nothing.
void Show_Only_Shot(Workspace& workspace, Ports& ports, int shot);
void Show_All_Shots(Workspace& workspace, Ports& ports);
void Show_No_Shot(Workspace& workspace, Ports& ports);

/// The row of a shot becomes the current one.
void Select_Shot_Row(Workspace& workspace, int shot);

/// The row of a shot that has left the project goes; the marks of the shots behind it move up with them.
void Remove_Shot_Row(Workspace& workspace, int shot);

/// A dialog shows one shot alone, or two, in red; shot 0 shows all again. Nothing is redrawn.
void Show_Alone(CurveView& view, int shot, int beside = 0);
/// True for the shots of Show_Alone.
bool Stands_Alone(const CurveView& view, int shot);

/// True when the shot's curve is to be drawn: a dialog shows it alone, or all are asked for (Check11), or it
/// is not left out.
bool Shot_Displayed(const Workspace& workspace, int shot);

}  // namespace tarnvik
