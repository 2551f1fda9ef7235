#pragma once

#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Writes the GRM file of the project in memory; GrmXY takes the whole number of `xy` first. Tells the path,
/// or that it failed.
bool Write_GRM_File(Workspace& workspace, Ports& ports, const std::string& xy);

/// Reads a GRM file into TotalTime, GrmXY and GrmData, as one edit. One that does not exist or is not good is
/// told, and nothing changes. One that may be another line's is told and read.
bool Read_GRM_File(Workspace& workspace, Ports& ports, const std::string& path);

/// The project has just been opened: takes up the GRM file beside it, which is no edit. A project without one
/// needs no word.
void Take_Up_GRM_File(Workspace& workspace, Ports& ports);

/// True when the GRM file holds other times than the line in memory, which is what a delay computation since
/// the file was written leaves.
bool GRM_File_Differs(const Workspace& workspace, const std::string& path);

}  // namespace tarnvik
