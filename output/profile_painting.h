#pragma once

#include <string>

#include "core/workspace.h"

namespace tarnvik {

class Picture;

/// Places of the seismic profile: 0 to 200 across and 100 at the top to 0 at the bottom, the line itself from
/// 10 to 190. A plain value of the last drawing, with its inverse for the pointer.
struct ProfilePlaces {
    double UnitsAcross = 0;  ///< picture units for each length unit of the line
    double MaxElevation = 0;
    double VerticalFactor = 1;
    double VerticalScale = 1;

    double X(double distance) const { return 10 + UnitsAcross * distance; }
    double Y(double elevation) const {
        return 100 - VerticalScale * (VerticalFactor * (MaxElevation - elevation));
    }
    double Distance(double x) const { return (x - 10) / UnitsAcross; }
    double Elevation(double y) const { return MaxElevation - (100 - y) / (VerticalScale * VerticalFactor); }
};

/// Places of the profile as last measured. A line of length 0 is a Fault.
ProfilePlaces Places_Of_Profile(const Workspace& workspace);

/// Draws the seismic profile and its elevation scale on two pictures, with the mode, extremes, factors and
/// window in workspace.Profile. Nothing changes: this serves the screen at any size, the printer, PDF, SVG
/// and PNG, which all show the profile that stands.
/// Answers the reason when it could not be drawn to its end, empty when it could.
std::string Paint_Profile(const Workspace& workspace, Picture& profile, Picture& scale);

}  // namespace tarnvik
