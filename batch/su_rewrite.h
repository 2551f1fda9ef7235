#pragma once

#include <functional>
#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "batch/commands.h"

namespace tarnvik {

/// What a command tells with --json beside `file` and `messages`.
using SuReport = nlohmann::ordered_json;

/// What makes the SU file `target` from the SU file `source`; a text is the reason why it could not.
using MakeSuFile = std::function<std::string(BatchRun& run, const std::string& source,
                                             const std::string& target, SuReport& report)>;

/// A command that writes an SU file anew: FILE, --out and the options of all.
CLI::App* Add_Su_Rewrite(CLI::App& app, Request& request, const std::string& name, const std::string& help);

/// The command makes its output so. It is made under a hidden name and put in place when it is whole; a
/// refused command leaves nothing. `channels` of a record are found in the headers unless they are told.
void Runs_Su_Rewrite(CLI::App* command, Request& request, MakeSuFile make,
                     std::shared_ptr<int> channels = nullptr);

/// Numbers FIRST:LAST that First_To_Last let through.
struct TraceNumbers {
    int First = 0;
    int Last = 0;
};
TraceNumbers Trace_Numbers(const std::string& text);

}  // namespace tarnvik
