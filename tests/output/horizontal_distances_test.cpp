#include "output/horizontal_distances.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "output/line_for_profiles.h"
#include "support/test_ports.h"

namespace tarnvik::test {
namespace {

std::vector<float> Row(const Project& project, int row) {
    std::vector<float> values;
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver)
        values.push_back(project.ReceiverData(row, receiver));
    return values;
}

void Set_Row(Project& project, int row, const std::vector<float>& values) {
    for (std::size_t i = 0; i < values.size(); ++i)
        project.ReceiverData(row, static_cast<int>(i) + 1) = values[i];
}

TEST(HorizontalDistances, MeasureEachPairFromTheNewPlaceOfTheReceiverBefore) {
    Workspace workspace = Flat_Line();
    Project& project = workspace.Project;
    TestPorts ports;
    // 5 to 3 over the first shot's rise of 4; then from 3: dx 10, dz 6, leg 8, at 11; from 11: dx 2, dz 0.
    Set_Row(project, ReceiverDistance, {5, 13, 13, 30});
    Set_Row(project, ReceiverElevation, {104, 110, 110, 118});
    project.ShotDistance(2) = 12.5;
    project.ShotDistance(3) = 42;
    project.ShotElevation(3) = 113;
    Horizontal_Distances(workspace, ports.Ports);
    // the last: dx 17, dz 8, leg 15; its shot lies 12 on (30 to 42) and 5 below
    EXPECT_EQ(Row(project, ReceiverDistance), (std::vector<float>{3, 11, 13, 28}));
    EXPECT_NEAR(project.ShotDistanceZ(3), 28 + 10.908712, 1e-6);
    // 12.5 lies between 3 (new) and 13 (old), then again between 11 (new) and 13 (old)
    EXPECT_EQ(project.ShotDistanceZ(2), 12.5);
    EXPECT_TRUE(ports.Prompts.Messages.empty());
}

TEST(HorizontalDistances, PutAPairTooSteepForItsDistanceAtOnePlaceAndSaySo) {
    Workspace workspace = Flat_Line();
    Project& project = workspace.Project;
    TestPorts ports;
    project.ReceiverData(ReceiverElevation, 3) = 131;
    project.ReceiverData(ReceiverElevation, 4) = 131;
    Horizontal_Distances(workspace, ports.Ports);
    EXPECT_EQ(Row(project, ReceiverDistance), (std::vector<float>{30, 60, 60, 150}));
    ASSERT_EQ(ports.Prompts.Messages.size(), 1U);
    EXPECT_EQ(ports.Prompts.Last_Text(), "Check your Receiver location and elevation...");
    EXPECT_EQ(ports.Prompts.Messages[0].Title, workspace.AppTitle);
}

TEST(HorizontalDistances, TakeTheEndsOfTheLineByTheAbsoluteValue) {
    Workspace workspace = Flat_Line();
    Project& project = workspace.Project;
    TestPorts ports;
    project.ReceiverData(ReceiverDistance, 1) = 3;
    project.ShotElevation(1) = 105;  // 5 above a receiver 3 away: root of 16
    project.ShotElevation(3) = 150;  // 50 above a receiver 30 away: root of 1600
    Horizontal_Distances(workspace, ports.Ports);
    EXPECT_EQ(project.ReceiverData(ReceiverDistance, 1), 4);
    EXPECT_EQ(project.ShotDistanceZ(3), 190);
    EXPECT_TRUE(ports.Prompts.Messages.empty());
}

TEST(HorizontalDistances, PassOverReceiversAndShotsThatDoNotExist) {
    for (const auto& [shots, receivers] : {std::array{0, 0}, {0, 2}, {1, 1}, {2, 0}}) {
        Workspace workspace;
        TestPorts ports;
        workspace.Project.NbShots = static_cast<std::int16_t>(shots);
        workspace.Project.NbReceivers = static_cast<std::int16_t>(receivers);
        Redimension_Project(workspace.Project);
        EXPECT_NO_THROW(Horizontal_Distances(workspace, ports.Ports)) << shots << " " << receivers;
        Erase_Project(workspace.Project);
        EXPECT_NO_THROW(Horizontal_Distances(workspace, ports.Ports)) << shots << " " << receivers;
    }
}

}  // namespace
}  // namespace tarnvik::test
