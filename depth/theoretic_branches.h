#pragma once

#include <array>
#include <vector>

#include "core/project.h"

namespace tarnvik {

/// Plane layers under a shot; elements 1 to 5, the deepest layer in use has no thickness.
struct PlaneLayers {
    int Count = 1;
    std::array<double, Project::MaxLayers + 1> Velocity{};
    std::array<double, Project::MaxLayers + 1> Thickness{};
    bool operator==(const PlaneLayers&) const = default;
};

/// The layers of a list of velocities and thicknesses, elements 1 to 5: a layer below the first one without a
/// velocity ends them.
PlaneLayers Layers_Read(const std::array<double, Project::MaxLayers + 1>& velocities,
                        const std::array<double, Project::MaxLayers + 1>& thicknesses);

/// The first layer (2 to 5) that is not faster than the one above it, 0 when all are: there is no critical
/// angle at its top.
int Layer_Without_Refraction(const PlaneLayers& layers);

/// What each refractor adds to the intercept times, elements 1 to Count - 1, whole ms. A velocity that is not
/// above the one before, or a first one of 0, is a Fault.
std::array<double, Project::MaxLayers> Intercepts_Of_Layers(const PlaneLayers& layers,
                                                            double half_shot_depth);

/// A straight line on the travel-time picture, in its units.
struct CurveBranch {
    double X1 = 0;
    double Y1 = 0;
    double X2 = 0;
    double Y2 = 0;
    bool operator==(const CurveBranch&) const = default;
};

/// The picture that branches are drawn on.
struct BranchFrame {
    double LineLength = 0;
    double TimeFactor = 1;  ///< ms per unit of the picture's height
};

/// The direct branch of a shot at a distance along the line, and then the refracted ones by depth; of each
/// the part to the right of the shot before that to the left. An end shot has one part only. A line of length
/// 0 or a first velocity of 0 is a Fault.
std::vector<CurveBranch> Theoretic_Branches(const PlaneLayers& layers, double shot, double half_shot_depth,
                                            const BranchFrame& frame);

}  // namespace tarnvik
