#pragma once

#include <functional>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Writes or reads the project file of the workspace; the program ties them to the project-file routines.
using ProjectRoutine = std::function<void(Workspace&, Ports&)>;

struct ProjectHooks {
    ProjectRoutine SaveProject;
    ProjectRoutine LoadProject;
};

/// Guard of the refresh buttons: a project without any time is loaded anew. Tells whether the refresh may go
/// on; times that cannot be summed end it with "No file loaded or bad file...".
bool Project_Holds_Times(Workspace& workspace, Ports& ports, const ProjectRoutine& load_project);

}  // namespace tarnvik
