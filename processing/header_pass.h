#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "processing/trace_count.h"
#include "records/su_file.h"

namespace tarnvik {

/// What a change makes of one header.
enum class HeaderStep {
    Changed,     ///< or left as it was
    DoesNotFit,  ///< a value has no room in its word
    Failed,      ///< what it takes its values from could not be read
};
/// Changes the header of a trace (from 1) in memory.
using ChangeOfHeader = std::function<HeaderStep(std::int64_t trace, TraceHeader& header)>;

struct HeaderPass {
    HeaderStep End = HeaderStep::Changed;
    bool Stopped = false;    ///< by the progress
    std::int64_t Trace = 0;  ///< at which it failed or stopped
    std::string Reason;      ///< why the file could not be read or written, where it could not
    bool Went_Well() const { return End == HeaderStep::Changed && !Stopped; }
};

/// Changes the headers of traces `first` to `last`, each read and written once; samples are not touched. With
/// `look_first` all changes are tried before the first is written, so that a value without room leaves the
/// file as it was. A pass that stops or fails later leaves what it has written: the edit around it decides.
HeaderPass Change_Headers(SuWriter& file, std::int64_t first, std::int64_t last, const ChangeOfHeader& change,
                          bool look_first, const TraceProgress& progress);

}  // namespace tarnvik
