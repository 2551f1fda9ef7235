#include "depth/theoretic_branches.h"

#include <cmath>

#include "core/fault.h"
#include "core/text/number.h"
#include "depth/true_velocity.h"
#include "traveltime/curve_axes.h"

namespace tarnvik {

namespace {

constexpr double ms_per_second = 1000;
constexpr double farthest = 1e6;  // units of the picture, beyond any model and what devices can draw

void Add(std::vector<CurveBranch>& branches, const CurveBranch& branch) {
    for (const double place : {branch.X1, branch.Y1, branch.X2, branch.Y2}) {
        if (!(std::abs(place) <= farthest)) throw Fault("a branch beyond all pictures");
    }
    branches.push_back(branch);
}

/// Both parts of the branch with an intercept in ms.
void Add_Branch(std::vector<CurveBranch>& branches, double velocity, double intercept, double shot,
                const BranchFrame& frame) {
    if (!(velocity > 0)) throw Fault("no velocity");
    const double scale = Divide(curve_picture_width, frame.LineLength);
    const double latest = curve_picture_height * frame.TimeFactor;
    const double foot = Divide(intercept, frame.TimeFactor);
    const double xs = shot * scale;
    const double reach = velocity * (latest - intercept) / ms_per_second * scale;
    const auto height_after = [&](double distance) {
        return Divide(intercept + Divide(distance, velocity / ms_per_second), frame.TimeFactor);
    };
    if (shot != frame.LineLength) {
        const double end = height_after(frame.LineLength - shot);
        Add(branches, xs + reach <= curve_picture_width
                          ? CurveBranch{xs, foot, xs + reach, curve_picture_height}
                          : CurveBranch{xs, foot, curve_picture_width, end});
    }
    if (shot != 0) {
        const double end = height_after(shot);
        Add(branches, xs - reach >= 0 ? CurveBranch{xs, foot, xs - reach, curve_picture_height}
                                      : CurveBranch{xs, foot, 0, end});
    }
}

}  // namespace

PlaneLayers Layers_Read(const std::array<double, Project::MaxLayers + 1>& velocities,
                        const std::array<double, Project::MaxLayers + 1>& thicknesses) {
    PlaneLayers layers;
    layers.Velocity[1] = velocities[1];
    layers.Thickness[1] = thicknesses[1];
    for (std::size_t layer = 2; layer <= Project::MaxLayers && velocities[layer] != 0; ++layer) {
        layers.Count = static_cast<int>(layer);
        layers.Velocity[layer] = velocities[layer];
        layers.Thickness[layer] = thicknesses[layer];
    }
    return layers;
}

int Layer_Without_Refraction(const PlaneLayers& layers) {
    for (int layer = 2; layer <= layers.Count; ++layer) {
        const auto at = static_cast<std::size_t>(layer);
        if (layers.Velocity[at] <= layers.Velocity[at - 1]) return layer;
    }
    return 0;
}

std::array<double, Project::MaxLayers> Intercepts_Of_Layers(const PlaneLayers& layers,
                                                            double half_shot_depth) {
    std::array<double, Project::MaxLayers> intercepts{};
    for (std::size_t layer = 1; static_cast<int>(layer) < layers.Count; ++layer) {
        const double upper = layers.Velocity[layer];
        // The angle of the two adjacent layers alone counts, and in the first layer the half shot depth is
        // added to the cosines and not to the thickness: both are kept as users know the branches.
        double delay = 2 * std::cos(ArcSinus(Divide(upper, layers.Velocity[layer + 1])));
        if (layer == 1) delay += half_shot_depth;
        intercepts[layer] = Rounded(ms_per_second * Divide(delay * layers.Thickness[layer], upper));
    }
    return intercepts;
}

std::vector<CurveBranch> Theoretic_Branches(const PlaneLayers& layers, double shot, double half_shot_depth,
                                            const BranchFrame& frame) {
    const auto intercepts = Intercepts_Of_Layers(layers, half_shot_depth);
    std::vector<CurveBranch> branches;
    double intercept = 0;
    for (std::size_t layer = 1; static_cast<int>(layer) <= layers.Count; ++layer) {
        if (layer > 1) intercept += intercepts[layer - 1];
        Add_Branch(branches, layers.Velocity[layer], intercept, shot, frame);
    }
    return branches;
}

}  // namespace tarnvik
