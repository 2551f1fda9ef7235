#include "depth/side_spread.h"

#include <cmath>

#include "core/fault.h"
#include "depth/intercept_depth.h"
#include "depth/shot_values.h"
#include "depth/true_velocity.h"

namespace tarnvik {

namespace {
constexpr double ms_per_second = 1000;
}

DepthWork::PerRefractor Spread_Of_Sides(const Project& project, int shot) {
    DepthWork::PerRefractor spread{};
    const ShotValues values = Values_Of_Shot(project, shot);
    InterceptTimes input;
    input.Layers = Layers_Of(values);
    const ApparentVelocities apparent = Apparent_Velocities_Of(project, shot);
    if (Layer_Out_Of_Order(input.Layers, apparent) != 0) return spread;
    DepthWork::PerRefractor side_a{};
    DepthWork::PerRefractor side_b{};
    try {
        True_Velocities(input.Layers, apparent, input.V, input.Angle);
        DepthWork::LayerMatrix delay{};
        for (std::size_t k = 1; k <= Project::MaxRefractors; ++k)
            input.IT[k] = values.InterceptA[k] / ms_per_second;
        Intercept_Thicknesses(input, side_a, delay);
        delay = {};
        for (std::size_t k = 1; k <= Project::MaxRefractors; ++k)
            input.IT[k] = values.InterceptB[k] / ms_per_second;
        Intercept_Thicknesses(input, side_b, delay);
    } catch (const Fault&) {
        return spread;
    }
    double depth_a = 0;
    double depth_b = 0;
    for (std::size_t k = 1; k < static_cast<std::size_t>(input.Layers); ++k) {
        if (!(values.InterceptA[k] > 0 && values.InterceptB[k] > 0 && values.Thickness[k] > 0)) break;
        depth_a += side_a[k];
        depth_b += side_b[k];
        spread[k] = std::abs(depth_a - depth_b) / 2;
    }
    return spread;
}

}  // namespace tarnvik
