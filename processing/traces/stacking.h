#pragma once

#include <span>
#include <string>

#include "processing/traces/byte_streams.h"
#include "processing/traces/trace_result.h"
#include "processing/traces/trace_words.h"

namespace tarnvik {

struct StackChoice {
    TraceWord Key{words::cdp};
    /// Each sample is divided by the number of its non-zero contributions to this power: 1 is the mean, 0 the
    /// sum.
    double Power = 1;
};

/// By the arguments key, normpow.
StackChoice Stack_Choice(std::span<const std::string> arguments);

/// Adds traces that follow each other with the same key. The sum has the header of the first of them, with
/// the number of traces in `nhs`. Traces of another `dt` within a group are a failure.
TraceResult Stack_Traces(ByteSource& source, ByteSink& sink, const StackChoice& choice);

}  // namespace tarnvik
