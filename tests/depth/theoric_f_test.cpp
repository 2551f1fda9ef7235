#include "depth/theoric_f.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "core/text/number.h"
#include "support/earth_line.h"
#include "support/test_ports.h"
#include "traveltime/curves.h"

namespace tarnvik {

namespace {

struct Theoretic : testing::Test {
    Theoretic() { test::Lay_Two_Layers(Work, {0, 57.5, 115}); }

    void Draw(const char* at, const char* depth,
              std::initializer_list<std::pair<const char*, const char*>> model) {
        Form.ShotLocation = at;
        Form.ShotDepth = depth;
        Form.Velocity = {};
        Form.Thickness = {};
        std::size_t row = 0;
        for (const auto& [velocity, thickness] : model) {
            Form.Velocity.at(++row) = velocity;
            Form.Thickness.at(row) = thickness;
        }
        Form.Command2();
    }
    /// Time in ms of the earliest branch that passes over a receiver.
    double Earliest(int receiver) const {
        const double x = Position_Ecran(Work.Project, receiver);
        double earliest = 1e9;
        for (const CurveBranch& branch : Form.Branches) {
            if (x < std::min(branch.X1, branch.X2) - 1e-9 || x > std::max(branch.X1, branch.X2) + 1e-9)
                continue;
            const double y = branch.Y1 + (branch.Y2 - branch.Y1) * (x - branch.X1) / (branch.X2 - branch.X1);
            earliest = std::min(earliest, y * Work.Curves.TimeFactor);
        }
        return earliest;
    }
    test::RecordingPicture& Dromo() { return World.Display.Pictures[Canvas::Dromo]; }

