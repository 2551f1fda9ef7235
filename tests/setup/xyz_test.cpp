#include <gtest/gtest.h>

#include "core/edits/project_block.h"
#include "core/files.h"
#include "setup/geometry.h"
#include "setup/line.h"
#include "setup/xyz_commands.h"
#include "setup/xyz_file.h"
#include "support/test_ports.h"

namespace tarnvik {
namespace {

using test::Make_Line;
using test::TemporaryFolder;
using test::TestPorts;

TEST(XyzFile, AllSeparatorsAndShapesGiveTheSamePoints) {
    const struct {
        const char* What;
        std::string Text;
        std::string SecondName;
    } cases[] = {
        {"blanks", "10 20 5\n13 24 6.5\n", ""},
        {"tabs and CRLF", "10\t20\t5\r\n13\t24\t6.5\r\n", ""},
        {"commas, no last line end", "10,20,5\n13,24,6.5", ""},
        {"semicolons and blanks, CR", "10 ; 20; 5\r13 ;24 ;6.5\r", ""},
        {"heading, blank lines", "\r\nX Y Z\r\n\r\n10 20 5\r\n   \r\n13 24 6.5\r\n\r\n", ""},
        {"UTF-8 mark and heading", "\xEF\xBB\xBFname;X;Y;Z\nG1;10;20;5\nG2;13;24;6.5\n", "G2"},
        {"names of numbers", "1 10 20 5\n2 13 24 6.5\n", "2"},
        {"names with blanks, quotes, closing separators", "\"Geo 1\",10,20,5,\n\"Geo 2\",13,24,6.5,,\n",
         "Geo 2"},
        {"Windows-1252 name", "a 10 20 5\n\xE9t\xE9 13 24 6.5\n", "\xC3\xA9t\xC3\xA9"},
        {"signs and exponents", "+10 2.E1 .5e1\n1.3e+1 24. 65E-1\n", ""},
        {"blank behind the name, commas behind", "G1 10,20,5\nG2 13,24,6.5\n", "G2"},
    };
    for (const auto& c : cases) {
        const XyzFile file = Read_Xyz(c.Text);
        EXPECT_EQ(file.Error, "") << c.What;
        ASSERT_EQ(file.Points.size(), 2U) << c.What;
        EXPECT_EQ(file.Points[0].X, 10) << c.What;
        EXPECT_EQ(file.Points[0].Y, 20) << c.What;
        EXPECT_EQ(file.Points[0].Z, 5) << c.What;
        EXPECT_EQ(file.Points[1].X, 13) << c.What;
        EXPECT_EQ(file.Points[1].Z, 6.5) << c.What;
        EXPECT_EQ(file.Points[1].Name, c.SecondName) << c.What;
    }
}

TEST(XyzFile, AFaultNamesItsLine) {
    const struct {
        const char* What;
        std::string Text;
        const char* Error;
    } cases[] = {
        {"nothing", "", "The file holds no point"},
        {"heading alone", "X Y Z\n", "The file holds no point"},
        {"a typing error in the first line is no heading", "10 2o 5\n",
         "Line 1: X Y Z or name X Y Z expected: 10 2o 5"},
        {"two headings", "survey\nX Y Z\n1 2 3\n", "Line 2: X Y Z or name X Y Z expected: X Y Z"},
        {"two columns", "1 2 3\n\n4 5\n", "Line 3: X Y Z or name X Y Z expected: 4 5"},
        {"five columns", "a 1 2 3 4\n", "Line 1: X Y Z or name X Y Z expected: a 1 2 3 4"},
        {"a missing field", "a;1;;3\n", "Line 1: X Y Z or name X Y Z expected: a;1;;3"},
        {"columns change", "1 2 3\nb 4 5 6\n", "Line 2: X Y Z expected, as in the lines before: b 4 5 6"},
        {"too large", "1 2 1e300\n", "Line 1: X Y Z or name X Y Z expected: 1 2 1e300"},
        {"not a number", "1 2 nan\n", "Line 1: X Y Z or name X Y Z expected: 1 2 nan"},
    };
    for (const auto& c : cases) {
        const XyzFile file = Read_Xyz(c.Text);
        EXPECT_EQ(file.Error, c.Error) << c.What;
        EXPECT_TRUE(file.Points.empty()) << c.What;
    }
}

XyzPoint At(double x, double y, double z = 0) {
    return {"", x, y, z};
}

TEST(XyzPath, DistancesFollowTheBendsAndIgnoreTheElevations) {
    const std::vector<XyzPoint> path{At(0, 0, 0), At(3, 4, 100), At(3, 4, 0), At(3, 14, 7)};
    EXPECT_EQ(Path_Distances(path), (std::vector<double>{0, 5, 5, 15}));
    const struct {
        double X, Y, Place;
    } cases[] = {
        {0, 0, 0},       {3, 9, 10},   {5, 9, 10},  // beside the line: its foot
        {3, 20, 21},     {-3, -4, -5},              // beyond both ends
        {3.2, 3.6, 4.8}, {3, 4, 5},
    };
    for (const auto& c : cases)
        EXPECT_NEAR(Place_On_Path(path, c.X, c.Y), c.Place, 1e-9) << c.X << ", " << c.Y;
    EXPECT_EQ(Place_On_Path(std::vector<XyzPoint>{At(1, 1)}, 9, 9), 0);
}

TEST(XyzPath, EndShotOneIsTheOrigin) {
    const std::vector<XyzPoint> geophones{At(2, 0), At(6, 0), At(10, 0)};
    const std::vector<XyzPoint> shots{At(-20, 0), At(1, 0), At(11, 0)};
    const auto line = Surveyed_Places(geophones, shots, std::vector<double>{-25, 0, 10}, 0, 10);
    EXPECT_EQ(line.Receivers, (std::vector<double>{1, 5, 9}));
    EXPECT_EQ(line.Shots, (std::vector<double>{-21, 0, 10}));
    EXPECT_EQ(line.LineLength, 10);
    const auto without = Surveyed_Places(geophones, shots, std::vector<double>{1, 2, 3}, 2.5, 10);
    EXPECT_EQ(without.Receivers, (std::vector<double>{2.5, 6.5, 10.5}));
    EXPECT_EQ(without.LineLength, 8);
}

class XyzCommand : public ::testing::Test {
  protected:
    void SetUp() override {
        Make_Line(workspace, 2, 3);
        workspace.Project.CurrentFile = folder / "line.tv5";
        ASSERT_EQ(Replace_File(folder / "shots.txt", "0 0 50\n0 12 52\n"), "");
        ASSERT_EQ(Replace_File(folder / "geophones.txt", "g1 0 0 50.5\ng2 0 6 51\ng3 0 12 52\n"), "");
    }
    void Choose(const std::string& shots, const std::string& geophones) {
        ports.Prompts.Expect_File("Tarnvik XYZ Shot", folder / shots);
        ports.Prompts.Expect_File("Tarnvik XYZ Geophone", folder / geophones);
        ports.Prompts.Expect("Do you want to check the XYZ file ?", Answer::No);
    }
    TemporaryFolder folder;
    Workspace workspace;
    TestPorts ports;
};

TEST_F(XyzCommand, TakesDistancesAndElevations) {
    Choose("shots.txt", "geophones.txt");
    ports.Prompts.Expect(
        "Do you want to record the real distance and elevation of geophones in Tarnvik file ?", Answer::Yes);
    ports.Prompts.Expect_Input("Enter the avearage distance between two geophones", "6");
    Enter_XYZ_Files(workspace, ports.Ports);
    const Project& project = workspace.Project;
    EXPECT_EQ(Receiver_Places(project), (std::vector<double>{0, 6, 12}));
    EXPECT_EQ(Receiver_Elevations(project), (std::vector<double>{50.5, 51, 52}));
    EXPECT_EQ(Shot_Places(project), (std::vector<double>{0, 12}));
    EXPECT_EQ(Shot_Elevations(project), (std::vector<double>{50, 52}));
    EXPECT_EQ(project.LineLength, 12);
    EXPECT_EQ(project.GeoSpace, 6);
    EXPECT_TRUE(File_Exists(project.CurrentFile));
    ASSERT_EQ(workspace.Edits.All().size(), 1U);
    EXPECT_EQ(workspace.Edits.Undo_Name(), "XYZ files");
}

TEST_F(XyzCommand, WrongCountsBadFilesAndCancelChangeNothing) {
    const Project before = workspace.Project;
    Choose("geophones.txt", "shots.txt");
    Enter_XYZ_Files(workspace, ports.Ports);
    EXPECT_EQ(ports.Prompts.Last_Text(), (folder / "geophones.txt") + " holds 3 points, the line has 2");

    ASSERT_EQ(Replace_File(folder / "bad.txt", "1 2 3\n1 2\n"), "");
    Choose("shots.txt", "bad.txt");
    Enter_XYZ_Files(workspace, ports.Ports);
    EXPECT_EQ(ports.Prompts.Last_Text(),
              (folder / "bad.txt") + "\nLine 2: X Y Z or name X Y Z expected: 1 2");

    ports.Prompts.Expect_File("Tarnvik XYZ Shot", "");
    Enter_XYZ_Files(workspace, ports.Ports);

    Choose("shots.txt", "geophones.txt");
    ports.Prompts.Expect(
        "Do you want to record the real distance and elevation of geophones in Tarnvik file ?", Answer::No);
    Enter_XYZ_Files(workspace, ports.Ports);
    Choose("shots.txt", "geophones.txt");
    ports.Prompts.Expect(
        "Do you want to record the real distance and elevation of geophones in Tarnvik file ?", Answer::Yes);
    ports.Prompts.Expect_Input("Enter the avearage distance between two geophones", "");
    Enter_XYZ_Files(workspace, ports.Ports);
    EXPECT_EQ(Project_Block(workspace.Project), Project_Block(before));
}

TEST_F(XyzCommand, TheToolThatCannotStartIsTold) {
    ports.Launcher.Result = 2;
    ports.Prompts.Expect_File("Tarnvik XYZ Shot", folder / "shots.txt");
    ports.Prompts.Expect("Do you want to check the XYZ file ?", Answer::Yes);
    Check_XYZ_File(workspace, ports.Ports);
    EXPECT_TRUE(ports.Prompts.Said((folder / "shots.txt") + ": 2 points"));
    EXPECT_EQ(ports.Prompts.Last_Text(), "./XYZ_Grid.EXEUnable to shell application:");
}

}  // namespace
}  // namespace tarnvik
