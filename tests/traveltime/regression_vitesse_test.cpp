#include "traveltime/regression_vitesse.h"

#include <gtest/gtest.h>

#include "support/earth_line.h"
#include "support/test_ports.h"

namespace tarnvik {

namespace {

using test::Drawn;

struct DragTest : testing::Test {
    DragTest() {
        test::Lay_Two_Layers(Work, {0, 57.5, 115, -40, 2.5});
        Work.Mode.Display(DisplayMode::Calcul);
    }
    bool Run(int shot, int first, int last) {
        First = first;
        Last = last;
        return Regression_Vitesse(Work, World.Ports, shot, First, Last, Line, Velocity);
    }
    Workspace Work;
    test::TestPorts World;
    StretchLine Line = StretchLine::Free;
    int First = 0;
    int Last = 0;
    double Velocity = -1;
};

}  // namespace

TEST_F(DragTest, CorrectsTheReceiversInPlace) {
    const struct {
        int First, Last, NewFirst, NewLast;
    } cases[] = {{24, 8, 8, 24}, {99, 8, 8, 24}, {-4, 24, 1, 24}, {30000, -30000, 1, 24}, {8, 24, 8, 24}};
    for (const auto& c : cases) {
        EXPECT_TRUE(Run(1, c.First, c.Last));
        EXPECT_EQ(First, c.NewFirst);
        EXPECT_EQ(Last, c.NewLast);
    }
    EXPECT_NEAR(Velocity, 2000, 1);
    EXPECT_EQ(Work.Velocity.InterceptResult, 23.2);
    EXPECT_FALSE(World.Display.Pictures[Canvas::Dromo].Of(Drawn::Verb::Line, colours::Blue).empty());
}

TEST_F(DragTest, ALineThroughTheShotIsAskedFor) {
    EXPECT_TRUE(Run(2, 10, 15));  // holds the shot: direct
    EXPECT_NEAR(Velocity, 500, 1);
    EXPECT_EQ(Work.Velocity.InterceptResult, 0);
    Line = StretchLine::ThroughShot;
    EXPECT_TRUE(Run(2, 13, 15));
    EXPECT_NEAR(Velocity, 500, 1);
    EXPECT_NEAR(Work.Velocity.Correlation, 99, 0.1);
    Line = StretchLine::Free;
    EXPECT_TRUE(Run(2, 13, 15));
    EXPECT_EQ(Work.Velocity.Correlation, 1);
}

TEST_F(DragTest, OneReceiverIsAStretchOnlyBesideTheShot) {
    const struct {
        int Shot, Receiver;
        bool Accepted;
    } cases[] = {{2, 12, true}, {2, 13, true}, {2, 11, false}, {2, 14, false}, {3, 24, true}, {3, 23, true},
                 {1, 2, true},  {1, 3, false}, {4, 1, false},  {5, 1, true},   {5, 2, true}};
    Work.Project.ShotTimes(3, 24) = 1;
    for (const auto& c : cases) {
        Velocity = -1;
        Line = StretchLine::ThroughShot;  // one receiver takes the direct method all the same
        EXPECT_EQ(Run(c.Shot, c.Receiver, c.Receiver), c.Accepted) << c.Shot << " " << c.Receiver;
        EXPECT_EQ(Velocity >= 0, c.Accepted);
    }
    EXPECT_FALSE(Run(2, 3, 3));
    EXPECT_EQ(Work.Velocity.QuickStatus, "Impossible: Wrong receivers 3,3");
    EXPECT_EQ(Work.Fields.Status, "Impossible: Wrong receivers 3,3");
    EXPECT_TRUE(Run(2, 13, 20));
    EXPECT_EQ(Work.Fields.Status, "") << "gone with the next drag";
    Work.Fields.Status = "told by somebody else";
    EXPECT_TRUE(Run(2, 13, 20));
    EXPECT_EQ(Work.Fields.Status, "told by somebody else");
    EXPECT_TRUE(World.Prompts.Messages.empty());
}

TEST_F(DragTest, MessagesGoToTheStatusLabelInModeQuickAndToABoxElsewhere) {
    const auto failing = [this] {
        for (int r = 1; r <= 24; ++r)
            Work.Project.ShotTimes(2, r) = r == 5 ? 3.0F : 0.0F;
    };
    failing();
    const struct {
        int First, Last;
        const char* Text;
        Icon WithIcon;
    } cases[] = {{10, 15, "Impossible...", Icon::Critical},
                 {15, 20, "Impossible calculation...", Icon::None},
                 {3, 9, "Error, calcul not possible...", Icon::None}};
    for (const auto& c : cases) {
        Work.Mode.Display(DisplayMode::Calcul);
        Work.Velocity.QuickStatus.clear();
        Work.Velocity.InterceptResult = 5;
        World.Prompts.Messages.clear();
        EXPECT_FALSE(Run(2, c.First, c.Last));
        ASSERT_EQ(World.Prompts.Messages.size(), 1U) << c.Text;
        EXPECT_EQ(World.Prompts.Messages[0].Text, c.Text);
        EXPECT_EQ(World.Prompts.Messages[0].WithIcon, c.WithIcon);
        EXPECT_EQ(Work.Velocity.QuickStatus, "");
        Work.Mode.Display(DisplayMode::Quick);
        EXPECT_FALSE(Run(2, c.First, c.Last));
        EXPECT_EQ(World.Prompts.Messages.size(), 1U);
        EXPECT_EQ(Work.Velocity.QuickStatus, c.Text);
        EXPECT_EQ(Velocity, -1);
        EXPECT_EQ(Work.Velocity.InterceptResult, 0);
    }
}

TEST_F(DragTest, WithoutProjectOrLineNothingIsHarmed) {
    EXPECT_FALSE(Run(0, 1, 24));
    EXPECT_FALSE(Run(6, 1, 24));
    Work.Project.LineLength = 0;
    EXPECT_FALSE(Run(1, 8, 24));
    Work.Project = {};
    EXPECT_FALSE(Run(1, 1, 1));
    EXPECT_EQ(Velocity, -1);
}

}  // namespace tarnvik
