#include "traveltime/shot_grid.h"

#include <algorithm>

#include "core/text/number.h"

namespace tarnvik {

void Fill_Shot_Grid(Workspace& workspace) {
    TextGrid& grid = workspace.Grids.Grille_Shot;
    const int shots = std::max<int>(0, workspace.Project.NbShots);
    if (grid.Rows() != shots || grid.Columns() != 1) {
        grid = TextGrid(shots, 1);
        grid.FixedRows = 0;
        grid.FixedColumns = 0;
    }
    for (int shot = 1; shot <= shots; ++shot)
        grid.Set_Text(shot - 1, 0, CStr(shot));
}

void Toggle_Shot(Workspace& workspace, Ports& ports, int shot) {
    if (shot < 1 || shot > workspace.Project.NbShots) return;
    Fill_Shot_Grid(workspace);
    std::optional<Colour>& back = workspace.Grids.Grille_Shot.At(shot - 1, 0).BackColour;
    if (back == colours::Red) {
        back.reset();
    } else {
        back = colours::Red;
    }
    ports.Show.Show_Curves();
}

bool Shot_Displayed(const Workspace& workspace, int shot) {
    return workspace.Fields.Check11 || workspace.Grids.Grille_Shot.At(shot - 1, 0).BackColour != colours::Red;
}

}  // namespace tarnvik
