#include "traveltime/regression.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "core/fault.h"
#include "core/workspace.h"

namespace tarnvik {

namespace {

/// Twelve receivers at 0, 10 ... 110; one shot whose times are intercept + |distance| / velocity.
Project Line(double shot, double velocity, double intercept) {
    Project project;
    project.NbShots = 1;
    project.NbReceivers = 12;
    project.LineLength = 110;
    Redimension_Project(project);
    project.ShotDistance(1) = shot;
    for (int r = 1; r <= 12; ++r) {
        const double place = 10.0 * (r - 1);
        project.ReceiverData(ReceiverDistance, r) = static_cast<float>(place);
        project.ShotTimes(1, r) = static_cast<float>(intercept + 1000 * std::abs(place - shot) / velocity);
    }
    return project;
}

StretchVelocity Fitted(const Project& project, int first, int last, std::span<const int> eliminated = {}) {
    StretchVelocity result;
    EXPECT_TRUE(Least_Squares_Velocity(Stretch_Of_Shot(project, 1, first, last, eliminated), result));
    return result;
}

}  // namespace

TEST(Regression, ARisingStretchRoundsDownAndAFallingOneUp) {
    EXPECT_EQ(Fitted(Line(0, 1234.6, 5), 4, 12).Velocity, 1234);
    EXPECT_EQ(Fitted(Line(110, 1234.6, 5), 1, 9).Velocity, 1235);
}

TEST(Regression, TheInterceptIsReadAtTheShotOrAtTheNearEndOfTheLineForAnOffsetShot) {
    EXPECT_NEAR(Fitted(Line(0, 2000, 7), 5, 12).Intercept, 7, 1e-4);
    EXPECT_NEAR(Fitted(Line(60, 2000, 7), 9, 12).Intercept, 7, 1e-4);
    // 40 beyond either end: the line still has to run 40 / 2000 s to the true place of the shot.
    EXPECT_NEAR(Fitted(Line(-40, 2000, 7), 2, 12).Intercept, 27, 1e-4);
    EXPECT_NEAR(Fitted(Line(150, 2000, 7), 2, 12).Intercept, 27, 1e-4);
    EXPECT_EQ(Side_Of_Stretch(0, 0), 24);
    EXPECT_EQ(Side_Of_Stretch(0.1, 0), 1);
}

TEST(Regression, ReceiversWithoutPickAndEliminatedOnesTakeNoPart) {
    Project project = Line(0, 2000, 7);
    project.ShotTimes(1, 6) = 0;
    project.ShotTimes(1, 7) = -3;
    project.ShotTimes(1, 8) = 99;
    EXPECT_LT(Fitted(project, 4, 12).Correlation, 0.9);
    const std::array eliminated{8, 0, 0, 40};
    const StretchVelocity clean = Fitted(project, 4, 12, eliminated);
    EXPECT_NEAR(clean.Velocity, 2000, 1);
    EXPECT_NEAR(clean.Intercept, 7, 1e-3);
}

TEST(Regression, CorrelationIsCutAsTextAndKeepsItsFormerValueWhereNoneIsFound) {
    const struct {
        double Found;
        double Cut;
    } cases[] = {{0.97319, 0.973}, {1, 1}, {0.9999, 0.999}, {98.765, 98.7},
                 {-5.4321, -5.43}, {0, 0}, {1.5e-20, 1.5}};  // " 1.5E-20": only characters are counted
    for (const auto& c : cases)
        EXPECT_DOUBLE_EQ(Cut_Correlation(c.Found), c.Cut);

    Project project = Line(0, 2000, 7);
    for (int r = 1; r <= 12; ++r)
        project.ShotTimes(1, r) = 0;
    StretchVelocity former{1500, 3, 0.98765};
    EXPECT_FALSE(Least_Squares_Velocity(Stretch_Of_Shot(project, 1, 2, 9), former));
    EXPECT_EQ(former.Correlation, 0.987);
    EXPECT_EQ(former.Velocity, 1500);
    StretchVelocity direct{1500, 3, 0.98765};
    EXPECT_FALSE(Direct_Velocity(Stretch_Of_Shot(project, 1, 2, 9), direct));
    EXPECT_EQ(direct.Correlation, 0.98765);
}

TEST(Regression, AStretchThatFixesNoLineIsAFault) {
    Project one_pick = Line(0, 2000, 7);
    for (int r = 2; r <= 12; ++r)
        one_pick.ShotTimes(1, r) = 0;
    Project level = Line(0, 2000, 7);
    for (int r = 1; r <= 12; ++r)
        level.ShotTimes(1, r) = 16;
    Project no_length = Line(0, 2000, 7);
    no_length.LineLength = 0;
    Project vertical = Line(0, 2000, 7);
    for (int r = 1; r <= 12; ++r)
        vertical.ReceiverData(ReceiverDistance, r) = 40;
    for (const Project* project : {&one_pick, &level, &no_length, &vertical}) {
        StretchVelocity kept{1500, 3, 0.5};
        EXPECT_THROW(Least_Squares_Velocity(Stretch_Of_Shot(*project, 1, 1, 12), kept), Fault);
        EXPECT_EQ(kept.Velocity, 1500);
        EXPECT_EQ(kept.Intercept, 3);
    }
    StretchVelocity through;
    Project none = level;
    for (int r = 1; r <= 12; ++r)
        none.ShotTimes(1, r) = 0;
    EXPECT_THROW(Line_Through_Shot_Velocity(Stretch_Of_Shot(none, 1, 2, 5), through), Fault);
    EXPECT_THROW(Stretch_Of_Shot(none, 2, 1, 5), Fault);
    EXPECT_THROW(Stretch_Of_Shot(none, 1, 1, 13), Fault);
}

TEST(Regression, TheVelocityLengthIsTakenInSinglePrecision) {
    Project project = Line(0, 2000, 7);
    project.ReceiverData(ReceiverDistance, 1) = 0.1F;
    project.ReceiverData(ReceiverDistance, 2) = 33.3F;
    project.ShotTimes(1, 1) = 1;
    project.ShotTimes(1, 2) = 2;
    const double length = static_cast<float>((static_cast<double>(33.3F) - 0.1F) * 1000);
    const StretchVelocity line = Fitted(project, 1, 2);
    EXPECT_EQ(line.Velocity, std::floor(length / (line.T2 - line.T1)));
    EXPECT_NE(length, (static_cast<double>(33.3F) - 0.1F) * 1000);
}

TEST(Regression, DirectMethodTakesSlantDistanceOverTimeAtBothEnds) {
    Project project = Line(45, 1, 0);
    project.ShotDepth(1) = 2;
    project.ShotTimes(1, 4) = 30;  // at 30: 15.13 slant
    project.ShotTimes(1, 7) = 25;  // at 60: the same
    StretchVelocity result{0, 9, 0.5};
    ASSERT_TRUE(Direct_Velocity(Stretch_Of_Shot(project, 1, 4, 7), result));
    EXPECT_EQ(result.Velocity, std::floor((504 + 605) / 2.0));
    EXPECT_EQ(result.Intercept, 0);
    EXPECT_EQ(result.Correlation, 0.5);
    project.ShotTimes(1, 7) = 0;  // the second end borrows the time of the first
    ASSERT_TRUE(Direct_Velocity(Stretch_Of_Shot(project, 1, 4, 7), result));
    EXPECT_EQ(result.Velocity, 504);
    project.ShotTimes(1, 4) = 0;
    project.ShotTimes(1, 7) = 25;
    EXPECT_FALSE(Direct_Velocity(Stretch_Of_Shot(project, 1, 4, 7), result));
}

TEST(Regression, LineThroughTheShotHasItsOwnFigureForTheFit) {
    StretchVelocity result{0, 9, 0.5};
    Line_Through_Shot_Velocity(Stretch_Of_Shot(Line(-20, 400, 0), 1, 1, 4), result);
    EXPECT_NEAR(result.Velocity, 400, 1);
    EXPECT_EQ(result.Intercept, 0);
    EXPECT_NEAR(result.Correlation, 99, 0.01);
    // Residuals of -2 and +2 ms about a common slope: 99 less the mean of their squares, cut.
    Project bent = Line(0, 1000, 0);
    bent.ShotTimes(1, 2) = 10 + 2;
    bent.ShotTimes(1, 3) = 20 - 1;
    Line_Through_Shot_Velocity(Stretch_Of_Shot(bent, 1, 2, 3), result);
    EXPECT_NEAR(result.Velocity, 1000, 1);
    EXPECT_EQ(result.Correlation, 96.5);
}

}  // namespace tarnvik
