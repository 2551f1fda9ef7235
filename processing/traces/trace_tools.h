#pragma once

#include <span>
#include <string>
#include <string_view>

#include "processing/traces/byte_streams.h"
#include "processing/traces/trace_result.h"

namespace tarnvik {

/// A routine on streams of traces that is also a program of its own, told what to do by `name=value`
/// arguments.
struct TraceTool {
    std::string_view Name;
    std::string_view Usage;  ///< its arguments, a line each
    TraceResult (*Run)(std::span<const std::string> arguments, ByteSource& source, ByteSink& sink);
};

/// suwind, sushw, susort, sustack, suresamp.
std::span<const TraceTool> Trace_Tools();

}  // namespace tarnvik
