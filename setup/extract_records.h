#pragma once

#include <string>

#include "core/workspace.h"

namespace tarnvik {

/// Writes the project's records without the traces of one shot to another SU file, beside it first and then
/// renamed, so that `target` is whole or stays as it was. All traces of the copy are live; the records
/// themselves are only read. On a line of several spreads the records of later shots get the station that
/// their shot has once this one is gone. Answers the reason of a failure, empty when it went well.
std::string Extract_Records(const Workspace& workspace, int shot, const std::string& target);

}  // namespace tarnvik
