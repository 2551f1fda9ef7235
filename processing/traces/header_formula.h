#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "processing/traces/byte_streams.h"
#include "processing/traces/trace_result.h"
#include "processing/traces/trace_words.h"

namespace tarnvik {

/// Values of a header word along a stream. Trace n, from 0, gets
/// `First + Step * ((n + Shift) mod GroupSize) + GroupStep * floor((n + Shift) / GroupSize)`.
struct HeaderFormula {
    TraceWord Word;
    double First = 0;
    double Step = 0;       ///< from trace to trace within a group
    double GroupStep = 0;  ///< from group to group
    std::int64_t Shift = 0;
    std::int64_t GroupSize = 0;  ///< 0: one group without end

    double Value(std::int64_t trace) const;
};

/// By the arguments key, a, b, c, d, j: lists with a value for each key, all 0 where absent.
std::vector<HeaderFormula> Header_Formulas(std::span<const std::string> arguments);

/// Writes the words into all traces of a stream. A value that does not fit its word is a failure that names
/// trace and word; so is an `ns` that is not the number of samples that follow.
TraceResult Set_Header_Words(ByteSource& source, ByteSink& sink, std::span<const HeaderFormula> formulas);

}  // namespace tarnvik
