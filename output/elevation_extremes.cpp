#include "output/elevation_extremes.h"

#include <algorithm>
#include <limits>

#include "core/end_shots.h"
#include "core/text/number.h"

namespace tarnvik {

void Recherche_Alti_Mini_Maxi(const Project& project, double& mini, double& maxi) {
    constexpr double step = 10;
    mini = std::numeric_limits<double>::max();
    maxi = std::numeric_limits<double>::lowest();
    const auto take = [&](double elevation) {
        mini = std::min(mini, elevation);
        maxi = std::max(maxi, elevation);
    };
    int first = 1;
    int last = 1;
    First_Last_End_Shot(project, first, last);
    for (int shot = first; shot <= last && project.ShotElevation.Has(shot); ++shot)
        take(project.ShotElevation(shot));
    for (int receiver = 1; receiver <= std::min<int>(project.NbReceivers, project.ReceiverData.Last_Column());
         ++receiver)
        take(project.ReceiverData(ReceiverElevation, receiver));
    if (mini > maxi) mini = maxi = 0;
    const double lowest = mini;
    const double highest = maxi;
    mini = step * Rounded(lowest / step);
    maxi = step * Rounded(highest / step);
    if (mini > lowest) mini -= step;
    if (maxi < highest) maxi += step;
}

}  // namespace tarnvik
