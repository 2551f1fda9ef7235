#pragma once

#include <functional>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Reads or writes the project file of the workspace; false when that was refused or failed.
using FileRoutine = std::function<bool(Workspace&, Ports&)>;

/// How a dialog reaches the project file: by itself through Write_Project and Read_Project, or otherwise
/// where it is told so.
struct FileRoutines {
    FileRoutines();
    FileRoutine SaveProject;
    FileRoutine LoadProject;
};

/// Guard of the refresh buttons: a project without any time is loaded anew. Tells whether the refresh may go
/// on; times that cannot be summed end it with "No file loaded or bad file...".
bool Project_Holds_Times(Workspace& workspace, Ports& ports, const FileRoutine& load_project);

}  // namespace tarnvik
