#pragma once

#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// What the open dialogs add to the curves, on a picture that has their scale.
void Draw_Standing_Overlays(Picture& picture, const CurveView& view);

/// What moves under the hand, on paper.
void Draw_Moving_Overlays(Picture& picture, const CurveView& view);

/// Puts what moves under the hand on the screen, in the place of what stood there; to be called after each
/// move. Without any it is taken off.
void Show_Moving_Marks(Workspace& workspace, Ports& ports);

/// The dialog shows nothing on the curves any more; nothing is redrawn but its marks.
void Forget_Overlay(Workspace& workspace, Ports& ports, Dialog dialog);

}  // namespace tarnvik
