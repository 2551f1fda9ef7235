#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Small picture of the whole line, offset shots included, without depths: ground through the receivers and
/// all shots with their numbers. Changes nothing in the project; a project without shots and receivers leaves
/// the picture empty.
void Dessine_profile(const Workspace& workspace, Ports& ports);

}  // namespace tarnvik
