#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "core/workspace.h"

namespace tarnvik {

/// What is known of one shot for the depths under it: inputs of both methods and the thicknesses. Elements
/// count from 1, as in the project.
struct ShotValues {
    using Velocities = std::array<std::int16_t, Project::MaxLayers + 1>;

    double Elevation = 0;
    double Depth = 0;  ///< of the shot
    Velocities VelocityA{};
    Velocities VelocityB{};
    DepthWork::PerRefractor InterceptA{};  ///< ms
    DepthWork::PerRefractor InterceptB{};
    DepthWork::PerRefractor CritDistA{};
    DepthWork::PerRefractor CritDistB{};
    DepthWork::PerRefractor Thickness{};

    bool operator==(const ShotValues&) const = default;
};

/// The values of a shot of the project, and the way back. A shot that does not exist is a Fault.
ShotValues Values_Of_Shot(const Project& project, int shot);
void Store_Values(Project& project, int shot, const ShotValues& values);

/// Layers 1 and 2 always have a velocity: the usual one where both sides have none, the other side's where
/// one has none.
void Complete_Velocities(ShotValues& values);

/// Number of layers, 2 to 5, as Shot_Velocities counts them.
int Layers_Of(const ShotValues& values);

/// Thicknesses by critical distances as the dialog shows them, to a hundredth; nothing where the values do
/// not allow them.
std::optional<DepthWork::PerRefractor> Depths_By_Critical_Distance(const ShotValues& values);

/// A thickness as it is shown and stored: to a hundredth, half to even. Above 327.67 a Fault.
double Shown_Thickness(double thickness);

}  // namespace tarnvik
