#include "depth/shot_values.h"

#include <utility>

#include "core/fault.h"
#include "core/text/number.h"
#include "depth/critical_distance_depth.h"
#include "depth/refractor_means.h"
#include "depth/shot_velocities.h"
#include "depth/true_velocity.h"

namespace tarnvik {

namespace {

constexpr std::int16_t usual_v1 = 300;
constexpr std::int16_t usual_v2 = 700;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

/// Calls `each(value, place)` for every value of a shot and its place in the project.
template <class Values, class Line, class Each>
void For_Each_Value(Values& values, Line& project, int shot, Each each) {
    each(values.Elevation, project.ShotElevation(shot));
    each(values.Depth, project.ShotDepth(shot));
    for (int layer = 1; layer <= Project::MaxLayers; ++layer) {
        each(values.VelocityA[At(layer)], project.VelocityA(shot, layer));
        each(values.VelocityB[At(layer)], project.VelocityB(shot, layer));
    }
    for (int refractor = 1; refractor <= Project::MaxRefractors; ++refractor) {
        each(values.InterceptA[At(refractor)], project.InterceptA(shot, refractor));
        each(values.InterceptB[At(refractor)], project.InterceptB(shot, refractor));
        each(values.CritDistA[At(refractor)], project.CritDistA(shot, refractor));
        each(values.CritDistB[At(refractor)], project.CritDistB(shot, refractor));
        each(values.Thickness[At(refractor)], project.ShotThickness(shot, refractor));
    }
}

}  // namespace

ShotValues Values_Of_Shot(const Project& project, int shot) {
    ShotValues values;
    For_Each_Value(values, project, shot, [](auto& value, const auto& place) { value = place; });
    return values;
}

void Store_Values(Project& project, int shot, const ShotValues& values) {
    For_Each_Value(values, project, shot, [](const auto& value, auto& place) { place = value; });
}

void Complete_Velocities(ShotValues& values) {
    for (const auto& [layer, usual] : {std::pair{1, usual_v1}, std::pair{2, usual_v2}}) {
        std::int16_t& side_a = values.VelocityA[At(layer)];
        std::int16_t& side_b = values.VelocityB[At(layer)];
        if (side_a == 0 && side_b == 0) side_a = side_b = usual;
        if (side_a == 0 && side_b >= 1) side_a = side_b;
        if (side_b == 0 && side_a >= 1) side_b = side_a;
    }
}

int Layers_Of(const ShotValues& values) {
    return Layers_Determined(values.VelocityA, values.VelocityB);
}

std::optional<DepthWork::PerRefractor> Depths_By_Critical_Distance(const ShotValues& values) {
    const int layers = Layers_Of(values);
    ApparentVelocities apparent;
    apparent.V1 = (values.VelocityA[1] + values.VelocityB[1]) / 2.0;
    for (std::size_t layer = 2; layer <= Project::MaxLayers; ++layer) {
        apparent.A[layer] = values.VelocityA[layer];
        apparent.B[layer] = values.VelocityB[layer];
    }
    if (Layer_Out_Of_Order(layers, apparent) != 0) return std::nullopt;
    DepthWork::PerRefractor distance{};
    for (std::size_t k = 1; k < At(layers); ++k) {
        distance[k] = Mean_Of_Sides(values.CritDistA[k], values.CritDistB[k], 0);
        if (!(distance[k] > distance[k - 1])) return std::nullopt;
    }
    DepthWork::PerRefractor thickness{};
    try {
        DepthWork::PerLayer velocity{};
        DepthWork::LayerMatrix angle{};
        True_Velocities(layers, apparent, velocity, angle);
        Critical_Distance_Thicknesses(layers, velocity, distance, values.Depth * 0.5, thickness);
        for (double& value : thickness)
            value = Shown_Thickness(value);
    } catch (const Fault&) {
        return std::nullopt;
    }
    return thickness;
}

double Shown_Thickness(double thickness) {
    return CInt_Or_Fault(100 * thickness) / 100.0;
}

}  // namespace tarnvik
