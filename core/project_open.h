#pragma once

#include <string>

#include "core/ports/ports.h"
#include "core/project_file.h"
#include "core/workspace.h"

namespace tarnvik {

/// Loads a TV5 file into the workspace: the path becomes CurrentFile, fields and remarks are filled,
/// NoOffsetShots is cleared by offset shots. The untouched default "*.TV5" (any case) changes nothing. A file
/// that cannot be read counts as an empty one. Bad content gives no message; the report tells of it, see
/// Parse_Project.
ReadingReport Read_Project(Workspace& workspace, const std::string& path);

/// Shifts the recent files by one and puts the path on top. Duplicates stay: the list is the order of use.
void Add_Recent_File(Settings& settings, const std::string& path);

/// Offers to take the first blank out of the name on disk, and makes a read-only file writable. The path held
/// by the program does not follow the new name, so that a save writes under the name that the user chose.
void Check_Project_Name(Workspace& workspace, Ports& ports, const std::string& path);

/// Copies a project file over the ".bak" of its name. Answers the reason of a failure.
std::string Backup_Project(const std::string& path);

}  // namespace tarnvik
