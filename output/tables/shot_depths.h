#pragma once

#include <string>

#include "output/exports/export_files.h"

namespace tarnvik {

/// Depths below the shots as a text: the receivers with elevation and distance, then each shot with depth
/// and elevation of the bottom of its layers. The report counts the shots and tells those without depths.
std::string Shot_Depths_Text(const Project& project, ExportReport& report);

/// Menu entry `Z_shot`: NAME.sht, shown in the text editor.
ExportReport Export_Shot_Depths(Ports& ports, const ExportSource& source);

}  // namespace tarnvik
