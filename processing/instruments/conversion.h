#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "processing/instruments/field_file.h"

namespace tarnvik {

/// Order of the files in the SU file.
enum class FileOrder {
    Name,  ///< figures by their value: "shot2" before "shot10"
    Shot,  ///< by the number of the shot in the headers; files without one last, equal ones by name
};

/// Files of instruments (SEG-2, SEG-Y, SU of either byte order) that are to become one SU file. A record is
/// the traces of a file that follow each other with the same `fldr`; records count over all files in their
/// order.
struct ConversionRequest {
    std::vector<std::string> Files;
    FileOrder Order = FileOrder::Name;
    std::optional<double> Spacing;  ///< of the receivers; without it their places are those of the headers
    std::optional<double> FirstReceiver;  ///< place of the first one, 0 unless given; needs Spacing
    std::vector<double>
        Shots;  ///< place of each record's shot; empty: as the headers tell; else one a record
    std::string GeometryTable;  ///< path of a table with places, which go before all others; may be empty
    std::string Out;            ///< replaced without a question; never one of the files
};

/// What became of a conversion.
struct ConversionReport {
    std::vector<FieldFile> Files;  ///< all files asked for, in the order taken
    std::int64_t Traces = 0;       ///< written
    std::int64_t Records = 0;
    std::vector<std::string> Messages;  ///< what holds for all files, a sentence each
    std::string Failure;                ///< why nothing was written, "Stopped" where the user stopped it
    bool Went_Well() const { return Failure.empty(); }
};

/// Told how much of the work is done; false stops it.
using ConversionProgress = std::function<bool(std::int64_t done, std::int64_t total)>;

/// Writes the traces of all files that can be read into one SU file, a trace at a time. A file that cannot be
/// used is listed with its faults and the others go on; it fails when none can, or when places that were
/// typed or stand in the table do not go with the records. The file comes under its name when it is whole.
/// Shorter traces are filled up with zeros to the longest; files of another sample interval than the first
/// are left out.
ConversionReport Convert_Field_Files(const ConversionRequest& request,
                                     const ConversionProgress& progress = {});

/// Looks at a file without reading more than its headers and first traces. Never fails: a file that cannot be
/// used says why in its Faults.
FieldFile Look_At_Field_File(const std::string& path, int traces_of_preview = 0);

/// Places in `files` in the order in which a conversion takes them.
std::vector<std::size_t> Conversion_Order(const std::vector<FieldFile>& files, FileOrder order);

/// "SEG-2", "SEG-Y" or "SU" by the first bytes, for a file that is offered by its name alone; empty where it
/// is none of them.
std::string Field_Format_Of(const std::string& path);

/// Reads a geometry table, for a message before the conversion: empty when it can be used. Fields are
/// separated by ";", tabs or commas; a line of headings names the columns: File (a name, with or without
/// folder and ending) or Record (number of the record in the SU file, from 1), Channel (a row without one
/// holds for all channels), ShotX, ShotY, ShotElevation, ReceiverX, ReceiverY, ReceiverElevation.
std::string Geometry_Table_Fault(const std::string& path);

}  // namespace tarnvik
