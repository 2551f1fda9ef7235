#include "setup/build_grid.h"

#include <algorithm>
#include <string>

#include "core/text/number.h"
#include "records/set_pick.h"

namespace tarnvik {

namespace {

/// Writes the cells of one project. A grid is mostly empty while a line is being picked, so the text of zero
/// is made once only.
class CellWriter {
  public:
    explicit CellWriter(Workspace& workspace)
        : Line(workspace.Project), Layout(Line), Grid(workspace.Grids.Buildgrid) {}

    /// Leaves cells that hold no number.
    void Write(int row, int column) {
        const bool of_receiver = row >= 1 && row <= Layout.Receivers;
        const bool of_shot = column >= 1 && column <= Layout.Shots;
        if (of_receiver && of_shot) {
            Write_Time(Grid.At(row, column), Line.ShotTimes(column, row));
        } else if (of_receiver && column == Layout.Distance_Column()) {
            Write_Place(Grid.At(row, column), Line.ReceiverData(ReceiverDistance, row));
        } else if (of_receiver && column == Layout.Elevation_Column()) {
            Write_Place(Grid.At(row, column), Line.ReceiverData(ReceiverElevation, row));
        } else if (of_receiver && column == Layout.Intercept_Column()) {
            Write_Place(Grid.At(row, column), Line.ReceiverData(ReceiverIntercept, row));
        } else if (of_shot && row == Layout.Shot_Distance_Row()) {
            Write_Place(Grid.At(row, column), Line.ShotDistance(column));
        } else if (of_shot && row == Layout.Shot_Elevation_Row()) {
            Write_Place(Grid.At(row, column), Line.ShotElevation(column));
        }
    }

  private:
    void Write_Time(TextGrid::Cell& cell, float time) {
        if (time != 0) {
            Show_Time(cell, time);
            return;
        }
        if (ZeroTime.Text.empty()) Show_Time(ZeroTime, 0);
        cell.Text = ZeroTime.Text;
        cell.Align = ZeroTime.Align;
        cell.ForeColour = ZeroTime.ForeColour;
    }
    void Write_Place(TextGrid::Cell& cell, double value) {
        cell.Align = TextGrid::Alignment::Right;
        cell.Text = value == 0 ? ZeroPlace : Format(value, place_format);
    }

    const Project& Line;
    BuildgridLayout Layout;
    TextGrid& Grid;
    TextGrid::Cell ZeroTime;
    std::string ZeroPlace = Format(0, place_format);
};

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
    // Without its arrays a project is none yet; wild counts of a damaged file must not become cells.
    if (!project.ShotTimes.Has(layout.Shots, layout.Receivers)) {
        efface_grille(workspace);
        return;
    }
    Lay_Out_Grid(grid, layout, BuildgridCaptions::Project);

    CellWriter cells(workspace);
    for (int row = 1; row < grid.Rows(); ++row) {
        for (int column = 1; column < grid.Columns(); ++column)
            cells.Write(row, column);
    }
}

void Fill_Grid_Cell(Workspace& workspace, int row, int column) {
    const Project& project = workspace.Project;
    const BuildgridLayout layout(project);
    if (!layout.Fits(workspace.Grids.Buildgrid) || !project.ShotTimes.Has(layout.Shots, layout.Receivers))
        return;
    CellWriter(workspace).Write(row, column);
}

void Fill_Grid_Cell(Workspace& workspace, PickPlace place) {
    Fill_Grid_Cell(workspace, place.Receiver, place.Shot);
}

int Times_Below_0(const Project& project) {
    int count = 0;
    const int shots = std::min<int>(project.NbShots, project.ShotTimes.Last_Row());
    const int receivers = std::min<int>(project.NbReceivers, project.ShotTimes.Last_Column());
    for (int shot = 1; shot <= shots; ++shot) {
        for (int receiver = 1; receiver <= receivers; ++receiver)
            count += project.ShotTimes(shot, receiver) < 0 ? 1 : 0;
    }
    return count;
}

void Tell_Times_Below_0(Workspace& workspace) {
    const int count = Times_Below_0(workspace.Project);
    if (count == 0) return;
    workspace.Fields.Status =
        CStr(count) + (count == 1 ? " time is below 0: it counts" : " times are below 0: they count") +
        " as no pick, red in the table";
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
