#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Opens or closes the dialog vELINE, whose two velocities the pointer then shows as a cross.
void Velocity_Ruler(Workspace& workspace, Ports& ports);

/// A key that moves, tilts or refines the last band in the modes "DROMO" and "Vitesse2"; see
/// CurvePointer::Key for the codes. The status field shows its velocity.
void Velocity_Ruler_Key(Workspace& workspace, Ports& ports, int key);

/// Draws the velocity cross in XOR at the pointer after erasing the last one. Velocities (length units per
/// second) are CurveView's CrossVelocity1 and CrossVelocity2; without them there is no cross.
void Move_Velocity_Cross(Workspace& workspace, Ports& ports, double x, double y);

/// Takes the cross off the picture; the next move of the pointer draws it again.
void Erase_Velocity_Cross(Workspace& workspace, Ports& ports);

}  // namespace tarnvik
