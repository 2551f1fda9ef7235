#pragma once

#include "core/pick_place.h"
#include "core/project.h"
#include "core/text_grid.h"
#include "core/workspace.h"

namespace tarnvik {

/// Where things stand in Buildgrid: shots in columns 1 to NbShots, receivers in rows 1 to NbReceivers, and
/// behind them what belongs to a receiver (columns) or to a shot (rows).
struct BuildgridLayout {
    int Shots = 0;
    int Receivers = 0;

    explicit BuildgridLayout(const Project& project)
        : Shots(project.NbShots), Receivers(project.NbReceivers) {}

    int Rows() const { return Receivers + 3; }
    int Columns() const { return Shots + 4; }
    int Distance_Column() const { return Shots + 1; }
    int Elevation_Column() const { return Shots + 2; }
    int Intercept_Column() const { return Shots + 3; }
    int Shot_Distance_Row() const { return Receivers + 1; }
    int Shot_Elevation_Row() const { return Receivers + 2; }
    /// True when the grid has the size of this project, so that it may be read back into it.
    bool Fits(const TextGrid& grid) const { return grid.Rows() == Rows() && grid.Columns() == Columns(); }
};

/// Patterns of the cells: times of picks, and all other numbers.
inline constexpr const char* pick_format = "###0.00";
inline constexpr const char* place_format = "##00.00";

/// Lays out Buildgrid for the project and writes the whole model into it: captions, picks (ms), places,
/// elevations and intercept times. Colours of cells stay while the size of the grid stays. Arrays that are
/// not allocated leave their cells at zero.
void Fill_Grid(Workspace& workspace);

/// One cell of the same, in a grid that is laid out for the project.
void Fill_Grid_Cell(Workspace& workspace, PickPlace place);

/// Size and captions alone, all other cells as they were; a new profile has captions of its own.
enum class BuildgridCaptions { Project, NewProfile };
void Lay_Out_Grid(TextGrid& grid, const BuildgridLayout& layout, BuildgridCaptions captions);

/// Reads picks, receiver places and elevations, shot places and elevations back into the model, each as the
/// numeric value of its cell; intercept times are not read. A grid that has not the size of the project
/// (none was filled yet) changes nothing. A number too large for its place leaves the old one.
void Read_Grid(Workspace& workspace);

/// Reads one cell back into the model, as Read_Grid would. False for a cell that nothing is read from.
bool Read_Grid_Cell(Workspace& workspace, int row, int column);

/// Clears Buildgrid, texts and colours; its size stays.
void efface_grille(Workspace& workspace);

/// Sets up remark_grid: four columns, headings in row 1, the eight remarks in rows 2 to 9 stay as they are.
void Affiche_Remark_Grid(Project& project);

}  // namespace tarnvik
