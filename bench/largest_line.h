#pragma once

#include "core/workspace.h"

namespace tarnvik::bench {

/// The largest line the program is made for: 72 shots and 120 receivers 5 m apart, every pick made, depths
/// under all shots and receivers.
Workspace Largest_Line();

}  // namespace tarnvik::bench
