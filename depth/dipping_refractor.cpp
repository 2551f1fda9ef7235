#include "depth/dipping_refractor.h"

#include <cmath>

#include "core/fault.h"
#include "core/text/number.h"
#include "depth/true_velocity.h"

namespace tarnvik {

namespace {

constexpr double pi = 3.1416;  // kept: results were always rounded from this one
constexpr double half_turn = 180;

}  // namespace

DippingVelocities Apparent_Velocities(double v1, double v2, double dip) {
    const double angle = ArcSinus(Divide(v1, v2));
    const double tilt = dip * pi / half_turn;
    return {Rounded(Divide(v1, std::sin(angle + tilt))), Rounded(Divide(v1, std::sin(angle - tilt)))};
}

int Dip_Of_Refractor(double v1, double up, double down) {
    const double dip = 0.5 * (ArcSinus(Divide(v1, up)) - ArcSinus(Divide(v1, down)));
    return CInt_Or_Fault(dip * half_turn / pi);
}

}  // namespace tarnvik
