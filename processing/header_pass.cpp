#include "processing/header_pass.h"

namespace tarnvik {

namespace {

constexpr std::int64_t told_every = 2000;  ///< traces

}  // namespace

HeaderPass Change_Headers(SuWriter& file, std::int64_t first, std::int64_t last, const ChangeOfHeader& change,
                          bool look_first, const TraceProgress& progress) {
    HeaderPass pass;
    TraceHeader before;
    const std::int64_t all = last - first + 1;
    for (const bool writing : {false, true}) {
        if (!writing && !look_first) continue;
        for (std::int64_t trace = first; trace <= last; ++trace) {
            pass.Trace = trace;
            const std::int64_t done = trace - first;
            if (progress && done % told_every == 0 && !progress(writing ? done : 0, all)) {
                pass.Stopped = true;
                return pass;
            }
            bool written = file.Read_Header(trace, before);
            TraceHeader after = before;
            if (written) pass.End = change(trace, after);
            if (pass.End != HeaderStep::Changed) return pass;
            if (written && writing) written = file.Set_Header(trace, before, after) == Stored::Yes;
            if (!written) {
                pass.End = HeaderStep::Failed;
                pass.Reason = file.Reason();
                return pass;
            }
        }
    }
    if (progress) progress(all, all);
    return pass;
}

}  // namespace tarnvik
