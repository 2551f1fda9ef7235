#pragma once

#include <string>

#include "core/project.h"

namespace tarnvik {

/// SU file of the demo line, one record a shot: each wave of the layered earth starts at its exact time and
/// decays with distance, over ground roll and a noise that is the same at each run. One trace is dead and one
/// has the wrong polarity, as geophones in the field have. The first-break words are 0: the picks stand in
/// the project, and the records are there to be picked.
std::string Demo_Records(const Project& project);

}  // namespace tarnvik
