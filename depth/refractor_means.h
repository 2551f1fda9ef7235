#pragma once

#include "core/project.h"

namespace tarnvik {

/// The mean of the two sides of a refractor or the one side above 0, floored to a tenth. With neither it is
/// `former`, floored likewise.
double Mean_Of_Sides(double side_a, double side_b, double former);

/// Mean intercept time (ms) and mean critical distance of refractor 1 to 4 under a shot: the mean of the two
/// sides or the one side above 0, floored to a tenth. With neither, `mean` keeps its value, floored likewise.
/// A shot or refractor that does not exist is a Fault.
void Moyenne_Intercept(const Project& project, int shot, int refractor, double& mean);
void Moyenne_Critique(const Project& project, int shot, int refractor, double& mean);

}  // namespace tarnvik
