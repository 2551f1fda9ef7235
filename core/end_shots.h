#pragma once

#include "core/project.h"

namespace tarnvik {

/// The two end shots of the line: the first shot that is not below distance 0 and the last one that is not
/// beyond LineLength. Everything that skips the offset shots walks from `first` to `last`. The rule only
/// counts: `first` goes up by one for each shot below 0, wherever it stands in the list, `last` goes down by
/// one for each shot beyond the line; two shots are always 1 and 2. `first` is never above `last` and neither
/// is 0, but `last` may lie beyond NbShots when hardly any shot stands on the line.
void First_Last_End_Shot(const Project& project, int& first, int& last);

}  // namespace tarnvik
