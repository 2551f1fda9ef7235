#pragma once

#include <span>
#include <vector>

#include "processing/filters/fast_transform.h"
#include "processing/filters/filter_choice.h"

namespace tarnvik {

/// Applies a band pass to traces of one length: the transform of the trace times the response, which is real,
/// so no phase is turned.
///
/// The row that is transformed is at least twice as long as the trace, and longer where a slope is so narrow
/// that its echo lasts longer: nothing comes in again at the other end. Beyond its ends a trace is thought to
/// go on as the mean of its outermost samples, faded to its mean, so an offset makes no step at an end.
class BandPassFilter {
  public:
    /// A choice that Refusal let through.
    BandPassFilter(const BandPass& band, std::size_t samples, double interval_us);

    /// `samples` are finite and as many as told.
    void Apply(std::span<float> samples);

  private:
    std::size_t Samples;
    std::size_t EndSamples;  ///< whose mean a trace goes on as
    FastTransform Transform;
    std::vector<float> Factors;  ///< by frequency, the scaling of the transform included
    double AtZero;               ///< response at 0 Hz
    std::vector<float> Fade;     ///< from 1 to 0 over half of the room between end and beginning
};

}  // namespace tarnvik
