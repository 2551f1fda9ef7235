#pragma once

#include <QString>
#include <array>
#include <string_view>

namespace tarnvik {

/// The programs that are launched by name and that `tarnvik-tools` holds, by their names without ".exe".
inline constexpr std::array<std::string_view, 9> own_tools = {
    "conversion",  ///< seismograph files to SU
    "SEG2SU",      ///< the same, for SEG-2 files
    "reverse",     ///< filters, gain, polarity
    "SUSPECTRE",   ///< spectrum of an area of a record
    "suprint2",    ///< records on paper
    "tvmprint",    ///< curves, profile and section on one sheet
    "TVProfile",   ///< profiles of several lines on one distance axis
    "merge_file",  ///< several SU files into one
    "add_csv",     ///< result tables of several lines into one
};

/// The own tool of that name, in any case of letters; empty when it is none.
std::string_view Own_Tool(const QString& name);
inline bool Is_Own_Tool(const QString& name) {
    return !Own_Tool(name).empty();
}

}  // namespace tarnvik
