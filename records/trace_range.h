#pragma once

#include <cstdint>

#include "core/workspace.h"

namespace tarnvik {

/// Rows of the size grid: a range typed in error must not fill the memory.
inline constexpr std::int64_t most_size_rows = 100'000;

/// What is shown becomes traces first to last of the file, of the record that begins at trace `record_start`.
/// The size factors stay with their places in the record.
void Show_Trace_Range(Workspace& workspace, int first, int last, int record_start);

}  // namespace tarnvik
