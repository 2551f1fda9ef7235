#pragma once

#include <vector>

#include "interpretation/eikonal.h"

namespace tarnvik {

/// A value known at places along the line: straight between them, level beyond the first and the last.
class LineValues {
  public:
    struct Knot {
        double X = 0;
        double Value = 0;
    };
    LineValues() = default;
    /// Knots in any order; of several at one place the last counts.
    explicit LineValues(std::vector<Knot> knots);

    bool Empty() const { return Knots.empty(); }
    const std::vector<Knot>& All() const { return Knots; }
    /// 0 without any knot.
    double At(double x) const;

  private:
    std::vector<Knot> Knots;
};

/// The ground below a line as layers: the surface, the elevations of the interfaces from the uppermost, and
/// the velocity of each layer along the line (one more than interfaces), distance units per second.
struct LayeredSection {
    LineValues Ground;
    std::vector<LineValues> Interfaces;
    std::vector<LineValues> Velocities;

    /// Elevation of interface `layer` (from 0) at x: never above the one over it, nor above the ground.
    double Elevation(std::size_t layer, double x) const;
    /// Distance from a point to the nearest interface.
    double Distance_To_Interface(double x, double z) const;
};

/// Part of the section that a grid covers.
struct GroundWindow {
    double Left = 0;
    double Right = 0;
    double Top = 0;  ///< elevation
    double Bottom = 0;
};

/// The section on squares of `cell`. A node stands for the square around it: one that an interface cuts has
/// the mean velocity of its parts, by which a wave along the interface comes less late than by the mean of
/// their slownesses. Above ground the first layer goes on for one square, so that a wave along a slope does
/// not run up stairs.
SlownessGrid Grid_Of_Section(const LayeredSection& section, const GroundWindow& window, double cell);

}  // namespace tarnvik
