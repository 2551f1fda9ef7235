#pragma once

#include "core/project.h"
#include "demo/undulating_earth.h"

namespace tarnvik {

/// The second demo line: 48 geophones 2.5 m apart between two end shots, an offset shot beyond each end,
/// level ground, one layer over a refractor that undulates: for the methods that find a depth below every
/// receiver.
namespace undulating_line {
inline constexpr int shots = 4;
inline constexpr int geophones = 48;
inline constexpr double length = 120;          ///< m between the end shots
inline constexpr double zero_elevation = 100;  ///< m, of the ground
inline constexpr double layer_velocity = 900;  ///< m/s
inline constexpr double refractor_velocity = 2400;
// The end shots' reciprocal time, and what an offset shot comes later than the end shot before it, are whole
// numbers of units of the picture (1.5 ms): the scroll bars of the delay dialog can be set to them exactly.
inline constexpr int total_time_units = 63;
inline constexpr int left_shift_units = 20;
inline constexpr int right_shift_units = 24;
}  // namespace undulating_line

/// The layer and the refractor, in m below the ground and m/s.
UndulatingEarth Undulating_Demo_Earth();

/// The project before any interpretation: geometry and the exact first breaks, to 0.01 ms.
Project Undulating_Demo_Project();

/// The line with the depths of its earth below each geophone, as Demo_Model has them.
Project Undulating_Demo_Model();

}  // namespace tarnvik
