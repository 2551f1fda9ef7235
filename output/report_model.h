#pragma once

#include <vector>

#include "core/workspace.h"
#include "output/depth_arcs.h"
#include "output/section_places.h"

namespace tarnvik {

/// How the depths below the shots or receivers become an interface.
enum class InterfaceShape {
    Joined,  ///< straight lines through the points straight below
    Arcs,    ///< arcs with the depth as radius, and their envelope
};

/// The interface below layer `Layer`, from 1.
struct ReportInterface {
    int Layer = 1;
    std::vector<ReportCurve> Runs;  ///< stretches of the line where its depth is known, none above the ground
                                    ///< or above the interface over it
    std::vector<DepthArc> Arcs;     ///< one for each place; none where they are joined
};

/// A depth with what is known of its error, as an upright bar at its place.
struct DepthError {
    ReportPoint At;
    double Half = 0;  ///< above 0, up and down
};

/// What the page of a report shows of one method.
struct ReportModel {
    SectionSource Source = SectionSource::Shots;
    std::vector<SectionPlace> Places;         ///< shots or receivers in rising distance
    std::vector<ReportInterface> Interfaces;  ///< from the uppermost; empty without depths
    std::vector<DepthError> Errors;

    /// Elevation of an interface at a distance, nothing where it is not known.
    std::optional<double> Elevation_Of(int layer, double x) const;
    /// Mean velocity of a layer (from 1) over the places that have it; 0 where none has.
    double Mean_Velocity(int layer) const;
    int Layers() const { return Interfaces.empty() ? 0 : static_cast<int>(Interfaces.size()) + 1; }
};

/// Shots on the line and receivers in rising distance.
ReportCurve Ground_Of(const Project& project);

/// The depths of one method as a model. Those of GRM are the ones in memory. A place whose depths are missing
/// breaks the interfaces; a layer that a place lacks above a deeper one has thinned out there.
ReportModel Model_Of(const Project& project, SectionSource source, InterfaceShape shape);

/// The name of a method as the page has it.
std::string_view Method_Name(SectionSource source);

}  // namespace tarnvik
