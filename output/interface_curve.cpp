#include "output/interface_curve.h"

namespace tarnvik {

namespace {

/// Rows a column from one point to the next.
double Secant(std::span<const InterfacePoint> points, std::size_t a) {
    return static_cast<double>(points[a + 1].Row - points[a].Row) / (points[a + 1].Column - points[a].Column);
}

/// Slope of the curve at a point: at an end, or where a neighbour is not farther along the line, that of the
/// one stretch beside it; at a highest or lowest point level; otherwise the weighted harmonic mean of both
/// stretches, which keeps the curve between its points.
double Tangent(std::span<const InterfacePoint> points, std::size_t at) {
    const bool before = at > 0 && points[at].Column > points[at - 1].Column;
    const bool behind = at + 1 < points.size() && points[at + 1].Column > points[at].Column;
    if (!before) return Secant(points, at);
    if (!behind) return Secant(points, at - 1);
    const double left = Secant(points, at - 1);
    const double right = Secant(points, at);
    if (left * right <= 0) return 0;
    const double left_width = points[at].Column - points[at - 1].Column;
    const double right_width = points[at + 1].Column - points[at].Column;
    const double left_weight = left_width + 2 * right_width;
    const double right_weight = 2 * left_width + right_width;
    return (left_weight + right_weight) / (left_weight / left + right_weight / right);
}

}  // namespace

double Straight_Rise(InterfacePoint a, InterfacePoint b, int columns) {
    // Divided first: the quotient's last digit decides a half row, and grids of earlier versions agree.
    return static_cast<double>(b.Row - a.Row) / (b.Column - a.Column) * columns;
}

double Smooth_Rise(std::span<const InterfacePoint> points, std::size_t a, int columns) {
    const double width = points[a + 1].Column - points[a].Column;
    const double rise = points[a + 1].Row - points[a].Row;
    const double first_handle = Tangent(points, a) * width / 3;
    const double second_handle = rise - Tangent(points, a + 1) * width / 3;
    const double t = columns / width;
    const double rest = 1 - t;
    return 3 * rest * rest * t * first_handle + 3 * rest * t * t * second_handle + t * t * t * rise;
}

}  // namespace tarnvik
