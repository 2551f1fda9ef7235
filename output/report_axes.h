#pragma once

#include <string>

#include "core/ports/picture.h"
#include "output/report_scale.h"

namespace tarnvik {

/// Distances below the frame of a report's page and elevations beside it, each with its name and `unit`.
/// World coordinates are distances and elevations; the font in force is used.
void Draw_Report_Axes(const ReportFrame& page, const std::string& unit, Picture& picture);

}  // namespace tarnvik
