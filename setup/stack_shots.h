#pragma once

#include <functional>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Command1, "Stack shots": after its questions adds the records of neighbouring shots trace by trace, keeps
/// a copy of the original records ("_bak.su") where there is none yet, and takes the shots behind the first
/// of them out of the project: one edit. The twin is stacked the same way, since its traces get the same
/// picks. `changing` is called just before the project changes.
void Stack_Shots(Workspace& workspace, Ports& ports, const std::function<void()>& changing);

}  // namespace tarnvik
