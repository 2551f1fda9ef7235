#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/workspace.h"

namespace tarnvik {

/// What the correction of a shot by a shift would make of the project and its field records. Places of the
/// lists belong to receivers, the first to receiver 1.
struct TriggerPlan {
    int Shot = 0;
    double Shift = 0;                  ///< ms, taken from all times
    std::vector<double> Times;         ///< new picks, ms
    std::vector<std::int16_t> Words;   ///< new first-break words, tenths of a ms
    std::vector<std::int64_t> Traces;  ///< of the SU file; 0 where it has none that is whole
    int ShiftSamples = 0;              ///< by which the samples move later
    std::int64_t FirstTrace = 0;
    std::int64_t LastTrace = 0;
    std::string Refusal;    ///< why nothing can be done; empty when it can
    std::string NoRecords;  ///< why the records stay as they are; empty when they can be corrected
};

/// Looks at project and records and changes nothing. A pick or a shift that its place cannot hold refuses the
/// whole.
TriggerPlan Plan_Trigger_Correction(const Workspace& workspace, int shot, double shift);

/// ms that the records of a shot have been moved earlier by, as their picks or the note of a correction that
/// was cut short tell, while the picks of the project have not; 0 where nothing points to it.
double Shifted_Already(const Workspace& workspace, const TriggerPlan& plan);

/// Moves samples and pick words of the shot in the SU file, and in its twin; both stay at any moment either
/// as they were or as they become. Belongs into an edit, which must be given up when a reason for a failure
/// is answered. The records carry a note beside them until Forget_Shift_Note tells that the project has been
/// saved with its picks.
std::string Shift_Records(Workspace& workspace, const TriggerPlan& plan);
void Forget_Shift_Note(const Workspace& workspace, int shot);

}  // namespace tarnvik
