#pragma once

#include <cstdlib>
#include <string>

#include "core/files.h"
#include "core/ports/launcher.h"

namespace tarnvik::test {

/// Runs a command of a chain as a shell does, from the tools in its folder; for RecordingLauncher::OnRun.
/// Answers the failure.
inline std::string Run_In_Shell(const ToolCommand& command) {
    const auto quoted = [](const std::string& text) { return "'" + text + "'"; };
    if (!File_Exists(command.Program)) return command.Program + " is not found";
    std::string line = quoted(command.Program);
    for (const std::string& argument : command.Arguments)
        line += " " + quoted(argument);
    line += " <" + quoted(command.InputFile) + " >" + quoted(command.OutputFile) + " 2>/dev/null";
    return std::system(line.c_str()) == 0 ? std::string() : command.Program + " failed";
}

}  // namespace tarnvik::test
