#include "core/end_shots.h"

#include <utility>

namespace tarnvik {

void First_Last_End_Shot(const Project& project, int& first, int& last) {
    if (project.NbShots == 2) {
        first = 1;
        last = 2;
        return;
    }
    first = 1;
    last = project.NbShots;
    for (int shot = 1; shot <= project.NbShots && project.ShotDistance.Has(shot); ++shot) {
        if (project.ShotDistance(shot) < 0) ++first;
        if (project.ShotDistance(shot) > project.LineLength) --last;
    }
    if (first > last) std::swap(first, last);
    if (first == 0) first = 1;
    if (last == 0) last = 1;
}

}  // namespace tarnvik
