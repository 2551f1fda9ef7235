#pragma once

#include <cstdint>
#include <string>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "setup/rechinfo.h"

namespace tarnvik {

/// Makes a new project of field records with all its questions. It is built aside: given up at any question,
/// the project in memory stays as it is, with its history. Nothing is written but the numbers of the traces,
/// which are an edit and can be taken back; the project is saved by the user. True when a project was made;
/// its history begins with those numbers. With `records` the SU file has been chosen already.
bool New_Profile(Workspace& workspace, Ports& ports, rechinfo& dialog, const std::string& records = {});

/// Numbers the traces of the project's records for a new profile: a counter from 1 to `channels` and from 1
/// again goes to `ep`, and `tracf` is copied to `tracl`. Answers the reason of a failure, empty when it went
/// well.
std::string Number_Traces(Workspace& workspace, std::int32_t channels);

}  // namespace tarnvik
