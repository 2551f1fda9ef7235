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

/// Pattern of the cells of places, elevations and intercept times.
inline constexpr const char* place_format = "##00.00";

/// Lays out Buildgrid for the project and writes the whole model into it: captions, picks (ms), places,
/// elevations and intercept times. A project without its arrays empties the cells.
///
/// The table shows the model and is never read back as a whole: a cell has two decimals, the model all of
/// its digits. What the user types goes into the model cell by cell, see GridEditor.
void Fill_Grid(Workspace& workspace);

/// One cell of the same, in a grid that is laid out for the project; captions and cells outside stay.
void Fill_Grid_Cell(Workspace& workspace, int row, int column);
void Fill_Grid_Cell(Workspace& workspace, PickPlace place);

/// Size and captions alone, all other cells as they were; a new profile has captions of its own.
enum class BuildgridCaptions { Project, NewProfile };
void Lay_Out_Grid(TextGrid& grid, const BuildgridLayout& layout, BuildgridCaptions captions);

/// Number of times below 0: no picks for any computation, red in the table.
int Times_Below_0(const Project& project);
/// Tells of them in the status field; nothing without any.
void Tell_Times_Below_0(Workspace& workspace);

/// Clears Buildgrid, texts and colours; its size stays.
void efface_grille(Workspace& workspace);

/// Sets up remark_grid: four columns, headings in row 1, the eight remarks in rows 2 to 9 stay as they are.
void Affiche_Remark_Grid(Project& project);

}  // namespace tarnvik
