#pragma once

#include <vector>

#include "output/report_curve.h"

namespace tarnvik {

/// Where the refractor below a shot or a receiver may lie: as far from it as the depth is, in whatever
/// direction the refractor dips.
struct DepthArc {
    ReportPoint Centre;
    double Radius = 0;  ///< above 0
};

/// Points of the arc `half_angle` degrees to either side of the one straight below, in rising distance.
ReportCurve Points_Of_Arc(const DepthArc& arc, double half_angle);

/// The refractor that touches all arcs, which are in rising distance of their centres: the deepest of the
/// arcs everywhere, and between neighbours the straight line that touches both. Above it no arc can be true,
/// since the refractor would come nearer to its centre than its depth. It begins and ends straight below the
/// first and the last centre, or where the line to the neighbour touches beyond it. A single arc gives the
/// point below it. Of an arc wholly inside its neighbour nothing is left.
ReportCurve Envelope_Of_Arcs(const std::vector<DepthArc>& arcs);

}  // namespace tarnvik
