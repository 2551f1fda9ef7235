#pragma once

#include <string>
#include <vector>

namespace tarnvik {

/// Numbers of an axis from `low` to `high` that is `pixels` long: steps of 1, 2 or 5 times a power of ten, so
/// far apart that texts of `room` pixels stand beside each other.
std::vector<double> Axis_Ticks(double low, double high, double pixels, double room);

/// A tick's text without the last digits of a sum of steps.
std::string Tick_Text(double value);

}  // namespace tarnvik
