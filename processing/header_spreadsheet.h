#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "processing/trace_count.h"

namespace tarnvik {

/// Words of traces that go into a spreadsheet.
struct HeaderTable {
    std::vector<int> Words;  ///< 1 to 90, in the order of the columns
    std::int64_t First = 1;  ///< trace
    std::int64_t Last = 0;   ///< beyond the end of the file: its last trace
};

/// Heading of a word's column: its description.
std::string Spreadsheet_Heading(int word);

/// Writes words of the headers of an SU file into a ".csv" file (fields joined by ";") or a ".xlsx" workbook
/// (any other ending): a column with the number of the trace, then one for each word. `target` is replaced
/// whole or stays. Answers the reason of a failure, "Stopped" among them; empty when it went well.
std::string Write_Header_Spreadsheet(const std::string& su_file, const HeaderTable& table,
                                     const std::string& target, const TraceProgress& progress = {});

}  // namespace tarnvik
