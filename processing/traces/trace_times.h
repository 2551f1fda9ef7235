#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarnvik {

/// Samples that the word `ns` can tell.
inline constexpr std::int64_t most_samples = 65535;

/// `dt` of a header, microseconds, and the time of its first sample after the shot (`delrt`), microseconds.
int Interval_Us(const char* header);
double Start_Us(const char* header);

/// Writes the time of the first sample into `delrt`, which holds whole milliseconds: the nearest, and the
/// first time that this changes the time by more than a thousandth of a millisecond a note is added.
void Set_Start(char* header, double start_us, std::int64_t trace, std::vector<std::string>& notes);

/// The Fault of a trace whose `dt` is not that of the traces before.
[[noreturn]] void Refuse_Interval(std::int64_t trace, int interval, int before);

}  // namespace tarnvik
