#include "depth/shot_velocities.h"

namespace tarnvik {

namespace {
constexpr int smallest_sum_of_sides = 100;  // below it a layer counts as not determined
}

void Shot_Velocities(const Project& project, int shot, int& count, std::array<double, 6>& velocities) {
    velocities = {};
    count = Project::MaxLayers;
    for (int layer = Project::MaxLayers; layer >= 1; --layer) {
        const int side_a = project.VelocityA(shot, layer);
        const int side_b = project.VelocityB(shot, layer);
        if (layer > 2 && side_a + side_b < smallest_sum_of_sides) count = layer - 1;
        const int sides = (side_a != 0 ? 1 : 0) + (side_b != 0 ? 1 : 0);
        if (sides > 0) velocities.at(static_cast<std::size_t>(layer)) = (side_a + side_b) / (1.0 * sides);
    }
}

}  // namespace tarnvik
