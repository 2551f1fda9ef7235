#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/fault.h"

namespace tarnvik {

/// How a run over a stream of traces ended.
struct TraceResult {
    std::int64_t Read = 0;
    std::int64_t Written = 0;
    std::vector<std::string> Notes;  ///< what the user should know although all went well
    std::string Failure;             ///< why it could not be done; what was written then is no whole stream
    bool Went_Well() const { return Failure.empty(); }
};

/// Runs `work(result)` and answers its Fault as the failure.
template <typename Work>
TraceResult With_Failure_As_Text(Work work) {
    TraceResult result;
    try {
        work(result);
    } catch (const Fault& fault) {
        result.Failure = fault.what();
    }
    return result;
}

}  // namespace tarnvik
