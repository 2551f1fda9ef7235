#pragma once

#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Arc sine in radians of a ratio of velocities; 0 for a ratio not above 0. A ratio of 1 or more is a Fault:
/// there is no critical angle.
double ArcSinus(double ratio);

/// Velocities of one shot as its two branches show them, elements 2 to 5 of each side, and that of layer 1.
struct ApparentVelocities {
    double V1 = 0;
    DepthWork::PerLayer A{};
    DepthWork::PerLayer B{};
};

/// The first layer (2 to 5) whose velocity is below that of the layer above it, 0 when the order is right.
/// Layer 2 of side B is not looked at: a wrong one has no critical angle and ends the computation by itself.
int Layer_Out_Of_Order(int layers, const ApparentVelocities& apparent);

/// What the user is told about a layer out of order; the double blank is part of the text that users know.
std::string Layer_Order_Message(int layer);

/// True velocities of layers 1 to `layers` (2 to 5) and the critical angles, each the mean of the two
/// branches: the reversed-profile rule of B. B. Redpath, "Seismic refraction exploration for engineering site
/// investigations" (1973). In the deeper angles only the upper velocity is a true one. A velocity without a
/// critical angle is a Fault.
void True_Velocities(int layers, const ApparentVelocities& apparent, DepthWork::PerLayer& velocity,
                     DepthWork::LayerMatrix& angle);

/// The velocities that the project holds for a shot; that of layer 1 is the mean of its two sides in single
/// precision.
ApparentVelocities Apparent_Velocities_Of(const Project& project, int shot);

/// True velocities and critical angles into workspace.Depth for dialogs other than Fcalcul. In mode "quick"
/// the messages go to QuickStatus and any wrong order ends the routine; in mode "ABC" the velocities come
/// from the project whatever is handed in. False when it ended with a message; VelocityFault is then set for
/// a wrong order. A velocity without a critical angle is a Fault for the caller to answer.
bool Vitesse_Vraie_Commune(Workspace& workspace, Ports& ports, int shot, int layers,
                           ApparentVelocities apparent);

}  // namespace tarnvik
