#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/arrays.h"

namespace tarnvik {

/// What the GRM file beside a project keeps.
struct GrmContent {
    static constexpr int Rows = 9;  ///< of GrmData

    double TotalTime = 0;  ///< reciprocal time, ms
    std::int16_t GrmXY = 0;
    Array2<double> Data;  ///< (row 1..9, receiver)
};

/// What became of a reading.
struct GrmReading {
    bool Good = false;   ///< Content holds a value for each receiver
    std::string Remark;  ///< why a good one may be another line's; empty otherwise
    GrmContent Content{};
};

/// Bytes of a GRM file for a line of so many receivers.
std::string Grm_Bytes(const GrmContent& content, int receivers);

/// Reads a GRM file for a line of so many receivers: numbers separated by blanks, commas or line ends, up to
/// the first line that holds a word. One with too few of them, or with one that no field holds, is not good.
/// That of a line with more receivers cannot be told from a good one but by the count of its numbers.
GrmReading Parse_Grm(std::string_view bytes, int receivers);

/// Where the GRM file of a project is written: its path up to the first point of the file's name, then "GRM".
std::string Grm_File_Written(const std::string& project_file);

/// The GRM file that lies beside a project: the one that the program writes or, where there is none, the
/// project's name with ".grm" for its ending, both whatever the case of their letters. Where neither exists,
/// the name that the program would write.
std::string Grm_File_Beside(const std::string& project_file);

}  // namespace tarnvik
