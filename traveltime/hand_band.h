#pragma once

#include <cstdint>
#include <optional>

namespace tarnvik {

/// A line drawn by hand on the travel-time picture, from the press to where the pointer is or was let go.
struct HandBand {
    double X1 = 0;  ///< exact ends: picture units across the line
    double T1 = 0;  ///< and ms
    double X2 = 0;
    double T2 = 0;
    std::int16_t DownDistance = 0;  ///< of the press: distance units
    std::int16_t DownTime = 0;      ///< and ms
    double Distance = 0;            ///< of its end, as the pointer reads it: distance units
    double Time = 0;                ///< and ms
    std::int16_t EndX = 0;          ///< of its end: units of the picture across
    std::int16_t EndY = 0;          ///< and up
};

/// Intercept time (ms, floored to a tenth) at a shot of a band from its press to the pointer; distances in
/// length units, times in ms. Nothing for a band without a time difference.
std::optional<double> Band_Intercept(double down_distance, double down_time, double distance, double time,
                                     double shot_distance);

/// Side that the velocity of a band is recorded on: 1 A, 24 B by the band's direction, 36 both for an end
/// shot and an offset shot. A band that its whole numbers show as upright or level keeps `side`.
int Side_Of_Band(int side, const HandBand& band, double shot_distance, double line_length);

}  // namespace tarnvik
