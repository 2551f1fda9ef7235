#pragma once

#include <string>

#include "core/workspace.h"

namespace tarnvik {

/// Place of a grid's column and row along the line and as an elevation.
double Distance_Of_Column(const SectionGrid& grid, double line_length, int column);
double Elevation_Of_Row(const SectionGrid& grid, int row);

/// Text of the section's ".dat" file: a line of distance, elevation and velocity for each cell that the
/// interfaces set, the first two in print zones of 14 characters, columns and rows in rising order.
std::string Section_Dat(const SectionGrid& grid, double line_length);

/// Text of a ".grd" file, the text grid "DSAA" of mapping programs: the filled section from its lowest row
/// up, cells above the ground and beyond the known depths blanked (1.70141E+38).
std::string Section_Grd(const SectionGrid& grid, double line_length);

/// Name of the ".dat" file of a project: its own with that ending.
std::string Section_Dat_File(const std::string& project_file);

/// True when a file is missing, empty or the ".dat" file of a section, which the next section replaces.
bool Is_Section_Dat(const std::string& path);

}  // namespace tarnvik
