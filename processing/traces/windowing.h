#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "processing/traces/byte_streams.h"
#include "processing/traces/trace_result.h"
#include "processing/traces/trace_words.h"

namespace tarnvik {

/// Which traces of a stream are kept, and what part of each.
struct WindowChoice {
    TraceWord Key{words::tracl};
    double Lowest = -std::numeric_limits<double>::infinity();  ///< of the key, both included
    double Highest = std::numeric_limits<double>::infinity();
    std::int64_t Every = 1;  ///< of the keys within the range, those with (key - Phase) a multiple of this
    std::int64_t Phase = 0;
    std::vector<double> Reject;  ///< keys dropped whatever else is said
    std::vector<double> Accept;  ///< keys kept although range or step leave them out
    std::int64_t Skip = 0;       ///< traces at the beginning that are passed over
    std::int64_t Count = std::numeric_limits<std::int64_t>::max();  ///< traces kept at most

    // Time window in seconds from the shot, ends included, to the nearest sample; or in samples from 0. What
    // is not told is the end of the first trace on that side.
    std::optional<double> From;
    std::optional<double> To;
    std::optional<std::int64_t> FirstSample;
    std::optional<std::int64_t> LastSample;
    std::optional<std::int64_t> SampleCount;  ///< in the place of the end
    std::optional<double> Interval;           ///< seconds, in the place of `dt` of the header

    bool Cuts_Time() const { return From || To || FirstSample || LastSample || SampleCount; }
};

/// By the arguments key, min, max, j, s, reject, accept, skip, count, tmin, tmax, itmin, itmax, nt, dt.
WindowChoice Window_Choice(std::span<const std::string> arguments);

/// Copies the traces chosen. A time window is cut as asked from every trace: where it reaches beyond the
/// trace there are zeros, so that all have the same number of samples. `ns` and `delrt` follow.
TraceResult Window_Traces(ByteSource& source, ByteSink& sink, const WindowChoice& choice);

}  // namespace tarnvik
