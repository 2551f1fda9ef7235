#pragma once

#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace tarnvik {

/// A point of the section: X along the line, Z below the line's zero level, in the same unit.
struct SectionPoint {
    double X = 0;
    double Z = 0;
};

/// One layer with the plane that it lies on: `Depth` of its lower boundary below X = 0, growing along the
/// line by the tangent of `Dip` (radians, positive where the boundary goes down towards higher X). The last
/// layer has no lower boundary.
struct EarthLayer {
    double Velocity = 0;  ///< distance units per second
    double Depth = 0;
    double Dip = 0;
};

/// Layers of constant velocity on plane boundaries: the exact first arrivals that refraction methods can be
/// held against. Boundaries must not cross between the points asked for.
class LayeredEarth {
  public:
    static constexpr double no_arrival = -1;

    explicit LayeredEarth(std::vector<EarthLayer> layers) : Layers(std::move(layers)) {}
    /// Horizontal layers; `thicknesses` has one element less than `velocities`.
    static LayeredEarth Horizontal(std::span<const double> velocities, std::span<const double> thicknesses);

    int Count() const { return static_cast<int>(Layers.size()); }
    double Velocity(int layer) const { return Layers[static_cast<std::size_t>(layer) - 1].Velocity; }
    /// Depth of the lower boundary of layer 1 to Count() - 1 below the zero level at x.
    double Boundary_Depth(int layer, double x) const;
    /// Distance at right angles from a point to the lower boundary of a layer.
    double Normal_Distance(int layer, SectionPoint from) const;

    /// Time in ms along the straight ray in layer 1; both points lie in layer 1.
    double Direct_Time(SectionPoint shot, SectionPoint receiver) const;
    /// Time in ms of the wave that runs along the lower boundary of `layer` with the velocity below it;
    /// no_arrival where there is none. By Snell's law every leg has one direction in each layer, so the path
    /// is found exactly, boundary by boundary.
    double Head_Wave_Time(int layer, SectionPoint shot, SectionPoint receiver) const;
    /// Time in ms of the first arrival. `branch`, when asked for, is 1 for the direct wave and k for the wave
    /// along the top of layer k.
    double First_Arrival(SectionPoint shot, SectionPoint receiver, int* branch = nullptr) const;

  private:
    std::vector<EarthLayer> Layers;
};

}  // namespace tarnvik
