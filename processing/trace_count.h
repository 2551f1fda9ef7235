#pragma once

#include <cstdint>
#include <functional>

namespace tarnvik {

/// Told now and then how many traces are done, of how many; answers false to stop.
using TraceProgress = std::function<bool(std::int64_t done, std::int64_t all)>;

/// Channel of a trace (both from 1) in a file of records of `channels` traces each.
constexpr std::int64_t Channel_Of_Trace(std::int64_t trace, std::int64_t channels) {
    return (trace - 1) % channels + 1;
}
/// Record of a trace, from 0.
constexpr std::int64_t Record_Of_Trace(std::int64_t trace, std::int64_t channels) {
    return (trace - 1) / channels;
}

}  // namespace tarnvik
