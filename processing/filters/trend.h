#pragma once

#include <algorithm>
#include <limits>
#include <span>

namespace tarnvik {

/// A value as a sample holds it; one too large becomes the largest that there is.
inline float As_Sample(double value) {
    constexpr double most = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(value, -most, most));
}

/// Mean of samples; 0 of none.
double Mean(std::span<const float> samples);
/// Largest distance of a sample from `from`.
float Largest_Size(std::span<const float> samples, double from);
/// Root mean square.
double Root_Mean_Square(std::span<const float> samples);

void Remove_Mean(std::span<float> samples);
/// Takes off the straight line that fits best by least squares, its mean with it. A single sample becomes 0.
void Remove_Line(std::span<float> samples);
/// Makes the root mean square 1; a trace of zeros stays.
void Balance_Amplitudes(std::span<float> samples);

/// Samples that are no number get the straight line between the numbers on either side, at an end the
/// nearest one, and 0 where there is none at all. Tells how many there were.
int Bridge_Gaps(std::span<float> samples);

}  // namespace tarnvik
