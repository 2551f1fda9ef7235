#pragma once

#include <string>
#include <vector>

#include "core/edits/edit.h"

namespace tarnvik {

/// Takes the changes of an edit in its files back or does them again, all or none. A place that holds neither
/// what stood before nor what stood after (another program has written there) refuses the whole. Answers why
/// nothing was written; empty when all is done.
std::string Apply_To_Files(const std::vector<FileChange>& files, ByteChanges::Direction direction);

}  // namespace tarnvik
