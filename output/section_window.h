#pragma once

#include <optional>

#include "core/workspace.h"

namespace tarnvik {

// What part of a section is in sight. Distances and elevations; nothing is drawn here. The first three serve
// every picture that can be enlarged: `enlarged` is nothing while the whole is in sight.

/// Enlarges by these factors so that what lies at the place stays there, down to a fiftieth of the whole.
/// Factors below 1 show more.
void Enlarge_Window(const SectionWindow& whole, std::optional<SectionWindow>& enlarged, double distance,
                    double elevation, double more_x, double more_y);
/// Moves the part in sight along the line and upwards, held at the ends of the whole.
void Pan_Window(const SectionWindow& whole, std::optional<SectionWindow>& enlarged, double across,
                double upward);
/// Two opposite corners of what shall be in sight; a frame too small to be meant changes nothing.
void Frame_Window(const SectionWindow& whole, std::optional<SectionWindow>& enlarged, double x1, double y1,
                  double x2, double y2);

/// The whole section: the line from end to end between the elevations of the grid. Without a grid 0 to 1.
SectionWindow Whole_Section(const Workspace& workspace);
/// The part in sight.
SectionWindow Section_In_Sight(const Workspace& workspace);

/// Enlarges by these factors so that what lies at the place stays there, from the whole section down to a
/// fiftieth of it. Factors below 1 show more.
void Enlarge_Section(Workspace& workspace, double distance, double elevation, double more_x, double more_y);
/// Moves the part in sight along the line and upwards, held at the ends of the section.
void Pan_Section(Workspace& workspace, double across, double upward);
/// Two opposite corners of what shall fill the picture; a frame too small to be meant changes nothing.
void Frame_Section(Workspace& workspace, double x1, double y1, double x2, double y2);

/// What lies at a place of the section.
struct SectionReading {
    double Distance = 0;
    double Elevation = 0;
    double Velocity = 0;  ///< 0 above the ground and where nothing is known
};
/// Nothing outside the part in sight.
std::optional<SectionReading> Read_Section(const Workspace& workspace, double distance, double elevation);

/// Column of the grid that a distance along the line lies in, row that an elevation lies in; neither need be
/// in the grid.
int Column_At(const SectionGrid& grid, double line_length, double distance);
int Row_At(const SectionGrid& grid, double elevation);

}  // namespace tarnvik
