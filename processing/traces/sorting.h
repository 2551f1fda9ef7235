#pragma once

#include <span>
#include <string>
#include <vector>

#include "processing/traces/byte_streams.h"
#include "processing/traces/trace_result.h"
#include "processing/traces/trace_words.h"

namespace tarnvik {

struct SortKey {
    TraceWord Word;
    bool Descending = false;
};

/// By arguments that are names of words, "+" or "-" before them for ascending (also without a sign) or
/// descending; cdp and within it offset where there are none.
std::vector<SortKey> Sort_Keys(std::span<const std::string> arguments);

/// Writes the traces in the order of the keys, the first one first; traces with equal keys stay in the order
/// in which they came. Only the keys are kept in memory: samples are read again from the source, or from a
/// temporary file where the source is a pipe.
TraceResult Sort_Traces(ByteSource& source, ByteSink& sink, std::span<const SortKey> keys);

}  // namespace tarnvik
