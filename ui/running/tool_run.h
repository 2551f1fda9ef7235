#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <string>
#include <vector>

#include "core/ports/launcher.h"

namespace tarnvik {

/// Full path of a tool: as given, without its ".exe", in lower case; where it is named, in the program's
/// folder, in `tools` within it, in `tools` beside it, on the search path, in this order. Empty when it is
/// nowhere.
QString Find_Tool(const QString& program, const QString& program_folder);

/// A program to start and what stands before its arguments.
struct FoundProgram {
    QString Program;  ///< empty when it is nowhere
    QStringList Before;
};

/// What a launch by name starts: a program that is found beside this one, as Find_Tool does, then the
/// program `tarnvik-tools` where the name is one of its tools, then what the search path holds. So a program
/// of the same name that the user has put into one of the tools' folders is the one that runs.
FoundProgram Find_Launched(const QString& program, const QString& program_folder);

/// Whole traces in the output of a tool that is running, by the size that it has grown to.
std::int64_t Traces_Written(const ToolCommand& command, const std::string& folder);

/// What Launcher::Run_In_Order promises. `progress` is called about fifty times a second while a tool runs:
/// a window keeps itself alive there.
ToolResult Run_Tools(const std::vector<ToolCommand>& commands, const std::string& folder,
                     const QString& program_folder, const ToolProgress& progress);

}  // namespace tarnvik
