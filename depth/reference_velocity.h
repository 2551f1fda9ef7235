#pragma once

#include "core/project.h"

namespace tarnvik {

/// Velocity of the refractor between two receivers, from the two translated curves of GrmData (rows 1 and 2):
/// their distance over half the difference of the times, cut to a whole number, never negative. Receivers at
/// the same time leave `before`. After D. Palmer, "The generalized reciprocal method of seismic refraction
/// interpretation" (1980). A receiver that the line does not have is a Fault.
double Reference_Velocity(const Project& project, int first, int second, double before);

/// Distance between two receivers; a receiver that the line does not have is a Fault.
double Receiver_Distance(const Project& project, int first, int second);

}  // namespace tarnvik
