#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "processing/traces/byte_streams.h"
#include "processing/traces/trace_result.h"

namespace tarnvik {

/// The sampling wanted. What is not told stays as in the first trace, the start as in each trace.
struct ResampleChoice {
    std::optional<std::int64_t> Samples;
    std::optional<double> Interval;  ///< seconds; must be whole microseconds, as `dt` holds them
    std::optional<double> Start;     ///< time of the first sample, seconds from the shot
};

/// By the arguments nt, dt, tmin.
ResampleChoice Resample_Choice(std::span<const std::string> arguments);

/// Resamples all traces of a stream (SincResampler); `ns`, `dt` and `delrt` follow. Traces of another `dt`
/// than the first, and a `dt` of 0, are failures.
TraceResult Resample_Traces(ByteSource& source, ByteSink& sink, const ResampleChoice& choice);

}  // namespace tarnvik
