#pragma once

#include <map>
#include <string>
#include <vector>

#include "output/exports/export_files.h"

namespace tarnvik {

/// Stations of the Rayfract file: receiver r has First + (r - 1) * Spacing.
struct RayfractChoices {
    double Spacing = 0.5;
    double First = 1;
    bool OffsetShots = false;
    std::map<int, double> OffsetStations;  ///< of the offset shots, by their numbers
};

double Station_Of_Receiver(const RayfractChoices& choices, int receiver);
/// Station of a place of the line, between the two receivers beside it in proportion, and outside the
/// receivers on by the slope of the nearest two.
double Station_Of_Place(const Project& project, const RayfractChoices& choices, double distance);

/// The ASC file: a line of headings, then one for each pick.
std::string Rayfract_Text(const Project& project, const std::vector<int>& shots,
                          const RayfractChoices& choices);

/// Menu entry `Rayfract`: asks for the line and its choices and writes NAME.asc.
ExportReport Export_Rayfract(Ports& ports, const ExportSource& source);

}  // namespace tarnvik
