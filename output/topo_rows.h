#pragma once

#include <vector>

#include "core/project.h"

namespace tarnvik {

/// Column of a grid, 1 to `columns`, that a distance along the line falls into; below 1 for what lies before
/// the line's start. A line of length 0 is a Fault.
int Section_Column(double distance, double line_length, int columns);

/// Row of an elevation, counted from the top of a grid, of which `max_elevation` is row 2.
int Section_Row(double elevation, double max_elevation);

/// Ground row of the columns 0 to `columns` of a grid, from the shots on the line and the receivers; where
/// both stand in a column the receiver counts. Columns between two known ones lie on the straight line
/// between them, those before the first and behind the last take the row of the one next to them. All 0
/// when no elevation falls into a column.
std::vector<int> trace_surface_topo(const Project& project, int columns, double max_elevation);

}  // namespace tarnvik
