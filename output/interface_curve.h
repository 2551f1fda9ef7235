#pragma once

#include <cstddef>
#include <span>

namespace tarnvik {

/// A place on an interface: column and row of the section's grid.
struct InterfacePoint {
    int Column = 0;
    int Row = 0;
    bool operator==(const InterfacePoint&) const = default;
};

/// Rows that a straight interface is below point `a` so many columns behind it, on its way to `b`.
double Straight_Rise(InterfacePoint a, InterfacePoint b, int columns);

/// The same of a smooth interface through points in rising columns, from `points[a]` to the next one: a cubic
/// Bezier curve for each pair, one tangent at each point. Between two points it never leaves their rows, so
/// that a smooth curve invents neither a hollow nor a rise (Fritsch and Butland 1984). Points in the same
/// column have no curve between them.
double Smooth_Rise(std::span<const InterfacePoint> points, std::size_t a, int columns);

}  // namespace tarnvik
