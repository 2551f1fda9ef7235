#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "output/exports/export_files.h"

namespace tarnvik {

/// Where a receiver stands.
struct ReceiverPlace {
    double X = 0;
    double Y = 0;
    double Z = 0;
};

/// Three numbers for each receiver, read one after the other wherever the lines end. Nothing where numbers
/// are missing or something else stands among them.
std::optional<std::vector<ReceiverPlace>> Read_Places(std::string_view bytes, int receivers);

/// X = distance, Y = 0, Z = elevation of each receiver.
std::vector<ReceiverPlace> Places_On_Line(const Project& project);

/// Thicknesses of the three layers above the bedrock, elements 0 to 2, from the depths below a receiver; 0
/// for what is not above 0. A line of two layers has the first one alone.
std::vector<double> Thicknesses_Below(const Project& project, int receiver, bool two_layers);

/// The delay result: a line of headings, then for each receiver delay, number, place, four velocities, three
/// thicknesses, their sum, distance and `name`, separated by semicolons. One place for each receiver.
std::string Delay_Result_Text(const Project& project, const std::vector<ReceiverPlace>& places,
                              const std::string& name);

/// Toolbar button "abc" and menu entry `Zfile`: NAME.csv, with the places of a file that the user chooses,
/// and opened by whatever the desktop opens it with.
ExportReport Record_Delay_Result(Ports& ports, const ExportSource& source);

}  // namespace tarnvik
