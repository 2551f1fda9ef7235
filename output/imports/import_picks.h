#pragma once

#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "output/imports/imported_line.h"

namespace tarnvik {

/// Reads a file of picks of another program into `aside`, which becomes a line of its own without a name. The
/// spacing of the stations is asked for where the file has none. A file that is none is told, and `aside`
/// holds no line.
ImportReport Import_Picks(Workspace& aside, Ports& ports, const std::string& path);

/// What was read, for a message: counts, end shots and what was left out.
std::string Import_Summary(const Project& project, const ImportReport& report);

}  // namespace tarnvik
