#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "processing/su_scan.h"
#include "processing/trace_count.h"
#include "processing/traces/trace_result.h"

namespace tarnvik {

/// How the records of several SU files become one file.
struct MergeRequest {
    std::vector<std::string> Files;  ///< in the order in which their records are to stand
    bool NumberAnew = true;          ///< records get the numbers from FirstRecord on, otherwise keep theirs
    std::int32_t FirstRecord = 1;
    /// What becomes of traces where the files have different sample counts.
    enum class Length { Shortest, Longest } Samples = Length::Shortest;
    std::string Out;
};

/// A file of a merge by its headers.
struct MergePart {
    std::string Path;
    SuScan Scan;
    std::int64_t Records = 0;
    std::int32_t FirstRecord = 0;  ///< its `fldr`, of the first and the last trace
    std::int32_t LastRecord = 0;
    std::int32_t NewFirst = 0;  ///< and what they become
    std::int32_t NewLast = 0;
};

struct MergePlan {
    std::vector<MergePart> Parts;
    std::string Refusal;             ///< why nothing can be merged so; empty when it can
    std::vector<std::string> Notes;  ///< what the user should know before
    int Samples = 0;                 ///< of each trace of the new file
    std::int64_t Traces = 0;
};

/// Reads the headers of all files and tells what a merge would make of them. Sample intervals that differ, a
/// file that is none and one that cannot be read are refusals.
MergePlan Plan_Merge(const MergeRequest& request);

/// Writes the traces of all files, one file behind the other, to `request.Out`, which must be none of them. A
/// record begins where `tracf` does not rise, or where `fldr` changes in a file whose `tracf` does not run.
/// Only `fldr` is written anew, and `ns` where traces are cut or filled up with zeros. The former file of
/// that name stays whole until the new one is.
TraceResult Merge_SU_Files(const MergeRequest& request, const TraceProgress& progress = {});

}  // namespace tarnvik
