// Colour scales and the coloured section, from the depths to the verbs on the picture.

#include "output/section_picture.h"

#include <gtest/gtest.h>

#include "output/coloured_section.h"
#include "output/section.h"
#include "output/section_window.h"
#include "support/recording_picture.h"
#include "support/test_ports.h"

namespace tarnvik::test {
namespace {

TEST(ColourScale, ReadsLevelsAndMaps) {
    const auto levels = Read_Colour_Scale(
        "LVL3\r\n'Level Flags LColor LStyle LWidth FVersion FFGColor FBGColor FPattern\r\n"
        "1500 0 \"Black\" \"Solid\" 0 1 \"R10 G20 B30\" \"White\" \"Solid\" 'and words\r\n"
        "0 0 \"R1 G2 B3\" \".1 in. Dash\" 0 1 \"50% Black\" \"White\" \"Solid\"\r\n",
        5000);
    ASSERT_EQ(levels.Fault, "");
    EXPECT_EQ(levels.Scale.Of(1499), Rgb(128, 128, 128));
    EXPECT_EQ(levels.Scale.Of(1500), Rgb(10, 20, 30));
    EXPECT_EQ(levels.Scale.Of(-5), Rgb(128, 128, 128));
    const auto map = Read_Colour_Scale("ColorMap 1 1\n0 0 0 0\n100 200 100 50\n", 1000);
    ASSERT_EQ(map.Fault, "");
    EXPECT_EQ(map.Scale.Of(500), Rgb(100, 50, 25));
    EXPECT_EQ(map.Scale.Of(9000), Rgb(200, 100, 50));
    EXPECT_EQ(Read_Colour_Scale("LVL2\n5 0 \"Black\" \"Solid\" 0 \"Blurple\" \"Red\"\n", 1).Fault,
              "no colour in line 2")
        << "the contour's colour does not fill";
    for (const char* broken : {"", "LVL2\n", "GIF89a", "ColorMap 1 1\n0 0 0\n", "ColorMap 1 1\n0 0 0 256\n"})
        EXPECT_NE(Read_Colour_Scale(broken, 1).Fault, "") << broken;
}

/// Three shots 0, 50 and 100 on level ground, 5 m of 500 over 2000, one offset shot at each end.
class Section : public ::testing::Test {
  protected:
    Section() {
        Project& line = Work.Project;
        line.NbShots = 5;
        line.NbReceivers = 6;
        line.LineLength = 100;
        Redimension_Project(line);
        for (int shot = 1; shot <= 5; ++shot) {
            line.ShotDistance(shot) = 50 * (shot - 2);
            line.ShotElevation(shot) = 100;
            line.VelocityA(shot, 1) = line.VelocityB(shot, 1) = 500;
            line.VelocityA(shot, 2) = line.VelocityB(shot, 2) = 2000;
            line.InterceptA(shot, 1) = line.InterceptB(shot, 1) = 19;
            line.ShotThickness(shot, 1) = 5;
        }
        for (int receiver = 1; receiver <= 6; ++receiver) {
            line.ReceiverData(ReceiverDistance, receiver) = static_cast<float>(20 * (receiver - 1));
            line.ReceiverData(ReceiverElevation, receiver) = 100;
        }
        Work.Section.Colours = SectionColours::Even;
        EXPECT_TRUE(Make_Section(Work, Outside, {110, 90}));
    }
    void Draw() {
        for (RecordingPicture* picture : {&Main, &Below, &Beside})
            picture->List.clear();
        Draw_Section(Work, Logic.Scale(), {Main, Below, Beside});
    }
    std::vector<Drawn> Cells(double velocity) {
        std::vector<Drawn> inside;
        for (const Drawn& box : Main.Of(Drawn::Verb::FilledBox, Logic.Scale().Of(velocity))) {
            if (box.X1 < Work.Project.LineLength) inside.push_back(box);
        }
        return inside;
    }

