#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "setup/xyz_file.h"

namespace tarnvik {

/// Places along the line from surveyed coordinates.
struct SurveyedLine {
    std::vector<double> Receivers;
    std::vector<double> Shots;
    double LineLength = 0;
};

/// Distances of geophones and shots along the horizontal path through the geophones. The shot that stands at
/// distance 0 so far (end shot 1) is the origin; without one the first receiver keeps its place. The shot
/// that stands at the end of the line so far gives the new length; without one it is that of the path.
SurveyedLine Surveyed_Places(std::span<const XyzPoint> geophones, std::span<const XyzPoint> shots,
                             std::span<const double> shot_places, double first_receiver_place,
                             double line_length);

/// Button Command7 "Enter XYZ files": reads the coordinates of shots and geophones from two text files and,
/// on request, takes distances and elevations from them. A file with a fault, or with another number of
/// points than the line has, is told and changes nothing.
void Enter_XYZ_Files(Workspace& workspace, Ports& ports);

/// Button Command9 "Check XYZ text file": tells how many points a file holds, or the line that cannot be
/// read, and offers the outside tool.
void Check_XYZ_File(Workspace& workspace, Ports& ports);

}  // namespace tarnvik
