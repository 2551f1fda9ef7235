// Tables of geometry that come from outside: any text is read or refused with the line and the reason.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "processing/header_geometry_table.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto table =
        tarnvik::Read_Geometry_Table(std::string_view(reinterpret_cast<const char*>(data), size));
    for (const tarnvik::TraceGeometry& row : table.Rows) {
        if (row.Trace < 1) std::abort();
    }
    if (table.Fault.empty() && table.Rows.empty()) std::abort();
    return 0;
}
