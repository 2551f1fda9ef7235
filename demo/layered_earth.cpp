#include "demo/layered_earth.h"

#include <cmath>
#include <optional>
#include <stdexcept>
#include <utility>

namespace tarnvik {

namespace {

constexpr double ms_per_second = 1000;

/// A direction in the section; Z grows downwards.
struct Direction {
    double X = 0;
    double Z = 0;
};

/// Unit vectors of a boundary: along it towards higher X, and across it downwards.
Direction Along(const EarthLayer& layer) {
    return {std::cos(layer.Dip), std::sin(layer.Dip)};
}
Direction Across(const EarthLayer& layer) {
    return {-std::sin(layer.Dip), std::cos(layer.Dip)};
}

double Product(Direction a, Direction b) {
    return a.X * b.X + a.Z * b.Z;
}

/// The direction (upwards) in the layer above a boundary of a ray that comes from below along `below`, by
/// Snell's law; nothing when it is totally reflected.
std::optional<Direction> Refracted_Up(const EarthLayer& boundary, Direction below, double velocity_above,
                                      double velocity_below) {
    const Direction along = Along(boundary);
    const Direction across = Across(boundary);
    const double sine = Product(below, along) * velocity_above / velocity_below;
    if (std::abs(sine) > 1) return std::nullopt;
    const double cosine = std::sqrt(1 - sine * sine);
    return Direction{sine * along.X - cosine * across.X, sine * along.Z - cosine * across.Z};
}

}  // namespace

LayeredEarth LayeredEarth::Horizontal(std::span<const double> velocities,
                                      std::span<const double> thicknesses) {
    if (thicknesses.size() + 1 != velocities.size())
        throw std::invalid_argument("one thickness less than velocities");
    std::vector<EarthLayer> layers;
    double depth = 0;
    for (std::size_t i = 0; i < velocities.size(); ++i) {
        if (i < thicknesses.size()) depth += thicknesses[i];
        layers.push_back({velocities[i], depth, 0});
    }
    return LayeredEarth(std::move(layers));
}

double LayeredEarth::Boundary_Depth(int layer, double x) const {
    const EarthLayer& boundary = Layers.at(static_cast<std::size_t>(layer) - 1);
    return boundary.Depth + x * std::tan(boundary.Dip);
}

double LayeredEarth::Normal_Distance(int layer, SectionPoint from) const {
    const EarthLayer& boundary = Layers.at(static_cast<std::size_t>(layer) - 1);
    return (Boundary_Depth(layer, from.X) - from.Z) * std::cos(boundary.Dip);
}

double LayeredEarth::Direct_Time(SectionPoint shot, SectionPoint receiver) const {
    return std::hypot(receiver.X - shot.X, receiver.Z - shot.Z) / Layers.front().Velocity * ms_per_second;
}

double LayeredEarth::Head_Wave_Time(int layer, SectionPoint shot, SectionPoint receiver) const {
    const auto refractor = static_cast<std::size_t>(layer) - 1;  // its boundary among Layers
    if (refractor + 1 >= Layers.size()) return no_arrival;
    if (receiver.X < shot.X) std::swap(shot, receiver);

    // Time and meeting point of one leg; `sense` is +1 for the leg to the receiver, -1 for that from the shot
    // run backwards.
    double time = 0;
    const auto leg = [&](SectionPoint from, double sense) -> std::optional<SectionPoint> {
        std::vector<Direction> up(refractor + 1);
        Direction below = Along(Layers[refractor]);
        below = {sense * below.X, sense * below.Z};
        for (std::size_t i = refractor + 1; i-- > 0;) {
            const auto refracted = Refracted_Up(Layers[i], below, Layers[i].Velocity, Layers[i + 1].Velocity);
            if (!refracted) return std::nullopt;
            up[i] = below = *refracted;
        }
        for (std::size_t i = 0; i <= refractor; ++i) {
            const double gap = Normal_Distance(static_cast<int>(i) + 1, from);
            const double rate = -Product(up[i], Across(Layers[i]));  // per unit of ray
            if (gap < 0 || rate <= 0) return std::nullopt;
            const double length = gap / rate;
            from = {from.X - length * up[i].X, from.Z - length * up[i].Z};
            time += length / Layers[i].Velocity;
        }
        return from;
    };
    const auto leaves = leg(shot, -1);
    const auto returns = leg(receiver, 1);
    if (!leaves || !returns) return no_arrival;
    const Direction along = Along(Layers[refractor]);
    const double path = Product({returns->X - leaves->X, returns->Z - leaves->Z}, along);
    if (path < 0) return no_arrival;  // nearer than the wave can come up again
    return (time + path / Layers[refractor + 1].Velocity) * ms_per_second;
}

double LayeredEarth::First_Arrival(SectionPoint shot, SectionPoint receiver, int* branch) const {
    double first = Direct_Time(shot, receiver);
    int found = 1;
    for (int layer = 1; layer < Count(); ++layer) {
        const double time = Head_Wave_Time(layer, shot, receiver);
        if (time == no_arrival || time >= first) continue;
        first = time;
        found = layer + 1;
    }
    if (branch != nullptr) *branch = found;
    return first;
}

}  // namespace tarnvik
