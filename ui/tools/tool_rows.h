#pragma once

#include <QStringList>
#include <memory>
#include <span>
#include <string_view>

#include "app/session.h"
#include "ui/form.h"

namespace tarnvik {

/// What a tool is started with.
struct ToolStart {
    Session& Program;       ///< of this process alone; nothing is loaded yet
    QStringList Arguments;  ///< behind the tool's name: "412", "356", "f=...", files
};

/// A tool of `tarnvik-tools`.
struct ToolRow {
    std::string_view Name;   ///< that it is launched by, without ".exe"
    std::string_view Title;  ///< of its window
    std::unique_ptr<Form> (*Make)(ToolStart& start);
    const char* Chapter = "";  ///< of the manual: name of its file in docs/manual without the ending
};

std::span<const ToolRow> Tool_Rows();

/// The line that the main program named in its settings for this tool: the project file, or the copy of it
/// with the changes that are not saved.
struct NamedLine {
    std::string ProjectFile;  ///< empty when none is there
    std::string Name;         ///< the file that the user knows; ends in ".tv5"
    std::string SuFile;
    bool Unsaved = false;  ///< ProjectFile is a copy with changes that Name lacks
};
NamedLine Line_Of_Main_Program(const std::string& settings_file);

}  // namespace tarnvik
