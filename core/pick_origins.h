#pragma once

#include <string>

#include "core/project.h"

namespace tarnvik {

/// The project file has no place for where its picks come from, so that is kept in a small file of the
/// program's own folder, named after the project file. It tells of picks that are not by hand, each with its
/// time: one whose time is another by now was changed elsewhere and counts as picked by hand.

/// Writes the origins of a project that has a file. Answers the reason of a failure, empty when it went well
/// or when `folder` is empty.
std::string Write_Pick_Origins(const Project& project, const std::string& folder);

/// Reads them for the picks of a project that has just been read. Without a file all are by hand.
void Read_Pick_Origins(Project& project, const std::string& folder);

}  // namespace tarnvik
