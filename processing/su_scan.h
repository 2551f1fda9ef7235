#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarnvik {

/// What the headers of all traces of an SU file tell about its records. `ns` and `dt` have no sign here, so
/// that records too long for the rest of the program can be looked at and cut.
struct SuScan {
    std::string Refusal;  ///< why the file cannot be worked on, in words for the user; empty when it can
    std::int64_t Traces = 0;
    std::int64_t LeftOver = 0;  ///< bytes behind the last whole trace
    int Samples = 0;
    int Interval = 0;                   ///< microseconds
    int Delay = 0;                      ///< `delrt` of the first trace, ms
    std::vector<std::int32_t> Records;  ///< traces of each record; empty where the channel word does not run
    std::int32_t FirstChannel = 0;      ///< least and largest `tracf`
    std::int32_t LastChannel = 0;

    bool Good() const { return Refusal.empty() && Traces > 0; }
    /// ms
    double Recording_Time() const { return Samples * static_cast<double>(Interval) / 1000; }
    std::int32_t Channels() const;  ///< of the largest record
};

/// Reads the headers of all traces. A record begins where `tracf` does not rise.
SuScan Scan_SU_File(const std::string& path);

/// Traces whose `tracf` lies from `first` to `last`, in a file of this many samples a trace.
std::int64_t Traces_Of_Channels(const std::string& path, const SuScan& scan, std::int32_t first,
                                std::int32_t last);

}  // namespace tarnvik
