#pragma once

#include "core/ports/ports.h"
#include "core/workspace.h"

namespace tarnvik {

/// Button Command6 "Distance correction": adds a distance to all receivers and shots so that the first end
/// shot lies at 0. A second use offers the negated distance and so returns to the earlier places. A distance
/// of 0 moves nothing and forgets the one in force; a cancelled box changes nothing.
void Distance_Correction(Workspace& workspace, Ports& ports);

/// Double click on the line length: takes the line length, from end shot 1 to an end shot of the user's
/// choice. A length that is not above 0, or a cancelled box, changes nothing.
void Enter_Line_Length(Workspace& workspace, Ports& ports);

}  // namespace tarnvik
