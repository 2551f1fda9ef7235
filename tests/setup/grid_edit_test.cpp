#include "setup/grid_edit.h"

#include <gtest/gtest.h>

#include "core/edits/project_block.h"
#include "core/files.h"
#include "records/su_file.h"
#include "setup/line.h"
#include "support/su_builder.h"
#include "support/test_ports.h"

namespace tarnvik {
namespace {

using test::Make_Line;
using test::SuBuilder;
using test::TestPorts;

TEST(BlockText, GoesThereAndBack) {
    TextGrid grid(2, 3);
    grid.Set_Text(0, 0, "plain");
    grid.Set_Text(0, 2, "tab\there");
    grid.Set_Text(1, 0, "two\nlines");
    grid.Set_Text(1, 1, "say \"so\"");
    const auto cells = Block_Cells(Block_Text(grid, {0, 0, 1, 2}));
    ASSERT_EQ(cells.size(), 2U);
    EXPECT_EQ(cells[0], (std::vector<std::string>{"plain", "", "tab\there"}));
    EXPECT_EQ(cells[1], (std::vector<std::string>{"two\nlines", "say \"so\"", ""}));
    EXPECT_EQ(Block_Text(grid, {-4, -4, 99, 0}), "plain\n\"two\nlines\"\n");
}

TEST(BlockText, OfOtherPrograms) {
    using Rows = std::vector<std::vector<std::string>>;
    const struct {
        std::string Text;
        Rows Expected;
    } cases[] = {
        {"", {}},
        {"1\t2\r\n3\t4\r\n", {{"1", "2"}, {"3", "4"}}},
        {"1\r2", {{"1"}, {"2"}}},
        {"\t\n", {{"", ""}}},
        {"1\n\n2", {{"1"}, {""}, {"2"}}},
        {"\"open\t1", {{"\"open", "1"}}},
        {"5\" pipe\t1", {{"5\" pipe", "1"}}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Block_Cells(c.Text), c.Expected) << c.Text;
}

class BuildgridEditing : public ::testing::Test {
  protected:
    void SetUp() override { Make_Line(workspace, 2, 3); }
    Workspace workspace;
    TestPorts ports;
    GridEditor editor{workspace, ports.Ports, GridEditor::Grid::Buildgrid};
    Project& project = workspace.Project;
    TextGrid& grid = workspace.Grids.Buildgrid;
};

TEST_F(BuildgridEditing, WhatIsTypedIsInTheModelAndTheCell) {
    project.ShotTimes(1, 2) = 12.3456F;
    project.ReceiverData(ReceiverDistance, 2) = 5.126F;
    Fill_Grid(workspace);
    EXPECT_TRUE(editor.Type(2, 2, "17,5"));
    EXPECT_EQ(project.ShotTimes(2, 2), 17.5F);
    EXPECT_EQ(grid.Text(2, 2), "17.50");
    EXPECT_EQ(project.ShotTimes(1, 2), 12.3456F) << "other cells are not read back and rounded";
    EXPECT_TRUE(editor.Type(2, 1, "12.35"));
    EXPECT_TRUE(editor.Type(2, 3, "5.13"));
    EXPECT_EQ(project.ShotTimes(1, 2), 12.3456F) << "what the cell shows already is no change";
    EXPECT_EQ(project.ReceiverData(ReceiverDistance, 2), 5.126F);
    EXPECT_TRUE(editor.Type(2, 3, "1e40"));
    EXPECT_EQ(project.ReceiverData(ReceiverDistance, 2), 5.126F) << "too large for its place";
    EXPECT_EQ(grid.Text(2, 3), "05.13");
    EXPECT_TRUE(editor.Type(5, 1, " 3.125 "));
    EXPECT_EQ(project.ShotElevation(1), 3.13);
    EXPECT_TRUE(editor.Type(1, 1, "none"));
    EXPECT_EQ(project.ShotTimes(1, 1), 0);
    EXPECT_EQ(workspace.Edits.All().size(), 3U);
    EXPECT_TRUE(editor.Type(1, 1, "0.001"));
    EXPECT_EQ(workspace.Edits.All().size(), 3U) << "no change, no edit";
}

TEST_F(BuildgridEditing, EachIsOneEditWithANameThatTellsIt) {
    workspace.Edits.Start(project, true);
    const std::string before = Project_Block(project);
    const std::string copied = editor.Copy({1, 1, 3, 2});
    const struct {
        int Row, Column;
        const char* Name;
    } cells[] = {{3, 2, "Pick shot 2, receiver 3"},
                 {2, 3, "Distance of geophone 2"},
                 {3, 4, "Elevation of geophone 3"},
                 {4, 2, "Distance of shot 2"},
                 {5, 1, "Elevation of shot 1"}};
    for (const auto& cell : cells) {
        ASSERT_TRUE(editor.Type(cell.Row, cell.Column, "7.5"));
        EXPECT_EQ(workspace.Edits.Undo_Name(), cell.Name);
    }
    editor.Paste(1, 1, "1\t2\n3\t4\n");
    EXPECT_EQ(workspace.Edits.Undo_Name(), "Paste 4 cells");
    editor.Clear({0, 0, 99, 99});
    EXPECT_EQ(workspace.Edits.Undo_Name(), "Clear 16 cells");
    EXPECT_EQ(project.ShotDistance(2), 0);
    editor.Clear({0, 0, 99, 99});
    editor.Paste(1, 1, "0");
    EXPECT_EQ(workspace.Edits.All().size(), 7U) << "what changes nothing is no edit";

    EXPECT_EQ(workspace.Edits.Undo(project), "");
    EXPECT_EQ(project.ShotTimes(2, 2), 4);
    EXPECT_EQ(project.ShotDistance(2), 7.5);
    EXPECT_EQ(workspace.Edits.Go_To(project, 0), "");
    EXPECT_EQ(Project_Block(project), before);
    EXPECT_EQ(workspace.Edits.Go_To(project, 6), "");
    EXPECT_EQ(project.ShotTimes(1, 2), 3);
    Fill_Grid(workspace);
    editor.Paste(1, 1, copied);
    EXPECT_EQ(editor.Copy({1, 1, 3, 2}), copied);
}

/// The records of the line, filtered, with the unfiltered file beside them.
class BuildgridWithRecords : public BuildgridEditing {
  protected:
    void SetUp() override {
        BuildgridEditing::SetUp();
        project.SuFile = SuBuilder(6, 20).Records(3).Write(folder / "line_flt.su");
        workspace.Record.TwinSuFile = SuBuilder(6, 20).Records(3).Write(folder / "line.su");
        workspace.Record.ChannelsPerRecord = 3;
        workspace.Edits.Start(project, true);
    }
    double Header(const std::string& path, int trace) { return SuTraces(path).Pick_Ms(trace); }
    test::TemporaryFolder folder;
};

TEST_F(BuildgridWithRecords, APickThatTheFileCannotHoldIsToldAlsoAboveWhatAPasteLeftOut) {
    editor.Paste(1, 1, "5000\nnone\n");
    EXPECT_EQ(project.ShotTimes(1, 1), 5000);
    EXPECT_NE(workspace.Fields.Status.find("does not fit the header word"), std::string::npos)
        << workspace.Fields.Status;
    std::filesystem::remove(project.SuFile);
    EXPECT_TRUE(editor.Type(3, 1, "6"));
    EXPECT_EQ(project.ShotTimes(1, 3), 6);
    EXPECT_NE(workspace.Fields.Status.find("Pick not in the field records"), std::string::npos);
}

TEST(RemarkEditing, TextsStayOnOneLineAndHeadingsAreFixed) {
    Workspace workspace;
    TestPorts ports;
    Affiche_Remark_Grid(workspace.Project);
    GridEditor editor(workspace, ports.Ports, GridEditor::Grid::Remarks);
    EXPECT_FALSE(editor.Type(1, 0, "X"));
    const auto pasted = editor.Paste(9, 0, "12,5\t-3\t0\t\"a\nfault, steep\"\n1\t2\t3\tx");
    EXPECT_EQ(pasted.Cells, 4);
    EXPECT_EQ(pasted.Left, 4);
    const TextGrid& grid = workspace.Project.remark_grid;
    EXPECT_EQ(grid.Text(9, 0), "12.5");
    EXPECT_EQ(grid.Text(9, 3), "a fault, steep");
    EXPECT_TRUE(editor.Type(3, 3, "Fault"));
    EXPECT_EQ(workspace.Edits.Undo_Name(), "Remark 2");
    workspace.Edits.Undo(workspace.Project);
    workspace.Edits.Undo(workspace.Project);
    EXPECT_EQ(grid.Text(9, 3), "");
}

}  // namespace
}  // namespace tarnvik
