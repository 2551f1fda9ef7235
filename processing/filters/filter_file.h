#pragma once

#include <string>

#include "processing/filters/filter_traces.h"

namespace tarnvik {

/// Filter_Traces from a file to another one, which is replaced when the result is whole and on the disk, and
/// stays as it was otherwise. The two must not be one file.
TraceResult Filter_File(const FilterRequest& request, const std::string& source, const std::string& target,
                        const FilterProgress& progress = {});

}  // namespace tarnvik
