#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnvik {

/// A cell of a coloured section, as its ".dat" file lists them.
struct SectionCell {
    double Distance = 0;
    double Elevation = 0;
    double Velocity = 0;
};

/// The cells of a ".dat" file, one a line; none when a line holds anything else.
std::vector<SectionCell> Read_Section_Cells(std::string_view bytes);

/// The section of these cells as a text grid ("DSAA") of the Surfer map program: each column filled downward,
/// a place having the velocity of the interface above it; blank above the ground, which is each column's
/// highest cell. Columns without a cell stay blank.
std::string Section_Grid_Text(const std::vector<SectionCell>& points);

}  // namespace tarnvik
