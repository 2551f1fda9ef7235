#pragma once

#include <optional>

#include "core/ports/picture.h"
#include "core/workspace.h"
#include "output/colour_scale.h"

namespace tarnvik {

/// Room around a section in its main picture, points: for the legend on the right, for title and labels
/// above.
struct SectionRoom {
    double Right = 0;
    double Above = 0;
};

/// The section and its scale strips, below and on the left.
struct SectionPictures {
    Picture& Main;
    Picture& Below;
    Picture& Beside;
    std::optional<SectionRoom> Room = {};  ///< nothing: as the letters need it
};

/// Draws the part of the section in sight: cells, ground, shots, geophones, the user's labels, the legend of
/// the velocities as Work.Section chooses them, title and axes. World coordinates of the main picture are
/// distances and elevations; beyond the part in sight they go on upwards for the title and to the right for
/// the legend. White without a grid.
void Draw_Section(const Workspace& workspace, const ColourScale& scale, const SectionPictures& pictures);

/// Draws the velocities below CutAt against the elevations in sight. Beside the section its rows agree with
/// those of the main picture, whose world coordinates it takes.
void Draw_Section_Cut(const Workspace& workspace, const ColourScale& scale, const Frame& main, Picture& cut);

}  // namespace tarnvik
