#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/ports/ports.h"
#include "core/workspace.h"
#include "processing/fresh_file.h"
#include "processing/su_chain.h"

namespace tarnvik {

/// Tells how a chain ended that did not end well: a tool that cannot be started by `unable` and, with
/// `with_path`, its path; one that failed in its own words. One that was stopped stands in the status field.
void Tell_Chain_End(Workspace& workspace, Ports& ports, const ChainEnd& end,
                    const std::string& unable = "Unable to launch  ", bool with_path = true);

/// Notes a composed text in the log beside the project's SU file; the status field tells when that fails.
void Note_Chain(Workspace& workspace, const std::string& text);

/// Name aside of the lower-cased path, blanks removed, as the composed text of a rewriting has it: "_tmp.su".
std::string Marked_Name(const std::string& su_file);

/// Writes the records of `source` without those of a shot to `target`. On a line of several spreads the
/// records of later shots get the station that their shot has once this one is gone.
ChainEnd Drop_Shot(Workspace& workspace, Ports& ports, int shot, const std::string& source,
                   const std::string& target);

/// New files that are to take the place of the user's in one edit.
using FreshFiles = std::vector<std::unique_ptr<FreshFile>>;

/// Puts all of them in place. Answers why one could not be; the edit must then be given up.
std::string Put_All(FreshFiles& files);

/// The SU file, and its twin where there is one, without the records of a shot: written whole beside them,
/// not yet in their place (Put_All). Empty after a message, when records are missing and the user looked for
/// none, or when a tool failed.
FreshFiles Rewrite_SU(Workspace& workspace, Ports& ports, int shot);

}  // namespace tarnvik
