#include "depth/fcalcul_pointer.h"

#include <gtest/gtest.h>

#include "core/text/number.h"
#include "support/earth_line.h"
#include "support/field_names.h"
#include "support/test_ports.h"

namespace tarnvik {

namespace {

/// 24 receivers over 6 m of 500 on 2000, shots at both ends and in the middle.
struct PickingForDepth : testing::Test {
    PickingForDepth() {
        test::Lay_Two_Layers(Work, {0, 57.5, 115});
        Mouse.Register(DisplayMode::Calcul, &Handler);
        Open_At(2);
    }
    void Open_At(int shot) {
        Form.HScroll1.Value = shot;
        Work.Velocity.CurrentShot = static_cast<std::int16_t>(shot);
        Form.Load();
    }
    void Drag(double x1, double y1, double x2, double y2) {
        Mouse.Press({x1, y1, true, false});
        Mouse.Move({x2, y2, true, false});
        Mouse.Release({x2, y2, true, false});
    }
    Workspace Work;
    test::TestPorts World;
    Fcalcul Form{Work, World.Ports};
    FcalculPointer Handler{Work, World.Ports, Form};
    CurvePointer Mouse{Work, World.Ports};
};

}  // namespace

TEST_F(PickingForDepth, AClickFillsTheInterceptOrCriticalDistanceFieldInFocus) {
    Form.Enter_Field(test::Field("IT2B"));
    Mouse.Press({10, 40, true, false});
    EXPECT_EQ(Form.InterceptB[2], CStr(static_cast<int>(Work.Curves.MouseTime)));
    EXPECT_GT(Work.Curves.MouseTime, 0);
    EXPECT_EQ(Work.Velocity.Awaited, test::Field("IT2B")) << "stays, for another try";
    Form.Enter_Field(test::Field("CD1A"));
    Mouse.Press({20.5, 40, true, false});  // 24.55 along the line, the whole part counts
    EXPECT_EQ(Form.CritDistA[1], "33.5");
    EXPECT_EQ(Work.Curves.DragStartX, 0);
    EXPECT_EQ(World.Display.InFront.back(), Dialog::Fcalcul);
    Mouse.Release({20.5, 40, true, false});
    EXPECT_TRUE(World.Prompts.Messages.empty());
}

TEST_F(PickingForDepth, ADragFillsTheVelocityInFocusWithItsIntercept) {
    const struct {
        const char* Focus;
        double From;
        double To;
    } cases[] = {{"V2A", 2, 30}, {"V3A", 30, 2}, {"V2B", 68, 95}, {"V5B", 68, 95}};
    for (const auto& c : cases) {
        const std::size_t layer = static_cast<std::size_t>(c.Focus[1] - '0');
        const bool side_a = c.Focus[2] == 'A';
        const std::string other = side_a ? Form.VelocityB[layer] : Form.VelocityA[layer];
        Form.Enter_Field(test::Field(c.Focus));
        Drag(c.From, 20, c.To, 40);
        EXPECT_NEAR(Val(side_a ? Form.VelocityA[layer] : Form.VelocityB[layer]), 2000, 1) << c.Focus;
        EXPECT_EQ(side_a ? Form.InterceptA[layer - 1] : Form.InterceptB[layer - 1], "23.2");
        EXPECT_EQ(side_a ? Form.VelocityB[layer] : Form.VelocityA[layer], other) << "one side only";
        EXPECT_FALSE(Work.Velocity.Awaited);
    }
    EXPECT_EQ(Work.Velocity.CurrentShot, 2);
}

TEST_F(PickingForDepth, AnEndShotTakesTheValuesOnBothSides) {
    Open_At(1);
    Form.Enter_Field(test::Field("V2B"));
    Drag(28, 20, 95, 40);
    EXPECT_NEAR(Val(Form.VelocityA[2]), 2000, 1);
    EXPECT_EQ(Form.VelocityA[2], Form.VelocityB[2]);
    EXPECT_EQ(Form.InterceptA[1], "23.2");
    Form.Enter_Field(test::Field("V1A"));
    const std::string intercept = Form.InterceptA[1];
    Drag(5, 5, 11, 10);
    EXPECT_NEAR(Val(Form.VelocityB[1]), 500, 1);
    EXPECT_EQ(Form.InterceptA[1], intercept) << "layer 1 has none";
}

TEST_F(PickingForDepth, WhatCannotBeFittedLeavesFieldsAndFocus) {
    for (int r = 1; r <= 24; ++r)
        Work.Project.ShotTimes(2, r) = r == 20 ? 9.0F : 0.0F;
    Form.Enter_Field(test::Field("V2B"));
    const std::string before = Form.VelocityB[2];
    Drag(60, 20, 70, 40);
    EXPECT_EQ(World.Prompts.Last_Text(), "Impossible calculation...");
    EXPECT_EQ(Form.VelocityB[2], before);
    EXPECT_EQ(Work.Velocity.Awaited, test::Field("V2B"));
    World.Prompts.Messages.clear();
    Drag(60, 20, 60, 20);  // no length
    Mouse.Press({60, 20, false, true});
    Mouse.Release({70, 40, false, true});
    EXPECT_TRUE(World.Prompts.Messages.empty());
}

}  // namespace tarnvik
