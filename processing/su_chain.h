#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/edits/edits.h"
#include "core/ports/ports.h"
#include "processing/chain_text.h"
#include "processing/fresh_file.h"

namespace tarnvik {

/// How a chain of tools ended.
struct ChainEnd {
    bool Stopped = false;  ///< by the user
    bool Missing = false;  ///< a tool could not be started
    std::string Tool;      ///< path of the tool that failed
    std::string Failure;   ///< in its own words; empty when all went well
    bool Well() const { return !Stopped && Failure.empty(); }
};

// Each routine below reads `source` and writes `target`, a file under a hidden name that is whole and on the
// disk when all went well; nobody else's file is touched. Files between the commands lie in a hidden folder
// beside the target and vanish in every case.

/// What the chains need of the outside.
struct ChainTools {
    Launcher& Launch;
    tarnvik::Edits& Edits;
};

/// One tool on the whole file: its name and `name=value` arguments.
ChainEnd Run_Tool(const ChainTools& tools, const std::string& tool, std::vector<std::string> arguments,
                  const std::string& source, const std::string& target);

/// Traces whose channel (`tracf`) is first to last, numbered anew from 1 to `count` in each record.
ChainEnd Extract_Channels(const ChainTools& tools, const std::string& source, const std::string& target,
                          int first, int last, int count);
/// Traces that this keeps of a record, the most of any; 0 when it keeps none at all. A record begins where
/// the channel word falls.
int Channels_Kept(const std::string& source, int first, int last);

/// `samples` samples from `start_ms` at `interval_us` microseconds.
ChainEnd Resample(const ChainTools& tools, const std::string& source, const std::string& target, int samples,
                  double interval_us, double start_ms);

/// The records First to Last become one, trace by trace; records are numbered from 1 in `fldr`. With `keep`
/// the files between the commands go there under their names.
ChainEnd Stack_Records(const ChainTools& tools, const std::string& source, const std::string& target,
                       const StackPlan& plan, ChainFolder& work);

/// Traces that are to go, and the shot station (`ep`) that others get; traces count from 1.
struct DropPlan {
    std::function<bool(std::int64_t trace)> Drops;
    std::function<std::optional<std::int32_t>(std::int64_t trace)> Station;
};
/// All other traces as they stand: in a copy those that go are marked dead and the others live, the live ones
/// are kept, and each of them gets its own `trid` back, so that dead traces stay dead.
ChainEnd Drop_Traces(const ChainTools& tools, const std::string& source, const std::string& target,
                     const DropPlan& plan);

}  // namespace tarnvik
