#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "processing/instruments/field_file.h"

namespace tarnvik {

/// A row of a table of places for a conversion.
struct GeometryRow {
    std::string File;                    ///< in small letters, without folder; empty where the record is told
    std::optional<std::int64_t> Record;  ///< of the SU file, from 1
    std::optional<std::int64_t> Channel;  ///< none: all channels
    TracePlaces Places;
    int Line = 0;  ///< of the table
};

struct GeometryList {
    std::vector<GeometryRow> Rows;
    std::string Fault;  ///< line and what is wrong there; empty when all was read

    /// Numbers (from 0) of the rows that hold for a record of a file.
    std::vector<std::size_t> Rows_Of(const std::string& file, std::int64_t record) const;
    /// Places of a channel by such rows: those without a channel first, those with it laid over them. The
    /// rows that hold for it are marked in `used`.
    TracePlaces Places_Of(const std::vector<std::size_t>& rows, std::int64_t channel,
                          std::vector<bool>& used) const;
};

/// Reads a table as Geometry_Table_Fault (conversion.h) describes it.
GeometryList Read_Geometry_List(std::string_view text);

}  // namespace tarnvik
