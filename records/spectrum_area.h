#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Two opposite corners of an area of the record picture, in its world coordinates.
struct RecordArea {
    double X1 = 0;
    double Y1 = 0;
    double X2 = 0;
    double Y2 = 0;
    /// The same area with the smaller X and Y first.
    RecordArea Sorted() const;
};

/// Arms the next drag on the record: it selects the area of a spectrum.
void Spectre_Frequency(Workspace& workspace, Ports& ports);

/// Starts the spectrum tool for the traces and samples of an area, at most 75 traces.
void Show_Spectrum(Workspace& workspace, Ports& ports, const RecordArea& area);

}  // namespace tarnvik
