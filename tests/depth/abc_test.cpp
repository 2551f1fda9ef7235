// ABCGridF: values between the shots, the depths of two, three and four layers with their ways of rounding,
// and what refuses.

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "core/text/number.h"
#include "depth/abc_depths.h"
#include "depth/abc_grid_f.h"
#include "depth/abc_interpolation.h"
#include "depth/true_velocity.h"
#include "support/earth_line.h"
#include "support/test_ports.h"

namespace tarnvik {
namespace {

/// 10 receivers over 100, spacing 10: shots at 0, 30, 30, 100 and one offset; no interval has a whole step.
struct AbcLine : testing::Test {
    AbcLine() {
        Line.NbShots = 5;
        Line.NbReceivers = 10;
        Line.LineLength = 100;
        Redimension_Project(Line);
        const std::array<double, 5> places{0, 30, 30, 100, 150};
        for (int shot = 1; shot <= 5; ++shot) {
            Line.ShotDistance(shot) = places.at(static_cast<std::size_t>(shot) - 1);
            Give(shot, {500 + 10 * shot, 1500, 2500, 4000}, {10.0 + shot, 20, 30});
        }
        for (int receiver = 1; receiver <= 10; ++receiver)
            Line.ReceiverData(ReceiverIntercept, receiver) = 40;
        Form.Show_Profile = [this] { ++Profiles; };
    }
    void Give(int shot, const std::vector<int>& velocities, const std::vector<double>& intercepts) {
        for (std::size_t i = 0; i < velocities.size(); ++i)
            Line.VelocityA(shot, static_cast<int>(i) + 1) = static_cast<std::int16_t>(velocities[i]);
        for (std::size_t i = 0; i < intercepts.size(); ++i)
            Line.InterceptB(shot, static_cast<int>(i) + 1) = intercepts[i];
    }
    void Compute(const std::string& layers) {
        Form.Load();
        Form.Layers = layers;
        Form.CalculBt();
    }
    std::vector<double> Row(int row) const {
        std::vector<double> values;
        for (int receiver = 1; receiver <= Line.NbReceivers; ++receiver)
            values.push_back(std::round(1e4 * Line.ReceiverData(row, receiver)) / 1e4);
        return values;
    }

