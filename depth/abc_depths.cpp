#include "depth/abc_depths.h"

#include <algorithm>
#include <cmath>

#include "core/text/number.h"
#include "depth/true_velocity.h"

namespace tarnvik {

namespace {

constexpr double ms_per_second = 1000;

/// Cosine of the critical angle of a ratio of velocities; 1 where there is none.
double Critical_Cosine(double upper, double lower) {
    const double ratio = upper / lower;
    return ratio < 1 ? std::cos(ArcSinus(ratio)) : 1;
}

/// Thickness times 1000 of a layer that delays by `time` ms. Above a velocity of 0 it stays as it is.
void Take_Thickness(double upper, double lower, double time, double& thickness) {
    if (lower == 0) return;
    thickness = upper * time / (2 * Critical_Cosine(upper, lower));
}

}  // namespace

AbcDepths Depth_Below_Receivers(const AbcReceivers& receivers, int layers, double half_shot_depth) {
    const std::size_t count = receivers.Delay.size();
    AbcDepths depths{std::vector<float>(count), std::vector<float>(count), std::vector<float>(count),
                     std::vector<float>(count)};
    double z1 = 0;
    double z2 = 0;
    double z3 = 0;
    for (std::size_t at = 1; at < count; ++at) {
        const double delay = receivers.Delay[at];
        if (!(delay > 0)) continue;
        const double v1 = receivers.V1[at];
        const double v2 = receivers.V2[at];
        const double v3 = receivers.V3[at];
        const double v4 = receivers.V4[at];
        const double it1 = receivers.IT1[at];
        const double it2 = receivers.IT2[at];
        // The three ways of rounding, and the first depth of two layers that is not divided, are as users'
        // tables have them.
        switch (layers) {
            case 2:
                Take_Thickness(v1, v2, delay, z1);
                depths.Rock[at] = static_cast<float>(half_shot_depth + z1 / ms_per_second);
                depths.Depth1[at] = static_cast<float>(z1);
                break;
            case 3:
                Take_Thickness(v1, v2, it1, z1);
                Take_Thickness(v2, v3, delay - it1, z2);
                depths.Depth1[at] = static_cast<float>(half_shot_depth + Int(z1 / 10) / 100);
                depths.Depth2[at] = static_cast<float>((Int(z1 + z2) / ms_per_second) * 10 / 10);
                break;
            case 4:
                Take_Thickness(v1, v2, it1, z1);
                Take_Thickness(v2, v3, it2 - it1, z2);
                Take_Thickness(v3, v4, delay - it2, z3);
                depths.Depth1[at] = static_cast<float>(half_shot_depth + Int(z1 / 10) / 100);
                depths.Depth2[at] = static_cast<float>(Int(10 * ((z1 + z2) / ms_per_second)) / 10);
                depths.Depth3[at] = static_cast<float>(Int(10 * ((z1 + z2 + z3) / ms_per_second)) / 10);
                break;
            default:
                break;
        }
        depths.LargestRock = std::max<double>(depths.LargestRock, depths.Rock[at]);
    }
    return depths;
}

void Store_Depths(Project& project, const AbcDepths& depths) {
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        const auto at = static_cast<std::size_t>(receiver);
        project.ReceiverData(ReceiverRockDepth, receiver) = depths.Rock.at(at);
        project.ReceiverData(ReceiverDepth1, receiver) = depths.Depth1.at(at);
        project.ReceiverData(ReceiverDepth2, receiver) = depths.Depth2.at(at);
        project.ReceiverData(ReceiverScratch, receiver) = depths.Depth3.at(at);
    }
}

}  // namespace tarnvik
