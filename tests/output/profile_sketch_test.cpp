#include "output/profile_sketch.h"

#include <gtest/gtest.h>

#include "output/line_for_profiles.h"
#include "support/test_ports.h"

namespace tarnvik::test {
namespace {

TEST(ProfileSketch, ShowsTheWholeLineWithAMarginOf10) {
    Workspace workspace = Flat_Line();
    workspace.Project.ShotDistance(1) = -40;
    workspace.Project.ReceiverData(ReceiverElevation, 3) = 130;
    TestPorts ports;
    Dessine_profile(workspace, ports.Ports);
    const RecordingPicture& sketch = ports.Display.Pictures[Canvas::Sketch];
    EXPECT_EQ(sketch.Current_Frame(), (Frame{-50, 140, 190, 90, 960, 500}));
    EXPECT_EQ(sketch.Texts(), (std::vector<std::string>{"1T", "2T", "3T"}));
    EXPECT_EQ(sketch.Of(Drawn::Verb::Line, colours::Lime).size(), 3U);
    EXPECT_TRUE(sketch.Has_Line(60, 100, 90, 130, colours::Lime));
    const auto marks = sketch.Of(Drawn::Verb::FilledBox, colours::White);
    ASSERT_EQ(marks.size(), 3U);
    EXPECT_DOUBLE_EQ((marks[0].X1 + marks[0].X2) / 2, -40);
}

TEST(ProfileSketch, IsEmptyWithoutAProject) {
    Workspace workspace;
    TestPorts ports;
    Dessine_profile(workspace, ports.Ports);
    EXPECT_TRUE(ports.Display.Pictures[Canvas::Sketch].List.empty());
}

}  // namespace
}  // namespace tarnvik::test
