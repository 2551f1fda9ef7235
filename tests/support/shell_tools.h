#pragma once

#include <cstdlib>
#include <string>

#include "core/files.h"
#include "support/test_ports.h"

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

/// The tools of the chains as this build makes them; for programs that are given TARNVIK_TOOLS.
#ifdef TARNVIK_TOOLS
inline void Give_Tools(RecordingLauncher& launcher) {
    launcher.Folder = TARNVIK_TOOLS;
    launcher.OnRun = Run_In_Shell;
}
#endif

}  // namespace tarnvik::test
