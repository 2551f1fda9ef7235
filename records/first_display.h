#pragma once

#include <span>
#include <string>

#include "core/workspace.h"

namespace tarnvik {

/// The display of records that nobody has looked at yet: variable area, each trace at its largest amplitude
/// of the time shown, clipped, and a gain under which quiet first breaks are seen. Nothing is drawn. False
/// when there are no records to choose from; then everything stays.
bool Choose_First_Display(Workspace& workspace, const std::string& path);

/// Gain of traces that are drawn each at its largest amplitude, by the share of it that their root mean
/// square has: 1, 1.5, 2, 3, 5, 7 or 10 and so on up to 50. `shares` may come in any order; without one it is
/// 1.
double Gain_For(std::span<const double> shares);

}  // namespace tarnvik
