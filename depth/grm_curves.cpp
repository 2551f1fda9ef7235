#include "depth/grm_curves.h"

#include <cmath>

#include "core/fault.h"
#include "core/text/number.h"
#include "depth/reference_velocity.h"

namespace tarnvik {

namespace {

constexpr double ms_per_second = 1000;

void Add_Points(const Project& project, GrmFunction function, GrmCurve& curve, double& velocity,
                double given) {
    const int half = Half_Of_XY(curve.XY);
    const Array2<double>& times = project.GrmData;
    for (int j = half + 1; j <= project.NbReceivers - half; ++j) {
        const double tay = times(1, j + half);
        const double tbx = times(2, j - half);
        if (tay == 0 || tbx == 0) continue;
        if (function == GrmFunction::Velocity) {
            curve.Points.push_back({j, (tay - tbx + project.TotalTime) / 2});
            continue;
        }
        velocity = given > 0 ? given : Reference_Velocity(project, j + half, j - half, velocity);
        const double distance = std::abs(Receiver_Distance(project, j - half, j + half));
        const double over_xy = Divide(ms_per_second * distance, velocity);
        curve.Points.push_back({j, (tay + tbx - project.TotalTime - over_xy) / 2});
    }
}

}  // namespace

int Half_Of_XY(int xy) {
    return static_cast<int>(Rounded(xy / 2.0));
}

int Largest_XY(int receivers) {
    return 2 * (receivers / 4);
}

GrmCurves Curves_Of_Grm(const Project& project, GrmFunction function, int least, int most, double velocity,
                        double given) {
    GrmCurves found;
    found.Velocity = velocity;
    try {
        for (int xy = least; xy <= most; xy += 2) {
            found.Curves.push_back({xy, {}});
            Add_Points(project, function, found.Curves.back(), found.Velocity, given);
        }
    } catch (const Fault&) {
        found.Broken = true;
    }
    return found;
}

}  // namespace tarnvik
