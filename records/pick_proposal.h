#pragma once

#include <optional>

#include "core/workspace.h"
#include "records/record_reading.h"

namespace tarnvik {

/// Place on the picture, in samples, where the first break of a trace may be looked for: its own pick, else
/// the moveout of the two picks before it continued (`step` is 1 or -1 for the direction that the user comes
/// from, 0 for none), else the onsets followed from the trace nearest to the shot outward. Proposals are
/// snapped to what is chosen.
double Proposed_Sample(const Workspace& workspace, RecordReading& record, int trace, int step);

/// Trace nearest to the shot that lives, and the onset of its first arrival in samples; nothing without one.
struct NearestArrival {
    int Trace = 0;
    double Sample = 0;
};
std::optional<NearestArrival> Nearest_Arrival(RecordReading& record);

}  // namespace tarnvik
