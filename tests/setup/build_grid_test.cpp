#include "setup/build_grid.h"

#include <gtest/gtest.h>

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

TEST(BuildGrid, ReadingTakesAllButTheIntercepts) {
    Workspace workspace;
    Make_Line(workspace, 2, 3);
    workspace.Project.ReceiverData(ReceiverIntercept, 1) = 4;
    TextGrid& grid = workspace.Grids.Buildgrid;
    grid.Set_Text(2, 1, " 17.3 ms");
    grid.Set_Text(3, 2, "nothing");
    grid.Set_Text(1, 3, "1.5");
    grid.Set_Text(1, 4, "99.25");
    grid.Set_Text(1, 5, "55");
    grid.Set_Text(4, 2, "12.5");
    grid.Set_Text(5, 2, "1e999");
    Read_Grid(workspace);
    const Project& project = workspace.Project;
    EXPECT_FLOAT_EQ(project.ShotTimes(1, 2), 17.3F);
    EXPECT_EQ(project.ShotTimes(2, 3), 0);
    EXPECT_FLOAT_EQ(project.ReceiverData(ReceiverDistance, 1), 1.5F);
    EXPECT_FLOAT_EQ(project.ReceiverData(ReceiverElevation, 1), 99.25F);
    EXPECT_EQ(project.ReceiverData(ReceiverIntercept, 1), 4);
    EXPECT_EQ(project.ShotDistance(2), 12.5);
    EXPECT_EQ(project.ShotElevation(2), 0) << "an infinite number is no elevation";
}

TEST(BuildGrid, AGridOfAnotherSizeIsNotReadIntoTheProject) {
    Workspace workspace;
    Make_Line(workspace, 2, 3);
    const auto picks = workspace.Project.ShotTimes;
    workspace.Grids.Buildgrid = TextGrid(4, 4);
    Read_Grid(workspace);
    EXPECT_EQ(workspace.Project.ShotTimes, picks);
}

TEST(BuildGrid, ColoursStayWithTheSizeAndAProjectWithoutArraysEmptiesTheGrid) {
    Workspace workspace;
    Make_Line(workspace, 2, 3);
    workspace.Grids.Buildgrid.At(2, 1).ForeColour = 255;
    Fill_Grid(workspace);
    EXPECT_EQ(workspace.Grids.Buildgrid.At(2, 1).ForeColour, 255);
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
