#include "setup/build_grid.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "core/text/number.h"

namespace tarnvik {

namespace {

/// Writes numbers of one pattern. A grid is mostly empty while a line is being picked, so the text of zero is
/// made once only.
class CellWriter {
  public:
    CellWriter(TextGrid& grid, const char* pattern)
        : Grid(grid), Pattern(pattern), Zero(Format(0, pattern)) {}

    void Write(int row, int column, double value) {
        TextGrid::Cell& cell = Grid.At(row, column);
        cell.Align = TextGrid::Alignment::Right;
        if (value == 0) {
            cell.Text = Zero;
        } else {
            cell.Text = Format(value, Pattern);
        }
    }

  private:
    TextGrid& Grid;
    const char* Pattern;
    std::string Zero;
};

/// A float takes every number of a cell but those beyond its range.
void Store_Float(float& target, double value) {
    if (std::abs(value) <= std::numeric_limits<float>::max()) target = static_cast<float>(value);
}

void Store_Double(double& target, double value) {
    if (std::isfinite(value)) target = value;
}

void Caption(TextGrid& grid, int row, int column, std::string text) {
    grid.At(row, column).Text = std::move(text);
    grid.At(row, column).Align = TextGrid::Alignment::Centre;
}

}  // namespace

void Lay_Out_Grid(TextGrid& grid, const BuildgridLayout& layout, BuildgridCaptions captions) {
    if (!layout.Fits(grid)) {
        grid.Resize(0, 0);
        grid.Resize(layout.Rows(), layout.Columns());
        grid.CurrentRow = std::min(grid.CurrentRow, layout.Rows() - 1);
        grid.CurrentColumn = std::min(grid.CurrentColumn, layout.Columns() - 1);
    }
    grid.FixedRows = 1;
    grid.FixedColumns = 1;
    for (int shot = 1; shot <= layout.Shots; ++shot)
        Caption(grid, 0, shot, "Shot" + CStr(shot));
    for (int receiver = 1; receiver <= layout.Receivers; ++receiver)
        Caption(grid, receiver, 0, "Geo." + CStr(receiver));
    const bool fresh = captions == BuildgridCaptions::NewProfile;
    Caption(grid, 0, layout.Distance_Column(), fresh ? "Meters" : "Distance");
    Caption(grid, 0, layout.Elevation_Column(), fresh ? "Elevat." : "Elevation");
    Caption(grid, 0, layout.Intercept_Column(), "Intercept");
    Caption(grid, layout.Shot_Distance_Row(), 0, fresh ? "Dist." : "Distance");
    Caption(grid, layout.Shot_Elevation_Row(), 0, fresh ? "Shot Elev." : "Elevation");
}

void Fill_Grid(Workspace& workspace) {
    const Project& project = workspace.Project;
    TextGrid& grid = workspace.Grids.Buildgrid;
    const BuildgridLayout layout(project);
    if (layout.Shots < 0 || layout.Receivers < 0) return;
    // Without its arrays a project is between two lines; wild counts of a damaged file must not become cells.
    if (!project.ShotTimes.Has(layout.Shots, layout.Receivers)) {
        efface_grille(workspace);
        return;
    }
    Lay_Out_Grid(grid, layout, BuildgridCaptions::Project);

    CellWriter picks(grid, pick_format);
    for (int receiver = 1; receiver <= layout.Receivers; ++receiver) {
        for (int shot = 1; shot <= layout.Shots; ++shot)
            picks.Write(receiver, shot, project.ShotTimes(shot, receiver));
    }
    CellWriter places(grid, place_format);
    for (int receiver = 1; receiver <= layout.Receivers; ++receiver) {
        places.Write(receiver, layout.Distance_Column(), project.ReceiverData(ReceiverDistance, receiver));
        places.Write(receiver, layout.Elevation_Column(), project.ReceiverData(ReceiverElevation, receiver));
        places.Write(receiver, layout.Intercept_Column(), project.ReceiverData(ReceiverIntercept, receiver));
    }
    for (int shot = 1; shot <= layout.Shots; ++shot) {
        places.Write(layout.Shot_Distance_Row(), shot, project.ShotDistance(shot));
        places.Write(layout.Shot_Elevation_Row(), shot, project.ShotElevation(shot));
    }
}

void Fill_Grid_Cell(Workspace& workspace, PickPlace place) {
    const Project& project = workspace.Project;
    TextGrid& grid = workspace.Grids.Buildgrid;
    if (!BuildgridLayout(project).Fits(grid) || !project.ShotTimes.Has(place.Shot, place.Receiver)) return;
    CellWriter(grid, pick_format)
        .Write(place.Receiver, place.Shot, project.ShotTimes(place.Shot, place.Receiver));
}

bool Read_Grid_Cell(Workspace& workspace, int row, int column) {
    Project& project = workspace.Project;
    const BuildgridLayout layout(project);
    const TextGrid& grid = workspace.Grids.Buildgrid;
    if (!layout.Fits(grid) || !project.ShotTimes.Has(layout.Shots, layout.Receivers)) return false;
    const bool of_receiver = row >= 1 && row <= layout.Receivers;
    const bool of_shot = column >= 1 && column <= layout.Shots;
    if (of_receiver && of_shot) {
        Store_Float(project.ShotTimes(column, row), grid.Value(row, column));
    } else if (of_receiver && column == layout.Distance_Column()) {
        Store_Float(project.ReceiverData(ReceiverDistance, row), grid.Value(row, column));
    } else if (of_receiver && column == layout.Elevation_Column()) {
        Store_Float(project.ReceiverData(ReceiverElevation, row), grid.Value(row, column));
    } else if (of_shot && row == layout.Shot_Distance_Row()) {
        Store_Double(project.ShotDistance(column), grid.Value(row, column));
    } else if (of_shot && row == layout.Shot_Elevation_Row()) {
        Store_Double(project.ShotElevation(column), grid.Value(row, column));
    } else {
        return false;
    }
    return true;
}

void Read_Grid(Workspace& workspace) {
    const TextGrid& grid = workspace.Grids.Buildgrid;
    if (!BuildgridLayout(workspace.Project).Fits(grid)) return;
    for (int row = 1; row < grid.Rows(); ++row) {
        for (int column = 1; column < grid.Columns(); ++column)
            Read_Grid_Cell(workspace, row, column);
    }
}

void efface_grille(Workspace& workspace) {
    workspace.Grids.Buildgrid.Clear();
}

void Affiche_Remark_Grid(Project& project) {
    TextGrid& grid = project.remark_grid;
    constexpr int columns = 4;
    constexpr int header_row = Project::RemarkFirstRow - 1;
    grid.Resize(Project::RemarkLastRow + 1, columns);
    const char* const headings[columns] = {"X loc", "Y loc", "Vertical shift",
                                           "Text to write on the profile"};
    for (int column = 0; column < columns; ++column)
        Caption(grid, header_row, column, headings[column]);
    for (int row = Project::RemarkFirstRow; row <= Project::RemarkLastRow; ++row) {
        for (int column = 0; column + 1 < columns; ++column)
            grid.At(row, column).Align = TextGrid::Alignment::Right;
    }
    grid.FixedRows = Project::RemarkFirstRow;
    grid.FixedColumns = 0;
}

}  // namespace tarnvik
