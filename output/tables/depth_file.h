#pragma once

#include <optional>
#include <string>

#include "output/exports/export_files.h"

namespace tarnvik {

/// A value that has no place in a depth file: 100 times it is beyond 16 bits.
struct DepthMisfit {
    int Receiver = 0;
    std::string Quantity;  ///< "distance", "elevation" ...
    double Value = 0;
};

/// The depth file of a line: distance, elevation and the depths of interface 1, interface 2 and bedrock of
/// each receiver, as hundredths in whole numbers. Empty where a value does not fit; `misfit` is the first of
/// them.
std::string Depth_File_Text(const Project& project, std::optional<DepthMisfit>& misfit);

/// Menu entry `MnuDepthFile`: NAME.TVX. Where a value does not fit nothing is written, and the result line
/// by receiver is offered instead, which has no such limit.
ExportReport Export_Depth_File(Ports& ports, const ExportSource& source);

}  // namespace tarnvik
