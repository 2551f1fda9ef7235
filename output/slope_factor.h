#pragma once

#include "core/project.h"

namespace tarnvik {

/// Factor by which the slope at a shot lengthens the depths below it, never below 1: the slope runs between
/// the shots on either side of it, and at the first and the last shot of the line between that one and its
/// neighbour. 1 where they stand at the same distance or a shot does not exist. Elevations of receivers are
/// not considered.
void Calcul_Facteur_Pente(const Project& project, int shot, int first, int last, double& factor);

}  // namespace tarnvik
