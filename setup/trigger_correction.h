#pragma once

#include <optional>
#include <span>

namespace tarnvik {

// A recorder that was triggered too early or too late gives a whole record, and with it a whole travel-time
// curve, times that are wrong by one amount.

/// Time of a pick when `shift` ms are taken from its record, ms: a positive shift makes it earlier. No pick
/// (0 or below) stays none.
double Corrected_Time(double time, double shift);

/// Samples by which a record moves later for the same shift, nearest, halves to even. Nothing for a number
/// beyond 16 bits or an interval (microseconds) of 0.
std::optional<int> Samples_Of_Shift(double shift, int interval);

/// ms that the picks of a record are earlier than those of the project by, when they are by one and the same
/// amount within the rounding of header words. A 0 on either side is no pick. Nothing when the amounts differ
/// or there is nothing to compare.
std::optional<double> Common_Shift(std::span<const double> project, std::span<const double> record);

}  // namespace tarnvik
