#pragma once

namespace tarnvik {

/// Velocities that a dipping refractor shows on a surface line.
struct DippingVelocities {
    double Down = 0;  ///< down-dip, whole numbers
    double Up = 0;    ///< up-dip; below 0 where the dip is steeper than the critical angle
};

/// Apparent velocities of a refractor of velocity `v2` that dips by `dip` degrees under a layer of velocity
/// `v1`: v1 / sin(i + dip) and v1 / sin(i - dip), i the critical angle (B. B. Redpath, "Seismic refraction
/// exploration for engineering site investigations", 1973). A refractor that is not faster than the layer,
/// and an angle of 0, are a Fault.
DippingVelocities Apparent_Velocities(double v1, double v2, double dip);

/// Dip in whole degrees from the velocity of layer 1 and the two apparent ones of layer 2; positive when the
/// one named last is the larger one. An apparent velocity not above `v1` is a Fault.
int Dip_Of_Refractor(double v1, double up, double down);

}  // namespace tarnvik
