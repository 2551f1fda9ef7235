#include "setup/build_grid.h"

#include <gtest/gtest.h>

#include <utility>

#include "setup/line.h"

namespace tarnvik {
namespace {

using test::Make_Line;

TEST(BuildGrid, EveryCellShowsItsPlaceInTheModel) {
    Workspace workspace;
    Make_Line(workspace, 3, 4);
    Project& project = workspace.Project;
    project.ShotTimes(2, 3) = 23.456F;
    project.ReceiverData(ReceiverDistance, 4) = 15.125F;
    project.ReceiverData(ReceiverElevation, 1) = -2.5F;
    project.ReceiverData(ReceiverIntercept, 2) = 7;
    project.ShotDistance(3) = 15.5;
    project.ShotElevation(1) = 101;
    Fill_Grid(workspace);

    const struct {
        int Row, Column;
        const char* Text;
    } cells[] = {
        {0, 1, "Shot1"},     {0, 3, "Shot3"},     {1, 0, "Geo.1"},    {4, 0, "Geo.4"},     {0, 4, "Distance"},
        {0, 5, "Elevation"}, {0, 6, "Intercept"}, {5, 0, "Distance"}, {6, 0, "Elevation"}, {3, 2, "23.46"},
        {1, 1, "11.00"},     {4, 4, "15.13"},     {1, 5, "-02.50"},   {2, 6, "07.00"},     {5, 3, "15.50"},
        {6, 1, "101.00"},    {6, 4, ""},
    };
    const TextGrid& grid = workspace.Grids.Buildgrid;
    ASSERT_EQ(grid.Rows(), 7);
    ASSERT_EQ(grid.Columns(), 7);
    for (const auto& cell : cells)
        EXPECT_EQ(grid.Text(cell.Row, cell.Column), cell.Text) << cell.Row << ", " << cell.Column;
}

TEST(BuildGrid, OneCellFollowsTheModelAndTheOthersStay) {
    Workspace workspace;
    Make_Line(workspace, 2, 3);
    Project& project = workspace.Project;
    project.ShotTimes(2, 3) = -1.5F;
    project.ReceiverData(ReceiverElevation, 1) = 4;
    project.ShotElevation(1) = 5;
    TextGrid& grid = workspace.Grids.Buildgrid;
    Fill_Grid_Cell(workspace, PickPlace{2, 3});
    EXPECT_EQ(grid.Text(3, 2), "-1.50");
    EXPECT_EQ(grid.At(3, 2).ForeColour, 255) << "a time below 0 is red";
    EXPECT_EQ(grid.Text(1, 4), "00.00");
    Fill_Grid_Cell(workspace, 1, 4);
    EXPECT_EQ(grid.Text(1, 4), "04.00");
    Fill_Grid_Cell(workspace, 5, 1);
    EXPECT_EQ(grid.Text(5, 1), "05.00");
    for (const auto& [row, column] : {std::pair(0, 1), {1, 0}, {5, 3}, {-1, 2}, {99, 99}}) {
        const std::string before = grid.Text(row, column);
        Fill_Grid_Cell(workspace, row, column);
        EXPECT_EQ(grid.Text(row, column), before) << row << ", " << column;
    }
    project.ShotTimes(2, 3) = 0;
    Fill_Grid_Cell(workspace, PickPlace{2, 3});
    EXPECT_FALSE(grid.At(3, 2).ForeColour);
    grid = TextGrid(4, 4);
    Fill_Grid_Cell(workspace, 3, 2);
    EXPECT_EQ(grid.Text(3, 2), "") << "a grid of another size shows another line";
}

TEST(BuildGrid, AProjectWithoutArraysEmptiesTheGrid) {
    Workspace workspace;
    Make_Line(workspace, 2, 3);
    workspace.Project.ShotTimes(1, 2) = -3;
    Fill_Grid(workspace);
    Erase_Project(workspace.Project);
    Fill_Grid(workspace);
    EXPECT_EQ(workspace.Grids.Buildgrid.Text(1, 1), "");
    EXPECT_FALSE(workspace.Grids.Buildgrid.At(2, 1).ForeColour);
}

TEST(RemarkGrid, HeadingsStandAboveTheEightRemarks) {
    Project project;
    project.remark_grid.Set_Text(2, 3, "fault");
    project.remark_grid.Set_Text(9, 0, "12");
    Affiche_Remark_Grid(project);
    EXPECT_EQ(project.remark_grid.Text(1, 2), "Vertical shift");
    EXPECT_EQ(project.remark_grid.Text(1, 3), "Text to write on the profile");
    EXPECT_EQ(project.remark_grid.Text(2, 3), "fault");
    EXPECT_EQ(project.remark_grid.Text(9, 0), "12");
}

}  // namespace
}  // namespace tarnvik