    Workspace Work;
    ScriptedPrompts Prompts;
    RecordingDisplay Display;
    RecordingLauncher Launcher;
    Ports Outside{Prompts, Display, Launcher};
    ColouredSection Logic{Work, Outside};
    RecordingPicture Main, Below, Beside;
};

TEST_F(Section, ShowsLayersMarksAndAxesWhereTheyAre) {
    Project& line = Work.Project;
    line.remark_grid.Set_Text(2, 0, "30");
    line.remark_grid.Set_Text(2, 1, "94");
    line.remark_grid.Set_Text(2, 2, "-1");
    line.remark_grid.Set_Text(2, 3, "BOREHOLE");
    line.remark_grid.Set_Text(7, 3, "sixth");
    Draw();
    // The first layer from the ground to 95, the second one from there down, over the whole line.
    const auto upper = Cells(500);
    const auto lower = Cells(2000);
    ASSERT_FALSE(upper.empty());
    ASSERT_FALSE(lower.empty());
    EXPECT_NEAR(upper.front().X1, 0, 1e-9);
    EXPECT_NEAR(lower.back().X2, 100, 1e-9);
    for (const Drawn& box : upper)
        EXPECT_NEAR(box.Y1, 100, 1e-9);
    for (const Drawn& box : lower)
        EXPECT_NEAR(box.Y1, 95, 1e-9);
    EXPECT_TRUE(Main.Has_Line(0, 100, 0, 100, colours::Black));
    ASSERT_NE(Main.Printed("3S"), nullptr);
    EXPECT_NEAR(Main.Printed("3S")->X1, 50, 2);
    EXPECT_GT(Main.Printed("3S")->Y1, 100);
    EXPECT_EQ(Main.Printed("1S"), nullptr) << "an offset shot";
    ASSERT_NE(Main.Printed("BOREHOLE"), nullptr);
    EXPECT_NEAR(Main.Printed("BOREHOLE")->Y1, 93, 1);
    EXPECT_EQ(Main.Printed("sixth"), nullptr);
    EXPECT_NE(Main.Printed("Velocity meters/s"), nullptr);
    EXPECT_NE(Below.Printed("100"), nullptr);
    EXPECT_NE(Beside.Printed("96"), nullptr);

    Work.Section.ShowShots = Work.Section.ShowGeophones = Work.Section.ShowScale = false;
    Draw();
    for (const char* gone : {"3S", "v", "Velocity meters/s"})
        EXPECT_EQ(Main.Printed(gone), nullptr) << gone;
}

TEST_F(Section, IsEnlargedReadAndFollowsTheLine) {
    Logic.Move(50, 97);
    EXPECT_EQ(Work.Fields.Text1, "X= 50.0 m  Z= 97.00 m  V= 500 m/s");
    EXPECT_EQ(Read_Section(Work, 50, 94.9)->Velocity, 2000);
    EXPECT_EQ(Read_Section(Work, 50, 101)->Velocity, 0);
    EXPECT_FALSE(Read_Section(Work, 101, 95));
    Draw_Section_Cut(Work, Logic.Scale(), Frame{0, 112, 110, 90, 960, 500}, Main);
    EXPECT_NE(Main.Printed("2000"), nullptr);
    EXPECT_TRUE(Main.Has_Line(500, 95, 2000, 95, colours::Black)) << "the stair at the interface";

    Logic.Press(20, 98, true);
    Logic.Move(40, 92);
    Logic.Release(40, 92);
    EXPECT_EQ(Section_In_Sight(Work), (SectionWindow{20, 40, 92, 98}));
    Draw();
    EXPECT_LT(Cells(500).size(), 60U) << "only the cells in sight";
    EXPECT_EQ(Main.Printed("3S"), nullptr);
    Logic.Pan(1000, -1000);
    EXPECT_EQ(Section_In_Sight(Work), (SectionWindow{80, 100, 90, 96}));
    Logic.Enlarge(90, 93, 1e9, 1e-9);
    EXPECT_NEAR(Section_In_Sight(Work).Right - Section_In_Sight(Work).Left, 2, 1e-9);
    EXPECT_EQ(Section_In_Sight(Work).Top, 110);
    Logic.Show_All();
    EXPECT_EQ(Section_In_Sight(Work), (SectionWindow{0, 100, 90, 110}));

    // A thicker layer shows at once and asks nothing; without any the section is gone.
    for (int shot = 1; shot <= 5; ++shot)
        Work.Project.ShotThickness(shot, 1) = 8;
    Logic.Line_Changed();
    EXPECT_EQ(Read_Section(Work, 50, 94)->Velocity, 500);
    for (int shot = 1; shot <= 5; ++shot)
        Work.Project.ShotThickness(shot, 1) = 0;
    Logic.Line_Changed();
    EXPECT_FALSE(Work.Section.Grid);
    EXPECT_NE(Work.Fields.Status.find("You must first compute depth below all shot"), std::string::npos);
}

}  // namespace
}  // namespace tarnvik::test