    Workspace Work;
    Project& Line = Work.Project;
    test::TestPorts World;
    ABCGridF Form{Work, World.Ports};
    int Profiles = 0;
};

TEST_F(AbcLine, values_go_along_the_receivers_from_shot_to_shot) {
    Compute("4");
    EXPECT_TRUE(Form.Computed);
    EXPECT_EQ(Profiles, 1);
    // From 510 to 520 in three steps, the first a half one; the interval without a length is stepped over;
    // from 530 to 540 in seven.
    EXPECT_EQ(Row(ReceiverV1), (std::vector<double>{511, 515, 518, 531, 532, 534, 535, 537, 538, 540}));
    // From 11 to 12 and from 13 to 14, whole steps, cut to a tenth; seven sevenths add up to hardly less than
    // one.
    EXPECT_EQ(Row(ReceiverIntercept1),
              (std::vector<double>{11.3, 11.6, 12, 13.1, 13.2, 13.4, 13.5, 13.7, 13.8, 13.9}));
    EXPECT_EQ(Row(ReceiverIntercept2), std::vector<double>(10, 20));
}

TEST_F(AbcLine, receivers_behind_the_last_interval_keep_what_they_hold) {
    Line.ShotDistance(4) = 84;  // five steps of ten: two receivers are left
    Line.ReceiverData(ReceiverV1, 9) = 777;
    Line.ReceiverData(ReceiverIntercept1, 9) = 3;
    Compute("3");
    EXPECT_EQ(Line.ReceiverData(ReceiverV1, 8), 540);
    EXPECT_EQ(Line.ReceiverData(ReceiverV1, 9), 777);
    EXPECT_EQ(Line.ReceiverData(ReceiverIntercept1, 9), 3);
    EXPECT_NEAR(Line.ReceiverData(ReceiverIntercept1, 10), 14, 1e-5) << "the last one gets the value reached";
    EXPECT_EQ(Line.ReceiverData(ReceiverV4, 5), 0) << "three layers have no fourth velocity";
}

TEST_F(AbcLine, faults_are_told_before_anything_changes) {
    const Project before = Line;
    const struct {
        std::string Layers;
        std::function<void()> Spoil;
        const char* Message;
    } cases[] = {
        {"2", [this] { Line.VelocityA(3, 2) = 100; }, "Velocity 2 must be greater as 1"},
        {"3", [this] { Line.VelocityA(3, 2) = 2600; }, "Velocity 3 must be greater as 2"},
        {"4", [this] { Line.VelocityA(3, 3) = 4001; }, "Velocity 4 must be greater as 3"},
        {"4", [this] { Line.InterceptB(3, 1) = 21; }, "Intercept 2 must be greater as 1"},
        {"5", [] {}, "Too many Layers..max: 4"},
        {"", [] {}, "Layer Number is missing..."},
        {"2", [this] { Line.LineLength = 0; }, "Impossible: distances of the shots or length of the line"},
        {"2", [this] { Work.Fields.Text23 = "1e300"; }, "Impossible value: 1e300"},
    };
    for (const auto& [layers, spoil, message] : cases) {
        Line = before;
        spoil();
        const Array2<float> held = Line.ReceiverData;
        World.Prompts.Messages.clear();
        Compute(layers);
        EXPECT_EQ(World.Prompts.Last_Text(), message);
        EXPECT_FALSE(Form.Computed);
        EXPECT_EQ(Line.ReceiverData, held);
    }
    EXPECT_EQ(Profiles, 0);
    Work.Fields.Text23.clear();
    // Equal values pass.
    Line = before;
    Line.VelocityA(3, 2) = 530;
    Compute("2");
    EXPECT_TRUE(Form.Computed);

    Line = {};
    test::Lay_Two_Layers(Work, std::vector<double>(16, 10.0));
    Compute("2");
    EXPECT_TRUE(World.Prompts.Last_Text().starts_with("Shot 16:"));
    EXPECT_FALSE(Form.Computed);
    Form.Load();
    Form.Layers = "2";
    Form.AbcOption = ABCGridF::grid_values;
    Form.CalculBt();
    EXPECT_TRUE(Form.Computed) << "typed values know no such limit";
}

TEST_F(AbcLine, values_typed_on_the_grid_count) {
    Compute("2");
    Form.Load();
    const auto row_of = [this](const std::string& caption) {
        for (int row = 1; row < Form.ABCGrid.Rows(); ++row) {
            if (Form.ABCGrid.Text(row, 0) == caption) return row;
        }
        return 0;
    };
    EXPECT_FALSE(Form.Type(row_of("V1"), 3, "600")) << "values between the shots are not for typing";
    EXPECT_EQ(World.Prompts.Last_Text(), "No change");
    Form.AbcOption = ABCGridF::grid_values;
    EXPECT_TRUE(Form.Type(row_of("V1"), 3, "600 m"));
    EXPECT_TRUE(Form.Type(row_of("V2"), 4, "letters"));
    EXPECT_FALSE(Form.Type(row_of("V2"), 5, "1e30"));
    EXPECT_FALSE(Form.Type(row_of("delay"), 3, "5"));
    Form.Layers = "2";
    Work.Fields.Text23 = "2";
    Form.CalculBt();
    EXPECT_EQ(Line.ReceiverData(ReceiverV1, 3), 600);
    EXPECT_EQ(Line.ReceiverData(ReceiverV2, 4), 0);
    EXPECT_EQ(Line.ReceiverData(ReceiverV2, 5), 1500);
    const double depth = 600 * 40 / (2 * std::sqrt(1 - 0.4 * 0.4));
    EXPECT_FLOAT_EQ(Line.ReceiverData(ReceiverDepth1, 3), static_cast<float>(depth));
    EXPECT_FLOAT_EQ(Line.ReceiverData(ReceiverRockDepth, 3), static_cast<float>(2 + depth / 1000));
    EXPECT_EQ(Line.ReceiverData(ReceiverRockDepth, 4), Line.ReceiverData(ReceiverRockDepth, 3))
        << "a layer above no velocity is as thick as below the receiver before";
    EXPECT_EQ(Work.Edits.Undo(Line), "");
    EXPECT_NE(Line.ReceiverData(ReceiverV1, 3), 600);
}

TEST(AbcDepths, round_in_their_three_ways) {
    AbcReceivers values;
    // Element 0 is unused; the third receiver has no delay, the fourth equal velocities.
    values.Delay = {0, 40, 41.3F, 0, 40};
    values.V1 = {0, 500, 510, 500, 1500};
    values.V2 = {0, 1500, 1510, 1500, 1500};
    values.V3 = {0, 2500, 2510, 2500, 2500};
    values.V4 = {0, 4000, 4010, 4000, 4000};
    values.IT1 = {0, 12.3F, 12.7F, 12, 12};
    values.IT2 = {0, 25.5F, 26.1F, 25, 25};
    const auto cosine = [](double a, double b) { return std::sqrt(1 - a * a / (b * b)); };
    const double time1 = values.IT1[1];
    const double time2 = values.IT2[1];
    const double z1 = 500 * time1 / (2 * cosine(500, 1500));

    const AbcDepths three = Depth_Below_Receivers(values, 3, 2);
    EXPECT_FLOAT_EQ(three.Depth1[1], static_cast<float>(2 + std::floor(z1 / 10) / 100));
    const double z2 = 1500 * (40 - time1) / (2 * cosine(1500, 2500));
    EXPECT_FLOAT_EQ(three.Depth2[1], static_cast<float>(std::floor(z1 + z2) / 1000)) << "to a thousandth";
    EXPECT_EQ(three.LargestRock, 0);
    EXPECT_FLOAT_EQ(three.Depth1[4], 2 + 9) << "straight down where the velocities are equal";
    EXPECT_EQ(three.Depth1[3], 0);

    const AbcDepths four = Depth_Below_Receivers(values, 4, 2);
    const double second = 1500 * (time2 - time1) / (2 * cosine(1500, 2500));
    const double third = 2500 * (40 - time2) / (2 * cosine(2500, 4000));
    EXPECT_EQ(four.Depth1[1], three.Depth1[1]);
    EXPECT_FLOAT_EQ(four.Depth2[1], static_cast<float>(std::floor((z1 + second) / 100) / 10));
    EXPECT_FLOAT_EQ(four.Depth3[1], static_cast<float>(std::floor((z1 + second + third) / 100) / 10));

    const AbcDepths two = Depth_Below_Receivers(values, 2, 2);
    EXPECT_FLOAT_EQ(two.Depth1[1], 1000 * (two.Rock[1] - 2)) << "not divided, as users know it";
    EXPECT_EQ(two.LargestRock, two.Rock[4]);
    EXPECT_EQ(two.Rock[3], 0) << "no half shot depth without a delay";
}

/// Three layers: the intercept of the first refractor is taken off whole, although the ray to the second one
/// crosses the first layer more steeply and is delayed by more. What is left over counts in the second layer.
TEST(AbcDepths, of_three_layers_are_approximate) {
    const std::array<double, 3> v{500, 1500, 4000};
    const std::array<double, 2> thick{5, 10};
    const auto cosine = [](double a, double b) { return std::sqrt(1 - a * a / (b * b)); };
    AbcReceivers values;
    const auto single = [](double value) { return AbcReceivers::Row{0, static_cast<float>(value)}; };
    const double intercept = 2 * thick[0] * cosine(v[0], v[1]) / v[0] * 1000;
    const double delay =
        2 * thick[0] * cosine(v[0], v[2]) / v[0] * 1000 + 2 * thick[1] * cosine(v[1], v[2]) / v[1] * 1000;
    values.V1 = single(v[0]);
    values.V2 = single(v[1]);
    values.V3 = single(v[2]);
    values.V4 = values.IT2 = single(0);
    values.IT1 = single(intercept);
    values.Delay = single(delay);
    const AbcDepths found = Depth_Below_Receivers(values, 3, 0);
    EXPECT_NEAR(found.Depth1[1], thick[0], 0.011);
    // The delay left to the second layer is too large by that of the first between the two critical angles.
    const double excess =
        v[1] * thick[0] / v[0] * (cosine(v[0], v[2]) - cosine(v[0], v[1])) / cosine(v[1], v[2]);
    EXPECT_NEAR(excess, 0.8, 0.05);
    EXPECT_NEAR(found.Depth2[1], thick[0] + thick[1] + excess, 0.01);
}

}  // namespace
}  // namespace tarnvik
