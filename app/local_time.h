#pragma once

#include <chrono>
#include <string>

namespace tarnvik {

/// A moment in the user's time zone, written by a pattern of strftime, up to 31 letters.
std::string Local_Time_Text(std::chrono::system_clock::time_point time, const char* pattern);

}  // namespace tarnvik
