#pragma once

#include <vector>

#include "core/ports/picture.h"
#include "core/workspace.h"

namespace tarnvik {

/// Smallest step of 1, 2 or 5 times a power of ten that is not below `least`; 0 for what is no number above
/// 0.
double Round_Step(double least);

/// Multiples of `step` from `first` to `last`, both included; none for a step that would give more than
/// 10,000.
std::vector<double> Multiples(double first, double last, double step);

/// A time that the scale of the record names, and the sample, with fractions, that it stands beside.
struct TimeTick {
    double Ms = 0;
    double Sample = 0;
};

/// The ticks of the samples shown: as close as lines of text can stand beside each other on the picture,
/// whose letters and size count.
struct TimeTicks {
    TimeTicks(const RecordView& view, const Picture& picture);
    std::vector<TimeTick> Named;    ///< with a time beside them
    std::vector<TimeTick> Between;  ///< smaller ones; none where they would stand too close
};

/// Letters of the record's scales, points.
inline constexpr int scale_font = 7;

}  // namespace tarnvik
