#pragma once

#include <iosfwd>
#include <nlohmann/json.hpp>

#include "core/workspace.h"

namespace tarnvik {

/// A single-precision value by the nine digits that tell it from every other one.
double Json_Number(float value);

/// The project block as one JSON object, its keys the names of the state. Lists start with element 1.
nlohmann::ordered_json Project_Json(const Workspace& workspace);

/// The same for reading: counts, geometry, picks, velocities, depths.
void Print_Project(std::ostream& out, const Workspace& workspace);

}  // namespace tarnvik
