#include "ui/tools/tool_rows.h"

#include <vector>

#include "core/files.h"
#include "core/settings_file.h"

namespace tarnvik {

std::span<const ToolRow> Tool_Rows() {
    // One row for each tool that has a window.
    static const std::vector<ToolRow> rows = {};
    return rows;
}

NamedLine Line_Of_Main_Program(const std::string& settings_file) {
    NamedLine line;
    line.Name = Read_Setting(settings_file, "DROMO", "File");
    line.SuFile = Read_Setting(settings_file, "DROMO", "SU");
    const std::string unsaved = Read_Setting(settings_file, "Tools", unsaved_line_key);
    line.Unsaved = !unsaved.empty() && File_Exists(unsaved);
    line.ProjectFile = line.Unsaved ? unsaved : line.Name;
    if (!File_Exists(line.ProjectFile)) line.ProjectFile.clear();
    return line;
}

}  // namespace tarnvik
