#pragma once

#include <QString>
#include <string>
#include <vector>

#include "core/ports/launcher.h"

namespace tarnvik {

/// Full path of a tool: as given, without its ".exe", in lower case, in the program's folder or on the
/// search path; empty when it is nowhere.
QString Find_Tool(const QString& program, const QString& program_folder);

/// What Launcher::Run_In_Order promises. `progress` is called about fifty times a second while a tool runs:
/// a window keeps itself alive there.
ToolResult Run_Tools(const std::vector<ToolCommand>& commands, const std::string& folder,
                     const QString& program_folder, const ToolProgress& progress);

}  // namespace tarnvik
