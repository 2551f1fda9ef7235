#pragma once

#include <string>
#include <vector>

#include "core/ports/picture.h"
#include "core/workspace.h"
#include "records/spread_layout.h"

namespace tarnvik {

/// What stands above the traces of a field record: its title, and for each trace the number of the receiver,
/// its distance and its offset from the shot, thinned so that none touches the next; the shot at its true
/// place between the receivers, and one beyond them as an arrow at the edge. The picture must stand right
/// above that of the traces with the same left and right edge; its left margin has the names of the rows.
void Draw_Record_Header(const Workspace& workspace, Picture& header, const std::string& path);

/// Parts of the title, the most telling first: record, shot, file, filter, gain and the levelling of the
/// amplitudes.
std::vector<std::string> Record_Title(const Workspace& workspace, const SpreadLayout& spread,
                                      const std::string& path);

/// The step in which traces are named so that texts of this width (pixels) keep apart: 1, 2, 5, 10 ...
int Label_Step(double text_width, double pixels_a_trace);

}  // namespace tarnvik
