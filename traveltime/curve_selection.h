#pragma once

#include <optional>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// The pick of the curve that passes closest to a world place of the picture, among the shots displayed: the
/// nearer end of the segment met. Nothing when none passes within `reach` pixels. Of curves that are equally
/// near `preferred` counts before the others.
std::optional<PickPlace> Curve_At(const Workspace& workspace, const Frame& frame, double x, double y,
                                  double reach, int preferred = 0);

/// Pixels from the pointer to a curve that it means.
double Pointer_Reach(const Picture& picture);

/// The curve under the pointer is lit, with its pick; away from all curves none is. No picture is redrawn.
void Light_Curve(Workspace& workspace, Ports& ports, double x, double y);
void Unlight_Curve(Workspace& workspace, Ports& ports);

/// "Shot 3, receiver 12: 45.2 ms" of the lit pick; empty while none is.
std::string Lit_Text(const Workspace& workspace);

/// Number of the receiver whose place is nearest to a place across the picture; 0 without receivers.
int Nearest_Receiver(const Project& project, double x);

}  // namespace tarnvik
