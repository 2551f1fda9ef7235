#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Turns the receiver distances, measured along the ground, into horizontal ones, in place, and sets
/// ShotDistanceZ of the shots from the first to the last end shot. Nothing remembers that it was done: each
/// call shortens a line that is not flat a little more; the file has no place for a mark. A pair of receivers
/// that differs more in elevation than in distance is told to the user and both end up at one place.
/// Receivers or shots that do not exist are passed over.
void Horizontal_Distances(Workspace& workspace, Ports& ports);

}  // namespace tarnvik
