#pragma once

#include <QString>
#include <cstdint>
#include <string>
#include <vector>

#include "core/ports/launcher.h"

namespace tarnvik {

/// Full path of a tool: as given, without its ".exe", in lower case; where it is named, in the program's
/// folder, in `tools` within it, in `tools` beside it, on the search path, in this order. Empty when it is
/// nowhere.
QString Find_Tool(const QString& program, const QString& program_folder);

/// Whole traces in the output of a tool that is running, by the size that it has grown to.
std::int64_t Traces_Written(const ToolCommand& command, const std::string& folder);

/// What Launcher::Run_In_Order promises. `progress` is called about fifty times a second while a tool runs:
/// a window keeps itself alive there.
ToolResult Run_Tools(const std::vector<ToolCommand>& commands, const std::string& folder,
                     const QString& program_folder, const ToolProgress& progress);

}  // namespace tarnvik
