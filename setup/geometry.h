#pragma once

#include <span>
#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// The hundredth of a length unit nearest to a place: what the table shows and the project file keeps. Shots
/// and LineLength are kept so from the start; otherwise the last end shot would lie before the end of the
/// line after the next opening, and would be no end shot any more.
double Filed_Place(double place);

/// Places and elevations of the receivers or of the shots, element 0 is the first. What the arrays of the
/// project lack is left out.
std::vector<double> Receiver_Places(const Project& project);
std::vector<double> Receiver_Elevations(const Project& project);
std::vector<double> Shot_Places(const Project& project);
std::vector<double> Shot_Elevations(const Project& project);

/// Writes them back; elements beyond the arrays of the project are dropped.
void Store_Receiver_Places(Project& project, std::span<const double> places);
void Store_Receiver_Elevations(Project& project, std::span<const double> elevations);

/// Writes the project after a correction of its geometry, which is confirmed to the user. False when it could
/// not be written; the user was told.
bool Save_Geometry(Workspace& workspace, Ports& ports);

}  // namespace tarnvik
