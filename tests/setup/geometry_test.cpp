#include "setup/geometry.h"

#include <gtest/gtest.h>

#include "core/edits/project_block.h"
#include "core/files.h"
#include "core/project_file.h"
#include "core/project_open.h"
#include "setup/distance_correction.h"
#include "setup/elevations.h"
#include "setup/line.h"
#include "setup/project_commands.h"
#include "setup/true_distances.h"
#include "support/test_ports.h"

namespace tarnvik {
namespace {

using test::Make_Line;
using test::Set_Elevations;
using test::TemporaryFolder;
using test::TestPorts;

constexpr const char* ask_spacing = "Enter the avearage distance between geophones, ZERO= Exit module";
constexpr const char* ask_first = "Enter the distance between End shot 1 and geophones 1 ";
constexpr const char* ask_elevations = "Do you want to interplolate Shot elevation from Geophone elevation";
constexpr const char* ask_save = "Do you want to save your modifications";
constexpr const char* ask_end_shot = "Enter the End Shot 1 number";
constexpr const char* ask_shift = " Enter the distance to remove or add (End shot 1 must have ZERO distance)";
constexpr const char* ask_kind =
    "Type 1 to scale all FBP time of a travel time, 2 to add/substract a value to all FBP, 0= Exit";

TEST(Elevations, BetweenThePointsThatEncloseThePlace) {
    const std::vector<double> places{20, 0, 10, 10};
    const std::vector<double> elevations{8, 100, 104, 999};
    const struct {
        double Place;
        std::optional<double> Expected;
    } cases[] = {{0, 100}, {2.5, 101}, {10, 104}, {15, 56}, {20, 8}, {-0.1, {}}, {20.1, {}}};
    for (const auto& c : cases)
        EXPECT_EQ(Elevation_Between(places, elevations, c.Place), c.Expected) << c.Place;
    EXPECT_FALSE(Elevation_Between({}, {}, 0));
}

TEST(Elevations, OfAShotFromTheReceiversBesideIt) {
    const std::vector<double> places{2.5, 7.5, 12.5};
    const std::vector<double> elevations{10, 11.111, 13};
    const struct {
        double Place;
        std::optional<double> Expected;
    } cases[] = {
        {0, 10},      {1, 10},  {5, 10.55},  // 10.5555 is cut, not rounded
        {7.5, 12.05}, {14, 13}, {15, 13},   {-0.01, {}}, {15.01, {}},
    };
    for (const auto& c : cases) {
        const auto found = Shot_Elevation_From_Receivers(places, elevations, 15, c.Place);
        ASSERT_EQ(found.has_value(), c.Expected.has_value()) << c.Place;
        EXPECT_NEAR(found.value_or(0), c.Expected.value_or(0), 1e-9) << c.Place;
    }
}

TEST(Elevations, CommandInterpolatesBothWaysAndKeepsWhatNothingEncloses) {
    Workspace workspace;
    TestPorts ports;
    Make_Line(workspace, 3, 3);
    Set_Elevations(workspace, {100, 103, 104});
    Project& project = workspace.Project;
    project.ShotDistance(1) = -5;
    project.ShotElevation(1) = 77;
    project.ShotDistance(2) = 3.333;
    project.ShotTimes(1, 1) = 11.125F;
    Fill_Grid(workspace);
    workspace.Edits.Start(project, true);
    const std::string block = Project_Block(project);

    ports.Prompts.Expect("Shot elevation update according geophone elevation ?", Answer::No);
    CalculAltiShot(workspace, ports.Ports, ElevationUpdate::ShotsFromReceivers);
    EXPECT_EQ(Project_Block(project), block) << "No changes nothing, not even the digits behind the second";
    EXPECT_TRUE(workspace.Edits.All().empty());

    ports.Prompts.Expect("Shot elevation update according geophone elevation ?", Answer::Yes);
    CalculAltiShot(workspace, ports.Ports, ElevationUpdate::ShotsFromReceivers);
    EXPECT_EQ(project.ShotElevation(1), 77);
    EXPECT_DOUBLE_EQ(project.ShotElevation(2), 102) << "100 + 3 * 3.333 / 5 = 101.9998, two decimals";
    EXPECT_EQ(project.ShotElevation(3), 104);
    EXPECT_EQ(project.ShotTimes(1, 1), 11.125F) << "picks keep their digits";
    EXPECT_EQ(workspace.Edits.Undo_Name(), "Shot elevations");

    project.ShotDistance(1) = 1;
    project.ShotElevation(1) = 10;
    project.ShotDistance(2) = 6;
    project.ShotElevation(2) = 20;
    project.ShotDistance(3) = 9;
    Fill_Grid(workspace);
    ports.Prompts.Expect("Receivers elevation update according shot elevation ?", Answer::Yes);
    CalculAltiShot(workspace, ports.Ports, ElevationUpdate::ReceiversFromShots);
    EXPECT_EQ(Receiver_Elevations(project), (std::vector<double>{100, 18, 104}));
    EXPECT_EQ(workspace.Edits.Undo_Name(), "Geophone elevations");
    EXPECT_EQ(workspace.Edits.Go_To(project, 0), "");
    EXPECT_EQ(Project_Block(project), block);
}

TEST(TrueDistances, AreTheOtherSideOfTheTriangle) {
    // 5-4-3 and 13-12-5 triangles.
    const auto places = Places_From_Elevations(std::vector<double>{103, 106, 106}, 5, 100, 5);
    ASSERT_TRUE(places);
    EXPECT_EQ(*places, (std::vector<double>{4, 8, 13}));
    const auto steep = Places_From_Elevations(std::vector<double>{0, 5}, 0, 0, 5);
    ASSERT_TRUE(steep) << "a step as high as the spacing is a wall, but possible";
    EXPECT_EQ((*steep)[1], 0);
    EXPECT_FALSE(Places_From_Elevations(std::vector<double>{0, 5.01}, 0, 0, 5));
    // The first distance is taken without its sign under the root: a rise and a fall shorten alike.
    EXPECT_EQ(Places_From_Elevations(std::vector<double>{5}, 4, 0, 5)->front(), 3);
}

TEST(TrueDistances, AShotKeepsItsRelativePlace) {
    const std::vector<double> before{2, 12, 22};
    const std::vector<double> after{1, 9, 19};
    const struct {
        double Place, Expected;
    } cases[] = {{-30, -30}, {0, 0}, {1, 0.5}, {2, 1}, {7, 5}, {12, 9}, {22, 19}, {24, 21}};
    for (const auto& c : cases)
        EXPECT_DOUBLE_EQ(Moved_With_Receivers(before, after, c.Place), c.Expected) << c.Place;
}

TEST(TrueDistances, CommandMovesReceiversShotsAndLineLength) {
    Workspace workspace;
    TestPorts ports;
    TemporaryFolder folder;
    Make_Line(workspace, 5, 3);
    Project& project = workspace.Project;
    project.CurrentFile = folder / "line.tv5";
    project.ShotDistance(1) = -10;
    project.ShotElevation(1) = 100;
    project.ShotDistance(2) = 0;
    project.ShotDistance(3) = 7.5;
    project.ShotDistance(4) = 10;
    project.ShotDistance(5) = 30;
    Set_Elevations(workspace, {100, 103, 100});

    ports.Prompts.Expect_Input(ask_spacing, "5");
    ports.Prompts.Expect_Input(ask_first, "0");
    ports.Prompts.Expect(ask_elevations, Answer::Yes);
    ports.Prompts.Expect_Input("Enter Offset 1 elevation:", "98.5");
    ports.Prompts.Expect_Input("Enter Offset 5 elevation:", "");
    ports.Prompts.Expect(ask_save, Answer::Yes);
    Compute_Distances_According_To_Z(workspace, ports.Ports);

    EXPECT_EQ(Receiver_Places(project), (std::vector<double>{0, 4, 8}));
    EXPECT_EQ(Shot_Places(project), (std::vector<double>{-10, 0, 6, 8, 28}));
    EXPECT_EQ(project.LineLength, 8);
    ASSERT_EQ(workspace.Edits.All().size(), 1U);
    EXPECT_EQ(workspace.Edits.Undo_Name(), "Distances according to Z");
    EXPECT_EQ(Shot_Elevations(project), (std::vector<double>{98.5, 100, 101.5, 100, 0}))
        << "end shots take the end receivers' without a question, a cancelled box keeps what was";
    EXPECT_EQ(ports.Prompts.InputDefaults, (std::vector<std::string>{"5", "2.5", "100", "100"}));
    EXPECT_TRUE(ports.Prompts.Said("File: " + project.CurrentFile + " has been recorded"));
    EXPECT_TRUE(std::filesystem::exists(project.CurrentFile));
    EXPECT_EQ(workspace.Mode.Current(), DisplayMode::Dromo);
}

TEST(TrueDistances, ASpacingShorterThanTheStepIsToldAndChangesNothing) {
    Workspace workspace;
    TestPorts ports;
    Make_Line(workspace, 2, 3);
    Set_Elevations(workspace, {100, 106, 100});
    const Project before = workspace.Project;
    ports.Prompts.Expect_Input(ask_spacing, "5");
    ports.Prompts.Expect_Input(ask_first, "2.5");
    Compute_Distances_According_To_Z(workspace, ports.Ports);
    EXPECT_EQ(ports.Prompts.Last_Text(), "Check your Receiver location and elevation...");
    EXPECT_EQ(Project_Block(workspace.Project), Project_Block(before));

    ports.Prompts.Expect_Input(ask_spacing, "0");
    Compute_Distances_According_To_Z(workspace, ports.Ports);
    ports.Prompts.Expect_Input(ask_spacing, "8");
    ports.Prompts.Expect_Input(ask_first, "");
    Compute_Distances_According_To_Z(workspace, ports.Ports);
    EXPECT_EQ(Project_Block(workspace.Project), Project_Block(before)) << "also the spacing stays";
    EXPECT_TRUE(workspace.Edits.All().empty());
}

TEST(DistanceCorrection, ASecondUseReturns) {
    Workspace workspace;
    TestPorts ports;
    Make_Line(workspace, 3, 3);
    Project& project = workspace.Project;
    project.ShotDistance(1) = 90;
    project.ShotDistance(2) = 100.25;
    project.ShotDistance(3) = 110;
    Store_Receiver_Places(project, std::vector<double>{100, 105, 110});
    Fill_Grid(workspace);
    const auto shots = Shot_Places(project);
    const auto receivers = Receiver_Places(project);

    ports.Prompts.Expect_Input(ask_end_shot, "2");
    ports.Prompts.Expect_Input(ask_shift, "-100.25");
    Distance_Correction(workspace, ports.Ports);
    EXPECT_EQ(Shot_Places(project), (std::vector<double>{-10.25, 0, 9.75}));
    EXPECT_EQ(Receiver_Places(project), (std::vector<double>{-0.25, 4.75, 9.75}));
    EXPECT_EQ(workspace.Edits.Undo_Name(), "Distance correction");
    EXPECT_EQ(ports.Prompts.Last_Text(), "Remember to check the line length !");

    ports.Prompts.Expect_Input(ask_shift, "");
    Distance_Correction(workspace, ports.Ports);
    EXPECT_EQ(project.DistanceShift, -100.25) << "a cancelled box loses nothing";

    ports.Prompts.Expect_Input(ask_shift, "100.25");
    Distance_Correction(workspace, ports.Ports);
    EXPECT_EQ(Shot_Places(project), shots);
    EXPECT_EQ(Receiver_Places(project), receivers);
    EXPECT_EQ(ports.Prompts.InputDefaults, (std::vector<std::string>{"2", "-100.25", "100.25", "100.25"}));
}

TEST(DistanceCorrection, NoShotAndZeroMoveNothing) {
    Workspace workspace;
    TestPorts ports;
    Make_Line(workspace, 3, 3);
    const auto shots = Shot_Places(workspace.Project);
    for (const char* number : {"4", "0", "-1", "99999"}) {
        ports.Prompts.Expect_Input(ask_end_shot, number);
        Distance_Correction(workspace, ports.Ports);
        EXPECT_EQ(ports.Prompts.Last_Text(), std::string(number) + " is no shot of this line: 1 to 3");
    }
    ports.Prompts.Expect_Input(ask_end_shot, "1");
    ports.Prompts.Expect_Input(ask_shift, "0");
    Distance_Correction(workspace, ports.Ports);
    EXPECT_EQ(Shot_Places(workspace.Project), shots);
    EXPECT_TRUE(workspace.Edits.All().empty());
}

TEST(LineLength, IsTakenFromAnEndShot) {
    Workspace workspace;
    TestPorts ports;
    Make_Line(workspace, 3, 3);
    ports.Prompts.Expect_Input(" Enter the End Shot number ", "3");
    ports.Prompts.Expect_Input("Enter line length (From end shot 1 to End Shot 3", "12.5");
    Enter_Line_Length(workspace, ports.Ports);
    EXPECT_EQ(workspace.Project.LineLength, 12.5);
    EXPECT_EQ(workspace.Edits.Undo_Name(), "Line length");
    ports.Prompts.Expect_Input(" Enter the End Shot number ", "3");
    ports.Prompts.Expect_Input("Enter line length (From end shot 1 to End Shot 3", "0");
    Enter_Line_Length(workspace, ports.Ports);
    EXPECT_EQ(workspace.Project.LineLength, 12.5) << "a line of length 0 could not be drawn";
    EXPECT_EQ(ports.Prompts.InputDefaults[1], "10");
}

TEST(AllPicks, CommandChangesTheChosenFile) {
    Workspace workspace;
    TestPorts ports;
    TemporaryFolder folder;
    Make_Line(workspace, 2, 3);
    workspace.Project.CurrentFile = folder / "line.tv5";
    workspace.Project.ShotTimes(1, 2) = 0;
    ASSERT_TRUE(Save_Geometry(workspace, ports.Ports));

    Workspace other;
    int opened = 0;
    bool opens = false;
    const auto open = [&](const std::string& path) {
        ++opened;
        if (opens) Read_Project(other, path);
        return opens;
    };
    ports.Prompts.Expect_Input(ask_kind, "1");
    ports.Prompts.Expect_File("Tarnvik File selection", folder / "line.tv5");
    ports.Prompts.Expect_Input(" Enter the factor to apply to all FBP", "2");
    shiftFBP(other, ports.Ports, open);
    EXPECT_TRUE(other.Edits.All().empty()) << "given up at the opening";
    opens = true;
    ports.Prompts.Expect_Input(ask_kind, "1");
    ports.Prompts.Expect_File("Tarnvik File selection", folder / "line.tv5");
    ports.Prompts.Expect_Input(" Enter the factor to apply to all FBP", "2");
    shiftFBP(other, ports.Ports, open);
    EXPECT_EQ(other.Edits.All().front().Name, "Scale or shift of all picks");
    Project written;
    Parse_Project(*Read_File(folder / "line.tv5"), written);
    EXPECT_EQ(written.ShotTimes(2, 3), 46);

    // The project in memory is taken as it stands, not as it was saved.
    other.Project.ShotTimes(2, 3) = 50;
    ports.Prompts.Expect_Input(ask_kind, "2");
    ports.Prompts.Expect_File("Tarnvik File selection", folder / "line.tv5");
    ports.Prompts.Expect_Input(" Enter the time (ms) to add or substract (negative value) to all FBP",
                               "-1.5");
    shiftFBP(other, ports.Ports, open);
    EXPECT_EQ(other.Project.ShotTimes(2, 3), 48.5);
    EXPECT_EQ(other.Project.ShotTimes(1, 2), 0) << "no pick stays none";
    EXPECT_EQ(opened, 2);

    // A cancelled factor must not scale all picks by 0.
    ports.Prompts.Expect_Input(ask_kind, "1");
    ports.Prompts.Expect_File("Tarnvik File selection", folder / "line.tv5");
    ports.Prompts.Expect_Input(" Enter the factor to apply to all FBP", "");
    shiftFBP(other, ports.Ports, open);
    EXPECT_EQ(other.Project.ShotTimes(2, 3), 48.5);
    ports.Prompts.Expect_Input(ask_kind, "2");
    ports.Prompts.Expect_File("Tarnvik File selection", folder / "line.tv5");
    ports.Prompts.Expect_Input(" Enter the time (ms) to add or substract (negative value) to all FBP", "-21");
    shiftFBP(other, ports.Ports, open);
    EXPECT_EQ(other.Fields.Status, "1 time is below 0: it counts as no pick, red in the table");
    ports.Prompts.Expect_Input(ask_kind, "0");
    shiftFBP(other, ports.Ports, open);
}

TEST(DeleteFile, AsksFirstAndKeepsTheProjectInMemory) {
    Workspace workspace;
    TestPorts ports;
    TemporaryFolder folder;
    Make_Line(workspace, 2, 3);
    const std::string path = folder / "line.tv5";
    workspace.Project.CurrentFile = path;
    ASSERT_TRUE(Save_Geometry(workspace, ports.Ports));
    ports.Prompts.Expect("Do you want to delete " + path + " ?", Answer::No);
    Deletename(workspace, ports.Ports);
    EXPECT_TRUE(std::filesystem::exists(path));
    ports.Prompts.Expect("Do you want to delete " + path + " ?", Answer::Yes);
    Deletename(workspace, ports.Ports);
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(workspace.Project.ShotTimes(2, 3), 23);
    Deletename(workspace, ports.Ports);
    EXPECT_EQ(ports.Prompts.Last_Text(), "This file does not exist !");
}

}  // namespace
}  // namespace tarnvik
