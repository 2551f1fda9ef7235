#pragma once

#include "core/project.h"

namespace tarnvik {

/// Lowest and highest elevation of the receivers and of the shots on the line, rounded away from the line to
/// a multiple of 10. Both 0 without receivers and shots.
void Recherche_Alti_Mini_Maxi(const Project& project, double& mini, double& maxi);

}  // namespace tarnvik
