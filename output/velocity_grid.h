#pragma once

#include <vector>

#include "core/workspace.h"
#include "output/section_places.h"

namespace tarnvik {

/// How a grid is laid out.
struct GridLayout {
    int GridColumns = 0;
    int GridRows = 0;
    double MaxElevation = 0;
    double MinElevation = 0;
    double LineLength = 0;
    SectionLine Line = SectionLine::Linear;
};

/// Rows between two elevations, four a length unit: one unit more than their difference holds. A minimum
/// above the maximum, or more rows than 16 bits hold, is a Fault.
int Grid_Rows(double max_elevation, double min_elevation);

/// Velocities below the places of a line: VelocityGrid has V1 at the ground and V(l+1) at interface l, at
/// each place and on the line from it to the next one; Filled has each column downward from the ground, from
/// the first place whose depths are known to the last one. What lies outside the rows is left out. TopoRows
/// are those of trace_surface_topo.
SectionGrid Grid_Of_Places(const std::vector<SectionPlace>& places, const GridLayout& layout,
                           std::vector<int> topo_rows);

}  // namespace tarnvik
