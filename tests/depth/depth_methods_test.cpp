#include <gtest/gtest.h>

#include <cmath>

#include "core/fault.h"
#include "depth/critical_distance_depth.h"
#include "depth/intercept_depth.h"
#include "depth/refractor_means.h"
#include "depth/true_velocity.h"
#include "support/test_ports.h"

namespace tarnvik {

TEST(TrueVelocity, DeeperAnglesTakeTrueUpperAndApparentLowerVelocities) {
    ApparentVelocities apparent{400, {0, 0, 900, 2000, 4000, 6000}, {0, 0, 1000, 2400, 5000, 7000}};
    DepthWork::PerLayer v{};
    DepthWork::LayerMatrix angle{};
    True_Velocities(5, apparent, v, angle);
    EXPECT_GT(v[3], 2000);
    EXPECT_LT(v[3], 2400);
    EXPECT_NEAR(angle[5][3], 0.5 * (std::asin(v[3] / 6000) + std::asin(v[3] / 7000)), 1e-14);
    EXPECT_NEAR(angle[4][2], 0.5 * (std::asin(v[2] / 4000) + std::asin(v[2] / 5000)), 1e-14);
    apparent.B[3] = 950;  // in order by itself on side A, but the true V2 has no angle in it
    EXPECT_EQ(Layer_Out_Of_Order(5, apparent), 3);
}

TEST(TrueVelocity, TheOrderIsLookedAtSideAFirstAndLayerTwoOfSideBNever) {
    const struct {
        ApparentVelocities Apparent;
        int Layers;
        int Wrong;
    } cases[] = {
        {{400, {0, 0, 399, 300, 200, 100}, {}}, 5, 2},
        {{400, {0, 0, 400, 300, 200, 100}, {0, 0, 1, 1, 1, 1}}, 5, 3},
        {{400, {0, 0, 400, 300, 200, 100}, {0, 0, 1, 1, 1, 1}}, 2, 0},
        {{400, {0, 0, 500, 600, 550, 900}, {0, 0, 500, 400, 300, 200}}, 5, 4},
        {{400, {0, 0, 500, 600, 700, 650}, {0, 0, 500, 400, 300, 200}}, 5, 5},
        {{400, {0, 0, 500, 600, 700, 650}, {0, 0, 500, 600, 550, 200}}, 4, 4},
        {{400, {0, 0, 500, 600, 600, 600}, {0, 0, 300, 600, 600, 600}}, 5, 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Layer_Out_Of_Order(c.Layers, c.Apparent), c.Wrong);
}

TEST(TrueVelocity, TheSharedRoutineReportsByMode) {
    Workspace work;
    test::TestPorts world;
    work.Project.NbShots = 1;
    work.Project.NbReceivers = 2;
    Redimension_Project(work.Project);
    const ApparentVelocities layer_two{400, {0, 0, 300}, {0, 0, 300}};
    const ApparentVelocities layer_three{400, {0, 0, 900, 800}, {0, 0, 900, 800}};
    work.Mode.Display(DisplayMode::Calcul);
    EXPECT_FALSE(Vitesse_Vraie_Commune(work, world.Ports, 1, 0, layer_two));
    EXPECT_EQ(world.Prompts.Last_Text(), "Layer number missing");
    EXPECT_FALSE(Vitesse_Vraie_Commune(work, world.Ports, 1, 6, layer_two));
    EXPECT_EQ(world.Prompts.Last_Text(), "Too many Layers..");
    EXPECT_FALSE(Vitesse_Vraie_Commune(work, world.Ports, 1, 2, layer_two));
    EXPECT_EQ(world.Prompts.Last_Text(), "Layer 2 Velocity must be  greater ...");
    EXPECT_FALSE(work.Depth.VelocityFault);
    work.Mode.Display(DisplayMode::Quick);
    world.Prompts.Messages.clear();
    EXPECT_FALSE(Vitesse_Vraie_Commune(work, world.Ports, 1, 3, layer_three));
    EXPECT_EQ(work.Velocity.QuickStatus, "Layer 3 Velocity must be  greater ...");
    EXPECT_TRUE(work.Depth.VelocityFault);
    EXPECT_TRUE(world.Prompts.Messages.empty());

    work.Mode.Display(DisplayMode::Abc);  // whatever is handed in, the project counts
    work.Project.VelocityA(1, 1) = 301;
    work.Project.VelocityB(1, 1) = 300;
    work.Project.VelocityA(1, 2) = work.Project.VelocityB(1, 2) = 1200;
    EXPECT_TRUE(Vitesse_Vraie_Commune(work, world.Ports, 1, 2, layer_two));
    EXPECT_EQ(work.Depth.TrueV[1], 300.5);
    EXPECT_NEAR(work.Depth.TrueV[2], 1200, 1e-9);
}

TEST(DepthMethods, HalfTheShotDepthIsAddedToLayerOneAndKeptOutOfTheDelays) {
    InterceptTimes input{3, {0, 500, 1500, 4000}, {}, {0, 0.020, 0.030}, 0};
    input.Angle[2][1] = std::asin(1.0 / 3);
    input.Angle[3][1] = std::asin(0.125);
    input.Angle[3][2] = std::asin(0.375);
    DepthWork::PerRefractor plain{};
    DepthWork::PerRefractor deep{};
    DepthWork::LayerMatrix delay{};
    Intercept_Thicknesses(input, plain, delay);
    const double delay_of_one = delay[3][1];
    EXPECT_NEAR(delay_of_one, 2 * plain[1] / 500 * std::cos(input.Angle[3][1]), 1e-15);
    input.HalfShotDepth = 1;
    Intercept_Thicknesses(input, deep, delay);
    EXPECT_DOUBLE_EQ(deep[1], plain[1] + 1);
    EXPECT_NEAR(deep[2], plain[2], 1e-12);
    EXPECT_NEAR(delay[3][1], delay_of_one, 1e-15);

    // By critical distances the deeper layers reckon with the sum.
    const DepthWork::PerRefractor distance{0, 20, 60};
    Critical_Distance_Thicknesses(3, input.V, distance, 0, plain);
    Critical_Distance_Thicknesses(3, input.V, distance, 1, deep);
    EXPECT_DOUBLE_EQ(deep[1], plain[1] + 1);
    const double r13 = std::sqrt(4000.0 * 4000 - 500.0 * 500);
    const double r12 = std::sqrt(1500.0 * 1500 - 500.0 * 500);
    const double r23 = std::sqrt(4000.0 * 4000 - 1500.0 * 1500);
    EXPECT_NEAR(deep[2] - plain[2], -(1500 * r13 - 4000 * r12) / (500 * r23), 1e-9);
    EXPECT_THROW(Critical_Distance_Thicknesses(3, {0, 500, 1500, 1400}, distance, 0, plain), Fault);
    EXPECT_THROW(Critical_Distance_Thicknesses(2, {}, distance, 0, plain), Fault);
}

TEST(DepthMethods, MeansTakeBothSidesOrTheOneThereIsAndFloorToATenth) {
    Project project;
    project.NbShots = 1;
    project.NbReceivers = 1;
    Redimension_Project(project);
    const struct {
        double A, B, Mean;
    } cases[] = {{12.3, 12.4, 12.3}, {0, 7.19, 7.1}, {7.19, 0, 7.1}, {0, 0, 4.5}, {-2, 8, 4.5}};
    for (const auto& c : cases) {
        project.InterceptA(1, 3) = project.CritDistA(1, 4) = c.A;
        project.InterceptB(1, 3) = project.CritDistB(1, 4) = c.B;
        double intercept = 4.56;
        double critical = 4.56;
        Moyenne_Intercept(project, 1, 3, intercept);
        Moyenne_Critique(project, 1, 4, critical);
        EXPECT_DOUBLE_EQ(intercept, c.Mean);
        EXPECT_DOUBLE_EQ(critical, c.Mean);
    }
    double mean = 1;
    EXPECT_THROW(Moyenne_Intercept(project, 2, 1, mean), Fault);
}

}  // namespace tarnvik