    Workspace Work;
    test::TestPorts World;
    TheoricF Form{Work, World.Ports};
};

}  // namespace

TEST_F(Theoretic, TheModelOfTheEarthLiesOnItsPicks) {
    for (int shot = 1; shot <= 3; ++shot) {
        Draw(CStr(Work.Project.ShotDistance(shot)).c_str(), "0", {{"500", "6"}, {"2000", ""}});
        ASSERT_EQ(Form.NbLayers, 2);
        EXPECT_EQ(Form.IT, std::vector<double>{23});
        // End shots have one part of each branch.
        EXPECT_EQ(Form.Branches.size(), shot == 2 ? 4U : 2U);
        for (int receiver = 1; receiver <= 24; ++receiver)
            EXPECT_NEAR(Earliest(receiver), Work.Project.ShotTimes(shot, receiver), 0.25) << shot << receiver;
    }
    EXPECT_TRUE(World.Prompts.Messages.empty());
}

TEST_F(Theoretic, BranchesEndAtTheEdgeOfThePictureOrOfTheLine) {
    Work.Curves.TimeFactor = 1;
    Draw("115", "2", {{"500", "6"}, {"2000", "12"}, {"", "9"}, {"5000", ""}});
    // A shot 2 m deep adds Z1 / V1 = 12 ms to the intercept of 23 ms; the empty row ends the model.
    EXPECT_EQ(Form.IT, std::vector<double>{35});
    const std::vector<CurveBranch> expected = {{96, 0, 96 - 50.0 * 96 / 115, 100},
                                               {96, 35, 0, 35 + 115.0 / 2}};
    ASSERT_EQ(Form.Branches.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(Form.Branches[i].X1, expected[i].X1, 1e-9);
        EXPECT_NEAR(Form.Branches[i].Y1, expected[i].Y1, 1e-9);
        EXPECT_NEAR(Form.Branches[i].X2, expected[i].X2, 1e-9);
        EXPECT_NEAR(Form.Branches[i].Y2, expected[i].Y2, 1e-9);
    }
    // All five layers: each angle is of two adjacent layers.
    Draw("0", "0", {{"400", "2"}, {"800", "4"}, {"1600", "8"}, {"3200", "16"}, {"6400", "1"}});
    const double each = std::round(1000 * 2 * std::sqrt(0.75) * 2 / 400);
    EXPECT_EQ(Form.IT, std::vector<double>(4, each));
    ASSERT_EQ(Form.Branches.size(), 5U);
    EXPECT_NEAR(Form.Branches[4].Y1, 4 * each, 1e-9);
    Draw("20", "0", {{"400", ""}});
    EXPECT_EQ(Form.NbLayers, 1);
    EXPECT_TRUE(Form.IT.empty());
    EXPECT_EQ(Form.Branches.size(), 2U);
}

TEST_F(Theoretic, ModelsStandOnThePictureInTheirColoursUntilTheyAreCleared) {
    Form.Load();
    const auto lines = [&](Colour colour) {
        Show_Curves(Work, World.Ports);
        const auto drawn = Dromo().Of(test::Drawn::Verb::Line, colour);
        return std::count_if(drawn.begin(), drawn.end(), [](const auto& line) { return line.Width == 2; });
    };
    const auto black = lines(colours::Black);
    Draw("57.5", "0", {{"500", "6"}, {"2000", ""}});
    Form.LineType = 2;
    Draw("57.5", "0", {{"550", "6"}, {"2000", ""}});
    // Of each model two branches to either side and the line of the shot.
    EXPECT_EQ(lines(colours::Black), black + 5);
    EXPECT_EQ(lines(colours::Blue), 5);
    for (const auto& [message, first, second] :
         {std::tuple("Layer 2 Velocity must be  greater ...", "2000", "2000"),
          {"Error, calcul not possible...", "", "2000"},
          {"Error, calcul not possible...", "-500", ""}}) {
        Draw("0", "0", {{first, "6"}, {second, ""}});
        EXPECT_EQ(World.Prompts.Last_Text(), message);
        EXPECT_EQ(Form.NbLayers, 0);
    }
    EXPECT_EQ(lines(colours::Blue), 5) << "what stood stays";
    Form.Command3();
    EXPECT_EQ(lines(colours::Blue), 0);
    EXPECT_EQ(Work.Mode.Current(), DisplayMode::Dromo);
    Draw("0", "0", {{"500", ""}});
    Form.Close();
    EXPECT_EQ(lines(colours::Blue), 0);
}

TEST_F(Theoretic, TheModelOfTheShotOnHandIsTakenFromTheProject) {
    Project& line = Work.Project;
    Work.Velocity.CurrentShot = 2;
    Form.Take_Model();
    EXPECT_EQ(World.Prompts.Last_Text(), "Shot 2 has no velocities yet");
    line.ShotDepth(2) = 1;
    const int velocities_a[] = {500, 1800, 4000};
    const int velocities_b[] = {500, 2250, 4000};
    for (int layer = 1; layer <= 3; ++layer) {
        line.VelocityA(2, layer) = static_cast<std::int16_t>(velocities_a[layer - 1]);
        line.VelocityB(2, layer) = static_cast<std::int16_t>(velocities_b[layer - 1]);
    }
    line.ShotThickness(2, 1) = 6.5;
    line.ShotThickness(2, 2) = 12;
    Form.Velocity[4] = "5000";
    Form.Take_Model();
    EXPECT_EQ(Form.ShotLocation, "57.5");
    EXPECT_EQ(Form.ShotDepth, "1");
    // Of a dipping refractor the true velocity, by the mean of the two angles.
    const double angle = (std::asin(500.0 / 1800) + std::asin(500.0 / 2250)) / 2;
    EXPECT_EQ(Form.Velocity, (TheoricF::LayerTexts{"", "500", CStr(Rounded(500 / std::sin(angle))), "4000"}));
    EXPECT_EQ(Form.Thickness, (TheoricF::LayerTexts{"", "6.5", "12"}));
    EXPECT_EQ(Form.Depth, (TheoricF::LayerTexts{"", "6.5", "18.5"}));
    Form.Command2();
    EXPECT_EQ(Form.NbLayers, 3);
}

}  // namespace tarnvik
