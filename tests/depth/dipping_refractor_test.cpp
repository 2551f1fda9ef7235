#include "depth/dipping_refractor.h"

#include <gtest/gtest.h>

#include <numbers>

#include "core/fault.h"
#include "core/text/number.h"
#include "demo/layered_earth.h"
#include "depth/dip.h"
#include "depth/velocity_line.h"
#include "support/test_ports.h"

namespace tarnvik {

TEST(DippingRefractor, ShowsTheVelocitiesThatItsExactTimesHave) {
    const double dip = 4;
    const LayeredEarth earth({{600, 5, dip * std::numbers::pi / 180}, {2400, 0, 0}});
    const auto apparent = [&](double shot, double near, double far) {
        return 1000 * 20 /
               (earth.Head_Wave_Time(1, {shot, 0}, {far, 0}) - earth.Head_Wave_Time(1, {shot, 0}, {near, 0}));
    };
    const DippingVelocities found = Apparent_Velocities(600, 2400, dip);
    EXPECT_NEAR(found.Down, apparent(0, 60, 80), 1);
    EXPECT_NEAR(found.Up, apparent(120, 60, 40), 1);
}

TEST(DippingRefractor, DipAndApparentVelocitiesAreEachOthersInverse) {
    for (const double dip : {-9.0, 0.0, 3.0, 8.0}) {
        const DippingVelocities apparent = Apparent_Velocities(500, 2000, dip);
        // The larger one, up-dip, counts below 0.
        EXPECT_NEAR(Dip_Of_Refractor(500, apparent.Up, apparent.Down), -dip, 1);
    }
    EXPECT_EQ(Dip_Of_Refractor(500, 2000, 2000), 0);
    EXPECT_EQ(Dip_Of_Refractor(500, 2600, 1400), -5);
}

TEST(DippingRefractor, VelocitiesOfTheRulerAreComputedTypedAndShownAsACross) {
    Workspace work;
    test::TestPorts world;
    VelocityLine form(work, world.Ports);
    form.Load();
    EXPECT_TRUE(work.Curves.RulerShown);
    form.Velocity1 = "500 m";
    form.Velocity2 = "2000";
    form.Dip = "5";
    form.compute_dip();
    EXPECT_EQ(form.Velocity1, "500");
    EXPECT_EQ(form.DownDip, "1500");
    EXPECT_EQ(form.UpDip, "3037");
    EXPECT_EQ(work.Curves.CrossVelocity1, 1500);
    EXPECT_EQ(work.Curves.CrossVelocity2, 3037);
    EXPECT_TRUE(world.Prompts.Messages.empty());

    form.Velocity2 = "500";
    form.Dip = "";
    form.compute_dip();
    EXPECT_EQ(world.Prompts.Last_Text(), "Velocity 2 must be > Velocity 1");
    EXPECT_EQ(form.DownDip + " " + form.UpDip, "501 501");
    for (const char* nothing : {"0", "letters", "-5"}) {
        form.Velocity1 = nothing;
        form.Velocity2 = "";
        form.compute_dip();
        EXPECT_EQ(world.Prompts.Last_Text(), "Calculation not possible") << nothing;
        EXPECT_EQ(form.DownDip + form.UpDip, "");
        EXPECT_EQ(work.Curves.CrossVelocity1, 0) << "no cross of a former result";
    }
    form.Close();
    EXPECT_FALSE(work.Curves.RulerShown);
}

TEST(DippingRefractor, ADipThatCannotBeIsTold) {
    Workspace work;
    test::TestPorts world;
    DipComputation form(work, world.Ports);
    form.Velocity1 = "500";
    form.DownDip = "1400";
    form.UpDip = "2600";
    form.Calcul_dip();
    EXPECT_EQ(form.Dip, "-5");
    for (const char* text : {"", "500", "x", "400"}) {
        form.UpDip = text;
        form.Calcul_dip();
        EXPECT_EQ(form.Dip, "") << text;
        EXPECT_EQ(world.Prompts.Last_Text(), "Calculation not possible");
    }
}

}  // namespace tarnvik
