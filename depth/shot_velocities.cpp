#include "depth/shot_velocities.h"

namespace tarnvik {

namespace {
constexpr int smallest_sum_of_sides = 100;  // below it a layer counts as not determined
}

int Layers_Determined(const std::array<std::int16_t, 6>& side_a, const std::array<std::int16_t, 6>& side_b) {
    int count = Project::MaxLayers;
    for (int layer = Project::MaxLayers; layer > 2; --layer) {
        const auto at = static_cast<std::size_t>(layer);
        if (side_a[at] + side_b[at] < smallest_sum_of_sides) count = layer - 1;
    }
    return count;
}

void Shot_Velocities(const Project& project, int shot, int& count, std::array<double, 6>& velocities) {
    velocities = {};
    std::array<std::int16_t, 6> sides_a{};
    std::array<std::int16_t, 6> sides_b{};
    for (int layer = Project::MaxLayers; layer >= 1; --layer) {
        const auto at = static_cast<std::size_t>(layer);
        const int side_a = sides_a[at] = project.VelocityA(shot, layer);
        const int side_b = sides_b[at] = project.VelocityB(shot, layer);
        const int sides = (side_a != 0 ? 1 : 0) + (side_b != 0 ? 1 : 0);
        if (sides > 0) velocities[at] = (side_a + side_b) / (1.0 * sides);
    }
    count = Layers_Determined(sides_a, sides_b);
}

}  // namespace tarnvik
