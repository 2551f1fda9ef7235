#include "traveltime/hand_band.h"

#include "core/text/number.h"

namespace tarnvik {

std::optional<double> Band_Intercept(double down_distance, double down_time, double distance, double time,
                                     double shot_distance) {
    constexpr double least_slope = 0.0001;
    if (down_time == time) return std::nullopt;
    // The slope counts the time from the pointer back to the press. Kept: intercepts read by hand are those
    // that the dialog has always shown, and the field can be typed over.
    double slope = (distance - down_distance) / (down_time - time) + least_slope;
    if (slope == 0) slope = least_slope;
    const double at_start = down_time - down_distance / slope;
    return Int(10 * (at_start + shot_distance / slope)) / 10;
}

int Side_Of_Band(int side, const HandBand& band, double shot_distance, double line_length) {
    // Distances are compared with picture units, and ms with picture units, as they stand. Kept, since the
    // sides of recorded velocities were found like this.
    const double along = band.DownDistance - band.EndX;
    const double up = band.DownTime - band.EndY;
    if (along * up > 0) side = 24;
    if (along * up < 0) side = 1;
    if (shot_distance <= 0 || shot_distance >= line_length) side = 36;
    return side;
}

}  // namespace tarnvik
