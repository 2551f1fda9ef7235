#pragma once

#include <cstdint>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "setup/rechinfo.h"

namespace tarnvik {

/// Makes a new project of field records with all its questions. Cancel at the first question leaves all as it
/// was; from the choice of the SU file on the old project is gone, also when the flow is given up later: then
/// no project is in memory and CurrentFile is empty. Nothing is written but the numbers of the traces; the
/// project is saved by the user. True when a project was made.
bool New_Profile(Workspace& workspace, Ports& ports, rechinfo& dialog);

/// Numbers the traces of the project's records for a new profile: a counter from 1 to `channels` and from 1
/// again goes to `ep`, and `tracf` is copied to `tracl`. Answers the reason of a failure, empty when it went
/// well.
std::string Number_Traces(Workspace& workspace, std::int32_t channels);

}  // namespace tarnvik
