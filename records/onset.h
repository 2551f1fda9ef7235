#pragma once

#include <optional>
#include <span>

#include "core/workspace.h"

namespace tarnvik {

/// Places on one trace that a pick may be meant for. Samples count from 1, places are fractions of samples;
/// nothing is found in a trace of zeros or where a place lies outside the trace.

/// First sample above the noise before it, within `reach` samples of `near`. The noise is what a straight
/// line through the samples before each does not foresee, measured before that stretch: a slow swing is none.
/// The rise behind the first sample is fitted, once as a line and once as a parabola, and the better fit
/// tells where it began. Nothing where no sample stands out.
std::optional<double> Find_Onset(std::span<const float> samples, double near, double reach);

/// Change of sign, largest or smallest value next to `near`, within `reach` samples of it. Bumps of less than
/// a tenth of the stretch's largest amplitude are passed over.
std::optional<double> Find_Zero_Crossing(std::span<const float> samples, double near, double reach);
std::optional<double> Find_Peak(std::span<const float> samples, double near, double reach);
std::optional<double> Find_Trough(std::span<const float> samples, double near, double reach);

/// What is chosen of these.
std::optional<double> Find_Feature(SnapTo feature, std::span<const float> samples, double near, double reach);

/// Onset of the first arrival on a whole trace: the first that stands far above all the noise before it and
/// comes to a fair share of the trace's amplitudes. For traces near the shot. `reach` tells how long a rise
/// may be.
std::optional<double> First_Arrival(std::span<const float> samples, double reach);

}  // namespace tarnvik
