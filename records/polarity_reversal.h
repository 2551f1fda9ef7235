#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Turns the polarity of a trace of the SU file (numbers from 1), or of the traces at the same place of all
/// records, after asking which. The samples are changed in the file; the twin keeps its own.
void Reverse_Polarity(Workspace& workspace, Ports& ports, int trace);

}  // namespace tarnvik
