#pragma once

#include <string>

#include "core/ports/automation.h"
#include "output/exports/export_files.h"

namespace tarnvik {

/// The section in memory as the files that the map program reads; empty while none was made.
struct SectionTexts {
    std::string Dat;  ///< distance, elevation and velocity of a cell a line
    std::string Grd;  ///< text grid
};

/// Files and answers of a run of the map program.
struct SurferChoices {
    int Method = 2;  ///< of gridding, 1 to 9
    bool Contours = true;
    std::string Dat;
    std::string Grd;
    std::string Lvl;
    std::string Clr;
};

/// The calls on the map program's automation object, in their order.
AutomationRun Surfer_Run(const SurferChoices& choices);
/// The same calls as a script for the program's Scripter.
std::string Surfer_Script(const SurferChoices& choices);

/// Colour scale of the contours (levels) and of the image (percent), from blue-violet to yellow, up to this
/// velocity.
std::string Default_Lvl(double max_velocity);
std::string Default_Clr();

/// Button Command22 "SURFER Export". The cells come from the section in memory or, without one, from the
/// ".dat" file beside the project. Writes the grid, the colours and the script, and drives the map program
/// where it is installed.
ExportReport Export_Surfer(Ports& ports, const ExportSource& source, const SectionTexts& section);

}  // namespace tarnvik
