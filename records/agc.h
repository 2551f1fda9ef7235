#pragma once

#include <span>

namespace tarnvik {

/// Levels the amplitudes of a trace for the eye: each sample is divided by the root mean square of the
/// samples within half of `window` samples on either side, itself included, as far as the trace goes. Where
/// these are all zero it stays zero. A sample that is no number counts as zero around it and stays none. A
/// window below 2 changes nothing.
void Level_Amplitudes(std::span<float> samples, int window);

}  // namespace tarnvik
