#pragma once

#include "core/workspace.h"

namespace tarnvik {

/// Before records are drawn: those of another project or file than before are shown as they were last, and
/// those that nobody has looked at yet so that they can be read. Nothing without a file of choices.
void Take_Up_Record_Choices(Workspace& workspace);

/// Remembers how the records are shown now.
void Note_Record_Choices(Workspace& workspace);

}  // namespace tarnvik
