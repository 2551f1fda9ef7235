#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// A few traces around a place, enlarged beside the record: by the same drawing as the record, with the same
/// gain, polarity and style.

/// The place that the magnifier stands at from now on.
void Magnify(Workspace& workspace, int trace, double sample);

/// Draws that place on the magnifier's picture, with a line where it is.
void Show_Magnifier(Workspace& workspace, Ports& ports);

}  // namespace tarnvik
