#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/edits/edits.h"
#include "processing/header_spreadsheet.h"

namespace tarnvik {

/// Columns of the geometry table behind "Trace". Stations are the words `ep` and `tracl`; places and
/// elevations are in units of length, the scale words already counted in.
enum class GeometryColumn {
    Record,  ///< `fldr` and `tracf` say which trace it is; a table never changes them
    Channel,
    ShotStation,
    ShotX,
    ShotY,
    ShotElevation,
    ReceiverStation,
    ReceiverX,
    ReceiverY,
    ReceiverElevation,
};
inline constexpr std::size_t geometry_columns = 10;

/// Geometry of one trace; a column without a value leaves the header as it is.
struct TraceGeometry {
    std::int64_t Trace = 0;  ///< from 1
    std::array<std::optional<double>, geometry_columns> Values;
    const std::optional<double>& operator[](GeometryColumn column) const {
        return Values[static_cast<std::size_t>(column)];
    }
    std::optional<double>& operator[](GeometryColumn column) {
        return Values[static_cast<std::size_t>(column)];
    }
};

/// Value that a scale word stands for: above 0 a factor, below 0 a divisor, 0 counts as 1.
double Scale_Factor(double scale_word);

/// Writes the geometry of all traces into a ".csv" file (fields joined by ";"), a ".xlsx" workbook, or a text
/// in columns (any other ending, as ".prn"). Answers the reason of a failure, empty when it went well.
std::string Write_Geometry_Table(const std::string& su_file, const std::string& target,
                                 const TraceProgress& progress = {});

/// A table read back.
struct GeometryTable {
    std::vector<TraceGeometry> Rows;
    std::string Fault;  ///< line and what is wrong there; empty when all was read
};

/// Reads a table as Write_Geometry_Table writes it: fields by ";", tabs, commas or blanks; a comma is the
/// decimal point where ";" or a tab separates. With a line of headings the columns may stand in any order and
/// some may be missing, "Trace" is needed; without one all of them stand in the order of the enumeration.
GeometryTable Read_Geometry_Table(std::string_view text);

/// Scale words to write with the values: 1, 10, 100 ... or -10, -100 ...; 0 takes the coarsest of 1, -10,
/// -100, -1000 that holds all values to a thousandth.
struct GeometryScales {
    int Coordinates = 0;  ///< `scalco`, of sx, sy, gx, gy
    int Elevations = 0;   ///< `scalel`, of elevations and depths
};

/// What became of a table.
struct GeometryWritten {
    std::string Fault;  ///< why nothing was written; empty when it went well
    GeometryScales Scales;
    std::int64_t Traces = 0;
};

/// Writes a table into the headers of an SU file, and the scale words with it. Words that share a scale word
/// and are not in the table are turned to the new scale. Refused as a whole, before a byte is written: a
/// trace that the file has not, twice the same, `fldr` or `tracf` unlike the file's, a value that does not
/// fit its word, a kept word that the new scale cannot hold.
GeometryWritten Write_Geometry(const std::string& su_file, FileRecorder* recorder,
                               const std::vector<TraceGeometry>& table, GeometryScales scales);

}  // namespace tarnvik
