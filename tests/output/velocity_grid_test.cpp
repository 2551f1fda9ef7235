#include "output/velocity_grid.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/files.h"
#include "core/grm_file.h"
#include "output/elevation_extremes.h"
#include "output/line_for_profiles.h"
#include "output/section.h"
#include "output/section_files.h"
#include "support/test_ports.h"

namespace tarnvik::test {
namespace {

/// The line of 180 m: shots in columns 1, 51 and 120 (capped), receivers in 21, 41, 61 and 101.
class VelocityGridTest : public testing::Test {
  protected:
    VelocityGridTest() {
        for (int shot = 1; shot <= 3; ++shot) {
            for (int layer = 1; layer <= 3; ++layer) {
                Line.VelocityA(shot, layer) = static_cast<std::int16_t>(500 * layer * layer);
                Line.VelocityB(shot, layer) = static_cast<std::int16_t>(500 * layer * layer);
            }
            Line.ShotThickness(shot, 1) = 3;
            Line.ShotThickness(shot, 2) = 5;
        }
    }
    bool Make(SectionElevations between = {110, 80}) { return Make_Section(Work, Test.Ports, between); }
    const SectionGrid& Grid() { return *Work.Section.Grid; }
    /// Velocity at a row counted from the top.
    double Cell(int column, int row) { return Grid().VelocityGrid(column, Grid().GridRows - row); }
    double Filled(int column, int row) { return Grid().Filled(column, Grid().GridRows - row); }
    /// Rows from the top at which the filled column changes, the ground first.
    std::vector<int> Interfaces(int column) {
        std::vector<int> rows;
        double above = 0;
        for (int row = 0; row < Grid().GridRows; ++row) {
            if (Filled(column, row) != above) rows.push_back(row);
            above = Filled(column, row);
        }
        return rows;
    }
    void Expect_Refusal(const std::string& text) {
        EXPECT_FALSE(Make());
        EXPECT_FALSE(Work.Section.Grid) << "no section of before stands under a new name";
        EXPECT_EQ(Test.Prompts.Last_Text(), text);
    }
    void Expect_Refusal(const std::string& question, Answer answer) {
        Test.Prompts.Expect(question, answer);
        Expect_Refusal(question);
    }
    void Give_Abc_Depths() {
        for (int receiver = 1; receiver <= 4; ++receiver) {
            Line.ReceiverData(ReceiverV1, receiver) = 500;
            Line.ReceiverData(ReceiverV2, receiver) = 1500;
            Line.ReceiverData(ReceiverV3, receiver) = 3000;
            Line.ReceiverData(ReceiverV4, receiver) = 5000;
            Line.ReceiverData(ReceiverDepth1, receiver) = 2;
            Line.ReceiverData(ReceiverDepth2, receiver) = 4;
            Line.ReceiverData(ReceiverScratch, receiver) = 6.5F;
        }
        Work.Section.Source = SectionSource::Abc;
    }

