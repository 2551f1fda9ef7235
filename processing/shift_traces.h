#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Samples by which traces move for a shift in ms, later where it is positive, at an interval in
/// microseconds: nearest, halves to even. Nothing for an interval of 0 and a number beyond 16 bits.
std::optional<int> Samples_To_Shift(double shift_ms, int interval_us);

/// What became of a shift.
struct TraceShift {
    std::int64_t Traces = 0;     ///< that were moved
    std::int64_t PushedOut = 0;  ///< of them, those that lost samples with signal
    std::string Failure;         ///< why nothing was written; empty when all went well
};
/// What the user is told of it.
std::string Pushed_Out_Text(const TraceShift& shift);
/// Writes `source` to `target`, traces first to last (from 1) moved by `samples`. Their pick words stay. The
/// traces are as long as the first one tells; what is no whole trace is copied as it is.
TraceShift Shift_Trace_Samples(const std::string& source, const std::string& target, std::int64_t first,
                               std::int64_t last, int samples);

/// Combo6, "Time (ms) to shift all traces of the record": after a question, moves the samples of the trace
/// clicked last, of the traces shown or of all, as one edit. A shift of 0 does nothing.
void Shift_Traces(Workspace& workspace, Ports& ports, double shift_ms);

}  // namespace tarnvik
