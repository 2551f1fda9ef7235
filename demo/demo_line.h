#pragma once

#include "core/project.h"
#include "demo/layered_earth.h"

namespace tarnvik {

/// The demo line: 24 geophones 5 m apart between two end shots, one shot in the middle, two offset shots,
/// over three layers whose boundaries dip, below ground that is not flat.
namespace demo_line {
inline constexpr int shots = 5;
inline constexpr int geophones = 24;
inline constexpr double length = 120;          ///< m between the end shots
inline constexpr double zero_elevation = 100;  ///< m, of the earth's zero level
inline constexpr int dead_shot = 3;            ///< record and geophone of the dead trace, which has no pick
inline constexpr int dead_geophone = 16;
inline constexpr int reversed_shot = 2;  ///< record and geophone of the trace of wrong polarity
inline constexpr int reversed_geophone = 9;
}  // namespace demo_line

/// The layers, in m below `zero_elevation` and m/s.
LayeredEarth Demo_Earth();

/// Elevation of the ground in whole centimetres, as levelled.
double Ground_Elevation(double distance);

/// Where a shot or a geophone of the project stands in the earth.
SectionPoint Shot_Point(const Project& project, int shot);
SectionPoint Geophone_Point(const Project& project, int geophone);

/// The project before any interpretation: geometry and the exact first breaks, to 0.01 ms.
Project Demo_Project();

/// The line with the depths and velocities of its earth below each geophone, in the place of those that delay
/// times would find: a section of them shows the model.
Project Demo_Model();

}  // namespace tarnvik
