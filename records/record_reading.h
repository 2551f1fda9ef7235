#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "core/workspace.h"
#include "records/spread_layout.h"
#include "records/su_file.h"

namespace tarnvik {

/// Some traces of the SU file with their picks and offsets, read for one operation. Traces count as in the
/// file; places in time are in samples, as on the record picture.
class RecordReading {
  public:
    /// The record shown: all its traces, whatever part of it is in sight.
    explicit RecordReading(const Workspace& workspace);
    RecordReading(const Workspace& workspace, std::int64_t first, std::int64_t last);

    bool Empty() const { return LastTrace < FirstTrace || Interval <= 0; }
    int First() const { return FirstTrace; }
    int Last() const { return LastTrace; }
    bool Has(std::int64_t trace) const { return trace >= FirstTrace && trace <= LastTrace; }
    double Sample_Ms() const { return Interval; }
    const SpreadLayout& Layout() const { return Spread; }

    bool Dead(int trace) { return File.Word_Or_Zero(trace, words::trid) == dead_trace; }
    /// The pick as the project has it, of a trace that the project lacks as the file has it; nothing without.
    std::optional<double> Pick_Ms(int trace);
    /// Place of the receiver from the shot, negative before it; nothing where the project does not tell.
    std::optional<double> Offset(int trace) const;
    /// Samples 1, 2 ...; valid until the next call. Empty where the file ends.
    std::span<const float> Samples(int trace);

  private:
    const Workspace& Work;
    SuTraces File;
    int FirstTrace = 1;
    int LastTrace = 0;
    double Interval = 0;
    SpreadLayout Spread;
    std::vector<float> Buffer;
};

/// Samples on each side of a place that a pick is snapped within.
double Snap_Reach(double sample_ms);

/// A place after snapping to what is chosen; where nothing is found it stays.
double Snapped(const Workspace& workspace, RecordReading& record, int trace, double sample);

}  // namespace tarnvik
