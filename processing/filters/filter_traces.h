#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <optional>

#include "processing/filters/filter_choice.h"
#include "processing/traces/byte_streams.h"
#include "processing/traces/trace_result.h"

namespace tarnvik {

/// Traces of a stream, from 1, both included.
struct TraceStretch {
    std::int64_t First = 1;
    std::int64_t Last = std::numeric_limits<std::int64_t>::max();
    bool Has(std::int64_t trace) const { return trace >= First && trace <= Last; }
    bool operator==(const TraceStretch&) const = default;
};

/// What is done with a stream of traces.
struct FilterRequest {
    FilterChoice Choice;
    TraceStretch Traces;  ///< others pass as they are
    /// Of these, those whose polarity Choice.Reverse turns; all where nothing is told.
    std::optional<TraceStretch> Reversed;

    bool Reverses(std::int64_t trace) const {
        return Choice.Reverse && Traces.Has(trace) && (!Reversed || Reversed->Has(trace));
    }
};

/// Told now and then how many traces are done, of how many (0 where that is not known); answers false to
/// stop.
using FilterProgress = std::function<bool(std::int64_t done, std::int64_t all)>;

/// Filters a stream. Headers, and so the picks, stay byte for byte; dead traces are filtered like the others,
/// so that one that is called back to life fits its neighbours. Samples that are no number are told in a
/// note. A choice that Refusal does not let through, traces of another `dt` than the first, and a stretch
/// that begins or ends behind the last trace are failures.
TraceResult Filter_Traces(const FilterRequest& request, ByteSource& source, ByteSink& sink,
                          const FilterProgress& progress = {});

}  // namespace tarnvik
