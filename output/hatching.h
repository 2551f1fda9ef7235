#pragma once

#include <span>
#include <vector>

namespace tarnvik {

/// A corner of an area, and a stroke across it: in pixels, so that a pattern looks alike at any vertical
/// exaggeration.
struct HatchPoint {
    double X = 0;
    double Y = 0;
};
struct HatchStroke {
    HatchPoint From;
    HatchPoint To;
};

/// Parallel strokes over the inside of a polygon (even-odd rule), `spacing` pixels apart. `angle` in degrees
/// from the horizontal, growing clockwise as Y goes down. The strokes of all areas lie on one set of lines,
/// so that neighbours with the same pattern agree. None for fewer than three corners or a spacing not above
/// 0.
std::vector<HatchStroke> Hatch_Area(std::span<const HatchPoint> polygon, double angle, double spacing);

}  // namespace tarnvik
