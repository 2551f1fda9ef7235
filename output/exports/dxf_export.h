#pragma once

#include <string>

#include "output/exports/export_files.h"

namespace tarnvik {

/// The profile as a drawing in the DXF text form of release 12: x is the distance along the line, y the
/// elevation. Each kind of thing has a layer of its own: GROUND, RECEIVERS, SHOTS, LABELS, and the interfaces
/// by method and number (SHOT_INTERFACE_1 to 4 from the thicknesses below the shots, ABC_INTERFACE_1, 2 and
/// ABC_BEDROCK, GRM_BEDROCK from the depths below the receivers). An interface breaks where a receiver has no
/// depth.
std::string Dxf_Text(const Project& project, bool metric, ExportReport& report);

/// Menu entry for it: NAME.dxf.
ExportReport Export_Dxf(Ports& ports, const ExportSource& source);

}  // namespace tarnvik
