#pragma once

#include <string>

#include "output/exports/export_files.h"

namespace tarnvik {

/// The picks as a table, fields separated by semicolons: shot, receiver, place and elevation of both (of the
/// explosion for the shot), time in ms. A line of headings first.
std::string Picks_Text(const Project& project, ExportReport& report);

/// The picks of all shots as positions ("x z", one a line, counted from 1) and times ("s g t": position of
/// the shot, position of the receiver, seconds), the unified data format of open inversion packages. A shot
/// and a receiver at one place share a position; the positions go along the line.
std::string Unified_Text(const Project& project, ExportReport& report);

/// Menu entries for the two: NAME_picks.csv and NAME.sgt.
ExportReport Export_Picks(Ports& ports, const ExportSource& source);
ExportReport Export_Unified(Ports& ports, const ExportSource& source);

}  // namespace tarnvik
