#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

// Menu entries that make another SU file of the project's one. The new file is one edit; undone it is gone,
// or holds again what stood under its name before.

/// Menu extrax: asks for the channels to keep and writes them, numbered from 1, to "_Xtract.su".
void Extract_Traces(Workspace& workspace, Ports& ports);

/// Menu Resize: writes the traces at one sample per ms, one and a half times as long as the latest pick of
/// Buildgrid, to "_RS.SU".
void Resize_Channels(Workspace& workspace, Ports& ports);

}  // namespace tarnvik
