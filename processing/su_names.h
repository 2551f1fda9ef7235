#pragma once

#include <string>

#include "core/workspace.h"

namespace tarnvik {

/// True for two names of one file, whatever links lead to it.
bool Same_File(const std::string& one, const std::string& other);

/// The name by which the project knows a file, when it is its SU file or the twin of that one; otherwise the
/// path itself. The records on screen follow a file by that name.
std::string Known_Path(const Workspace& workspace, const std::string& path);

/// Name of an edit of an SU file: where it is not the project's, its name is told too.
std::string Edit_Name_Of(const Workspace& workspace, const std::string& what, const std::string& path);

}  // namespace tarnvik
