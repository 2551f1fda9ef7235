#include "traveltime/shot_grid.h"

#include <algorithm>

#include "core/text/number.h"

namespace tarnvik {

namespace {

void Show_Shot(Workspace& workspace, int shot) {
    TextGrid::Cell& cell = workspace.Grids.Grille_Shot.At(shot - 1, 0);
    cell.Text = CStr(shot);
    cell.BackColour.reset();
    if (workspace.Curves.ShotsLeftOut.contains(shot)) cell.BackColour = colours::Red;
}

void Leave_Out_All(Workspace& workspace) {
    // The grid first: another number of shots would make it forget what is left out.
    Fill_Shot_Grid(workspace);
    workspace.Fields.Check11 = false;
    for (int shot = 1; shot <= workspace.Project.NbShots; ++shot)
        workspace.Curves.ShotsLeftOut.insert(shot);
}

}  // namespace

void Fill_Shot_Grid(Workspace& workspace) {
    TextGrid& grid = workspace.Grids.Grille_Shot;
    const int shots = std::max<int>(0, workspace.Project.NbShots);
    if (grid.Rows() != shots || grid.Columns() != 1) {
        grid = TextGrid(shots, 1);
        grid.FixedRows = 0;
        grid.FixedColumns = 0;
        workspace.Curves.ShotsLeftOut.clear();
    }
    for (int shot = 1; shot <= shots; ++shot)
        Show_Shot(workspace, shot);
}

void Toggle_Shot(Workspace& workspace, Ports& ports, int shot) {
    if (shot < 1 || shot > workspace.Project.NbShots) return;
    Fill_Shot_Grid(workspace);
    std::set<int>& left_out = workspace.Curves.ShotsLeftOut;
    if (left_out.erase(shot) == 0) left_out.insert(shot);
    Show_Shot(workspace, shot);
    ports.Show.Show_Curves();
}

void Show_Only_Shot(Workspace& workspace, Ports& ports, int shot) {
    if (shot < 1 || shot > workspace.Project.NbShots) return;
    Leave_Out_All(workspace);
    workspace.Curves.ShotsLeftOut.erase(shot);
    Fill_Shot_Grid(workspace);
    ports.Show.Show_Curves();
}

void Show_All_Shots(Workspace& workspace, Ports& ports) {
    workspace.Fields.Check11 = true;
    workspace.Curves.ShotsLeftOut.clear();
    Fill_Shot_Grid(workspace);
    ports.Show.Show_Curves();
}

void Show_No_Shot(Workspace& workspace, Ports& ports) {
    Leave_Out_All(workspace);
    Fill_Shot_Grid(workspace);
    ports.Show.Show_Curves();
}

void Select_Shot_Row(Workspace& workspace, int shot) {
    if (shot < 1 || shot > workspace.Project.NbShots) return;
    workspace.Grids.Grille_Shot.CurrentRow = shot - 1;
    workspace.Grids.Grille_Shot.CurrentColumn = 0;
}

void Remove_Shot_Row(Workspace& workspace, int shot) {
    std::set<int> moved;
    for (const int left_out : workspace.Curves.ShotsLeftOut) {
        if (left_out != shot) moved.insert(left_out < shot ? left_out : left_out - 1);
    }
    workspace.Curves.ShotsLeftOut = moved;
    TextGrid& grid = workspace.Grids.Grille_Shot;
    if (grid.Rows() >= shot) grid.Resize(grid.Rows() - 1, grid.Columns());
    for (int row = 1; row <= grid.Rows(); ++row)
        Show_Shot(workspace, row);
}

void Show_Alone(CurveView& view, int shot, int beside) {
    view.ShotAlone = shot;
    view.ShotBeside = beside;
}

bool Stands_Alone(const CurveView& view, int shot) {
    return view.ShotAlone != 0 && (view.ShotAlone == shot || view.ShotBeside == shot);
}

bool Shot_Displayed(const Workspace& workspace, int shot) {
    if (workspace.Curves.ShotAlone != 0) return Stands_Alone(workspace.Curves, shot);
    return workspace.Fields.Check11 || !workspace.Curves.ShotsLeftOut.contains(shot);
}

}  // namespace tarnvik
