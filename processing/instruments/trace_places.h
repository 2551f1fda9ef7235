#pragma once

#include <string>

#include "processing/instruments/field_file.h"
#include "records/trace_header.h"

namespace tarnvik {

/// Steps in which places are written: 1, 10, 100 or 1000 to a unit of length.
struct PlaceSteps {
    int Coordinates = 1;
    int Elevations = 1;
};

/// Steps that hold the places to a thousandth of the unit, no fewer than before.
void Refine(PlaceSteps& steps, const TracePlaces& places);

/// Writes the places that have a value into `sx`, `gx` ... `selev`, `gelev` and their scale words, and
/// `offset`, negative where the receiver lies before the shot. Words that share a scale word and are not
/// given are kept in the new steps. False where a place is too large for its word with as many steps and was
/// written in fewer.
bool Put_Places(TraceHeader& header, const TracePlaces& places, PlaceSteps steps);

/// The places that have a value in `over` instead of those of `places`.
void Lay_Over(TracePlaces& places, const TracePlaces& over);

}  // namespace tarnvik
