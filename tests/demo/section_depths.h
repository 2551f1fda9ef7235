#pragma once

#include <cmath>
#include <limits>

#include "core/workspace.h"
#include "output/section_files.h"
#include "output/section_window.h"

namespace tarnvik::test {

/// Elevation at which a section's picture changes from one layer to the next at a distance: the first change
/// of the velocity downwards, or the last one; NaN where there is none.
inline double Boundary_In_Section(const Workspace& work, double distance, bool last) {
    const SectionGrid& grid = *work.Section.Grid;
    const int column = Column_At(grid, work.Project.LineLength, distance);
    double above = 0;
    double found = std::numeric_limits<double>::quiet_NaN();
    for (int row = grid.GridRows; row > 0; --row) {
        const double velocity = grid.Filled(column, row);
        if (above != 0 && std::abs(velocity - above) > 100) {
            found = Elevation_Of_Row(grid, row);
            if (!last) break;
        }
        if (velocity != 0) above = velocity;
    }
    return found;
}

}  // namespace tarnvik::test