    Workspace Work = Flat_Line();
    Project& Line = Work.Project;
    TestPorts Test;
};

TEST_F(VelocityGridTest, SetsTheInterfacesBelowShotsAndOnTheLineToTheNextOne) {
    Line.ShotElevation(2) = 98;
    Line.ReceiverData(ReceiverElevation, 2) = 99;  // in column 41
    Line.ReceiverData(ReceiverElevation, 3) = 97;  // in column 61
    Line.VelocityA(2, 2) = Line.VelocityB(2, 2) = 1700;
    ASSERT_TRUE(Make());
    EXPECT_EQ(Grid().GridColumns, 120);
    EXPECT_EQ(Grid().GridRows, 124);  // 31 units
    using Texts = std::array<std::string, 6>;
    EXPECT_EQ(Grid().GridCorners[0], (Texts{"1,42", "1,54", "1,74"}));
    EXPECT_EQ(Grid().GridCorners[1], (Texts{"51,50", "51,62", "51,82"}));
    EXPECT_EQ(Grid().GridCorners[2], (Texts{"120,42", "120,54", "120,74"}));
    EXPECT_EQ(Cell(1, 74), 4500 * 1.0);
    // From (1, 54) to (51, 62) and from 2000 to 1700: column c has what is c steps on, its own one included.
    EXPECT_EQ(Cell(1, 54), 1994) << "the first step takes the shot's own cell";
    EXPECT_EQ(Cell(25, 58), 2000 - 25 * 6);
    EXPECT_EQ(Cell(50, 62), 1700);
    EXPECT_EQ(Cell(51, 62), 1700 + 300.0 / 69);
    // The ground: receivers count before shots, gaps are closed, the ends go on level.
    const std::vector<int>& topo = Grid().TopoRows;
    ASSERT_EQ(topo.size(), 121U);
    EXPECT_EQ(
        (std::vector<int>{topo[0], topo[1], topo[21], topo[31], topo[41], topo[46], topo[51], topo[56]}),
        (std::vector<int>{42, 42, 42, 44, 46, 48, 50, 52}));
    EXPECT_EQ(topo[23], 42);  // 42.4
    EXPECT_EQ(topo[61], 54);
    // A straight line that would rise above the ground follows it.
    EXPECT_EQ(Cell(61, 54), 500);
    EXPECT_EQ(Interfaces(61), (std::vector<int>{54, 61, 81}));
    EXPECT_EQ(Filled(61, 53), 0);
    EXPECT_EQ(Filled(61, 54), 500);
    EXPECT_EQ(Filled(61, 123), 4500);
}

TEST_F(VelocityGridTest, LeavesOutThicknessesOf0AndStopsAtTheDeepestVelocity) {
    Line.ShotThickness(2, 1) = 0;
    Line.ShotThickness(3, 3) = 4;  // below the last velocity
    ASSERT_TRUE(Make());
    using Texts = std::array<std::string, 6>;
    EXPECT_EQ(Grid().GridCorners[1], (Texts{"51,42", "", "51,62"})) << "the layer below starts at the ground";
    EXPECT_EQ(Grid().GridCorners[2], (Texts{"120,42", "120,54", "120,74"}));
    EXPECT_EQ(Cell(25, 54), 0);
    EXPECT_EQ(Cell(25, 68), 4500);
}

TEST_F(VelocityGridTest, KeepsTheTextsOfWhatLiesOutsideTheRows) {
    ASSERT_TRUE(Make({98, 94}));  // the ground lies above the top, the bedrock below the bottom
    EXPECT_EQ(Grid().GridRows, 20);
    EXPECT_EQ(Grid().GridCorners[0][0], "1,-6");
    EXPECT_EQ(Grid().GridCorners[0][2], "1,26");
    EXPECT_EQ(Interfaces(30), (std::vector<int>{0, 6}));
    EXPECT_EQ(Filled(30, 0), 500) << "the layer that is cut keeps its velocity";
    ASSERT_TRUE(Make({100, 100}));
    EXPECT_EQ(Grid().GridRows, 4);
}

TEST_F(VelocityGridTest, SlopesLengthenTheDepthsOfShotsByTheirNeighbours) {
    Line.ShotElevation(3) = 80;
    Work.Section.SlopeCorrection = true;
    ASSERT_TRUE(Make({110, 60}));
    ASSERT_EQ(Grid().Factors.size(), 3U);
    EXPECT_EQ(Grid().Factors[0], 1);
    EXPECT_DOUBLE_EQ(Grid().Factors[1], std::hypot(180, 20) / 180);
    EXPECT_DOUBLE_EQ(Grid().Factors[2], std::hypot(105, 20) / 105);
    Line.ShotThickness(3, 1) = 30;
    ASSERT_TRUE(Make({110, 30}));
    EXPECT_EQ(Grid().GridCorners[2][1], "120,244");  // 122 + 4 * 30.54
    Line.ShotDistance(2) = Line.ShotDistance(3) = 180;
    ASSERT_TRUE(Make({110, 30}));
    EXPECT_EQ(Grid().Factors[2], 1) << "no distance, no slope";
}

TEST_F(VelocityGridTest, RefusesALineThatGivesNoSectionInItsOwnWords) {
    const Project before = Line;
    const std::string layers =
        "All shots must have then same layer number !, you can enter very thin ...virtual... layer. Exit now "
        "?";
    Line.VelocityA(2, 3) = Line.VelocityB(2, 3) = 0;
    Expect_Refusal(layers, Answer::Yes);
    Test.Prompts.Expect(layers, Answer::No);
    EXPECT_TRUE(Make());
    Line.NbShots = 2;
    Expect_Refusal(" This Graph is not possible with only two shots");
    Line = before;
    for (double& thickness : Line.ShotThickness.Values())
        thickness = 0;
    Expect_Refusal("You must first compute depth below all shot, Quit ?", Answer::No);
    Line = before;
    Line.LineLength = 0;
    Expect_Refusal("This section is not possible: division by zero");
    Work.Section.Source = SectionSource::Abc;
    Expect_Refusal("First, you must  compute depth below receivers with ABC method");
    Work.Section.Source = SectionSource::Grm;
    Expect_Refusal("You must first run and record GRM !");

    Line = before;
    Work.Section.Source = SectionSource::Shots;
    Test.Prompts.Expect("Are you sure that elevation difference is 90.5", Answer::No);
    EXPECT_FALSE(Make({160.5, 70}));
    EXPECT_TRUE(Make({160, 70}));
    EXPECT_FALSE(Make({70, 110}));
}

TEST_F(VelocityGridTest, TakesDelayTimeDepthsBelowReceivers) {
    Give_Abc_Depths();
    ASSERT_TRUE(Make());
    EXPECT_EQ(Grid().GridColumns, 8);
    // Receivers in columns 2, 4 (of 3.67), 5 and 8 (of 7.67).
    EXPECT_EQ(Grid().GridCorners[1], (std::array<std::string, 6>{"4,42", "4,50", "4,58", "4,68", "", ""}));
    EXPECT_EQ(Interfaces(6), (std::vector<int>{42, 50, 58, 68}));
    EXPECT_EQ(Filled(6, 70), 5000);
    EXPECT_TRUE(Interfaces(1).empty()) << "nothing is known before the first receiver";

    // A receiver without a delay: its cells miss, but the section goes on over it.
    for (const auto row : {ReceiverDepth1, ReceiverDepth2, ReceiverScratch})
        Line.ReceiverData(row, 2) = 0;
    ASSERT_TRUE(Make());
    EXPECT_EQ(Cell(4, 50), 0);
    EXPECT_EQ(Interfaces(4), (std::vector<int>{42, 50, 58, 68}));

    // With two layers the depth of the bedrock alone, where the user agrees.
    for (int receiver = 1; receiver <= 4; ++receiver) {
        Line.ReceiverData(ReceiverDepth1, receiver) = 7500;
        Line.ReceiverData(ReceiverDepth2, receiver) = Line.ReceiverData(ReceiverScratch, receiver) = 0;
        Line.ReceiverData(ReceiverRockDepth, receiver) = 7.5F;
    }
    const std::string too_few = "With two layers, ABC is not possible, add a third level, Quit ?";
    Expect_Refusal(too_few, Answer::Yes);
    Test.Prompts.Expect(too_few, Answer::No);
    ASSERT_TRUE(Make());
    EXPECT_EQ(Interfaces(6), (std::vector<int>{42, 72}));
    EXPECT_EQ(Filled(6, 72), 1500);
}

TEST_F(VelocityGridTest, TakesGrmDepthsOfTheFileAndClosesSingleGaps) {
    const TemporaryFolder folder;
    constexpr int receivers = 8;
    Line.NbReceivers = receivers;
    Redimension_Project(Line);
    GrmContent recorded;
    recorded.GrmXY = 2;
    recorded.Data = {GrmContent::Rows, receivers};
    for (int receiver = 1; receiver <= receivers; ++receiver) {
        Line.ReceiverData(ReceiverDistance, receiver) = static_cast<float>(20 * receiver);
        Line.ReceiverData(ReceiverElevation, receiver) = 100;
        for (int layer = 1; layer <= 3; ++layer)
            recorded.Data(3 + layer, receiver) = 700 * layer;
        recorded.Data(7, receiver) = 1;
        recorded.Data(9, receiver) = receiver == 1 || receiver == 8 ? 0 : receiver;
    }
    Line.CurrentFile = folder / "line.tv5";
    Work.Section.Source = SectionSource::Grm;
    const auto make = [&] {
        EXPECT_EQ(Replace_File(folder / "line.GRM", Grm_Bytes(recorded, receivers)), "");
        return Make();
    };
    recorded.Data(9, 3) = 0;
    ASSERT_TRUE(make());
    EXPECT_EQ(Grid().GridColumns, 16);
    EXPECT_EQ(Grid().GridCorners[2], (std::array<std::string, 6>{"6,42", "6,46", "6,54", "", "", ""}));
    EXPECT_EQ(Filled(6, 54), 2100);
    EXPECT_TRUE(Interfaces(1).empty()) << "the bedrock is not reached at the ends";
    recorded.Data(9, 4) = 0;
    EXPECT_FALSE(make());
    EXPECT_EQ(Test.Prompts.Messages.back().Text,
              "Two consecutives empty values not admitted !, you must correct and re-run this module");
}

TEST_F(VelocityGridTest, SmoothInterfacesPassTheirPlacesAndInventNoHollow) {
    const std::array thicknesses = {10.0, 4.0, 3.0};
    for (int shot = 1; shot <= 3; ++shot)
        Line.ShotThickness(shot, 1) = thicknesses.at(static_cast<std::size_t>(shot) - 1);
    ASSERT_TRUE(Make());
    EXPECT_EQ(Interfaces(25)[1], 70);
    Work.Section.Line = SectionLine::Bezier;
    ASSERT_TRUE(Make());
    EXPECT_EQ(Grid().GridCorners[1][1], "51,58");
    EXPECT_EQ(Interfaces(50)[1], 58);
    EXPECT_EQ(Interfaces(25)[1], 68) << "it levels out towards the gentle side";
    for (int column = 2; column < 120; ++column) {
        const int change = Interfaces(column)[1] - Interfaces(column - 1)[1];
        EXPECT_TRUE(change <= 0 && change >= -1) << column;
    }
    Work.Section.SmoothingFactor = 3;
    ASSERT_TRUE(Make());
    EXPECT_EQ(Grid().GridCorners[1][1], "51,65");  // 42 + 4 * 5.67
    EXPECT_EQ(Grid().GridCorners[0][1], "1,82") << "the ends stay";
    Work.Section.SmoothingFactor = 1;
    Work.Section.Smoothing = true;
    ASSERT_TRUE(Make());
    EXPECT_EQ(Grid().GridCorners[1], (std::array<std::string, 6>{"51,42", "51,58", "51,85", "", "", ""}));
}

TEST_F(VelocityGridTest, FindsElevationsAroundTheLineInTens) {
    Line.ShotElevation(1) = 99.9;
    Line.ReceiverData(ReceiverElevation, 3) = 105;
    Line.ReceiverData(ReceiverElevation, 4) = 110.5F;
    double mini = 0;
    double maxi = 0;
    Recherche_Alti_Mini_Maxi(Line, mini, maxi);
    EXPECT_EQ(mini, 90);
    EXPECT_EQ(maxi, 120);
    Line.ReceiverData(ReceiverElevation, 4) = -0.5;
    Recherche_Alti_Mini_Maxi(Line, mini, maxi);
    EXPECT_EQ(mini, -10);
    EXPECT_EQ(maxi, 110);
    Command19(Work, Test.Ports);
    EXPECT_EQ(Work.Profile.GivenMinElevation, -10);
    EXPECT_EQ(Work.Profile.GivenMaxElevation, 110);
}

TEST_F(VelocityGridTest, SavesTheProjectAndWritesTheCellsBesideIt) {
    const TemporaryFolder folder;
    Line.CurrentFile = folder / "Line.TV5";
    int saved = 0;
    FileRoutines files;
    files.SaveProject = [&saved](Workspace&, Ports&) { return ++saved > 0; };
    const std::string users = "0 1 2\r\n";  // three numbers a line, but none of ours
    ASSERT_EQ(Replace_File(folder / "Line.dat", users), "");
    const std::string question = folder / "Line.dat already exists, overwrite ?";
    Test.Prompts.Expect(question, Answer::No);
    EXPECT_TRUE(Command13(Work, Test.Ports, files));
    EXPECT_EQ(Read_File(folder / "Line.dat"), users);
    EXPECT_EQ(Grid().MaxElevation, 100) << "not given: ground and deepest interface";
    EXPECT_EQ(Grid().MinElevation, 90);
    EXPECT_EQ(Work.Fields.Status, "");
    Work.Profile.GivenMinElevation = 100;  // as Command19 finds it for flat ground
    Test.Prompts.Expect(question, Answer::Yes);
    EXPECT_TRUE(Command13(Work, Test.Ports, files));
    const std::string written = Read_File(folder / "Line.dat").value_or("");
    EXPECT_EQ(written, Section_Dat(Grid(), 180));
    EXPECT_EQ(Grid().GridRows, 4);
    EXPECT_NE(Work.Fields.Status, "") << "the user is told what he does not see";
    Work.Profile.GivenMinElevation.reset();
    EXPECT_EQ(Test.Prompts.Messages.size(), 2U);
    Line.ShotElevation(2) = 97;
    EXPECT_TRUE(Command13(Work, Test.Ports, files));
    EXPECT_NE(Read_File(folder / "Line.dat"), written);
    EXPECT_EQ(Test.Prompts.Messages.size(), 2U) << "one of ours is replaced unasked";
    EXPECT_EQ(saved, 3);
}

}  // namespace
}  // namespace tarnvik::test
