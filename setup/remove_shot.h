#pragma once

#include <string>

#include "core/ports/ports.h"
#include "core/project.h"
#include "core/workspace.h"

namespace tarnvik {

/// Takes one shot out of the project in memory: every later shot moves one place down with all that belongs
/// to it (times, place, elevation, depth, velocities, intercepts, critical distances, thicknesses), and
/// NbShots falls by 1. A number that is no shot changes nothing; the answer tells.
bool Take_Out_Shot(Project& project, int shot);

/// Takes the shot of a column out of Buildgrid, Grille_Shot and the project. Before the first removal in a
/// project its file is copied to the backup. False when the column holds no shot. The caller has the edit.
bool Remove_Colonne(Workspace& workspace, Ports& ports, int column);

/// Double click on a shot's column: after a question, writes the project without that shot to a file of a new
/// name and the records without it to an SU file of that name, see Drop_Shot: one edit, undone when both are
/// gone again. The project in memory, its file and its records stay as they are. Where the records cannot be
/// written, no project is.
void RemoveShot(Workspace& workspace, Ports& ports, int shot);

/// Name of the file without one shot: "_" and its number stand before the extension.
std::string Name_Without_Shot(const std::string& path, int shot);

}  // namespace tarnvik
