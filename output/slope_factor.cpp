#include "output/slope_factor.h"

#include <algorithm>
#include <cmath>

namespace tarnvik {

void Calcul_Facteur_Pente(const Project& project, int shot, int first, int last, double& factor) {
    factor = 1;
    const int before = std::max(shot - 1, first);
    const int behind = std::min(shot + 1, last);
    if (before < 1 || !project.ShotDistance.Has(before) || !project.ShotDistance.Has(behind)) return;
    const double dx = project.ShotDistance(behind) - project.ShotDistance(before);
    const double dz = project.ShotElevation(behind) - project.ShotElevation(before);
    if (dx != 0) factor = std::abs(std::sqrt(dx * dx + dz * dz) / dx);
}

}  // namespace tarnvik
