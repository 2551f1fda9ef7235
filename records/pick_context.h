#pragma once

#include <vector>

#include "core/ports/mark.h"
#include "core/workspace.h"
#include "records/record_reading.h"

namespace tarnvik {

/// Lines and dots on the record that help to judge its picks, as the choices in PickingView ask for them:
/// the line through the record's own picks, the times expected from the shots at the other end (the time from
/// shot to shot is the same both ways), and the picks of the shot before at the same offsets.
std::vector<Mark> Context_Marks(const Workspace& workspace, RecordReading& record);

/// Their colours.
inline constexpr Colour neighbours_colour = 0x9090FF;   // pale red
inline constexpr Colour reciprocal_colour = 0x8A7A00;   // teal
inline constexpr Colour shot_before_colour = 0xB06090;  // violet

}  // namespace tarnvik
