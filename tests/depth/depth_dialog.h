#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "depth/fcalcul.h"
#include "support/test_ports.h"

namespace tarnvik {

/// The depth dialog over a line of 100: shots at 0, 50, 100 and an offset one at 130.
struct DepthDialog : testing::Test {
    DepthDialog() {
        Project& project = Work.Project;
        project.NbShots = 4;
        project.NbReceivers = 24;
        project.LineLength = 100;
        Redimension_Project(project);
        for (int shot = 1; shot <= 4; ++shot)
            project.ShotDistance(shot) = shot == 4 ? 130 : (shot - 1) * 50;
        project.ShotTimes(1, 1) = 5;
        Files.SaveProject = [this](Workspace&, tarnvik::Ports&) {
            ++Saves;
            return CanSave;
        };
        Form.emplace(Work, World.Ports, Files);
    }
    /// The same values on both sides.
    void Give_Layers(int shot, const std::vector<int>& velocities, const std::vector<double>& intercepts,
                     const std::vector<double>& distances) {
        Project& project = Work.Project;
        for (std::size_t i = 0; i < velocities.size(); ++i) {
            const int row = static_cast<int>(i) + 1;
            project.VelocityA(shot, row) = project.VelocityB(shot, row) =
                static_cast<std::int16_t>(velocities[i]);
            if (i >= intercepts.size()) continue;
            project.InterceptA(shot, row) = project.InterceptB(shot, row) = intercepts[i];
            project.CritDistA(shot, row) = project.CritDistB(shot, row) = distances[i];
        }
    }
    void Open_At(int shot) {
        Work.Velocity.CurrentShot = static_cast<std::int16_t>(shot);
        Form->Load();
        World.Prompts.Messages.clear();
    }
    void Scroll_To(int shot) {
        Form->HScroll1.Value = shot;
        Form->HScroll1_Changed();
    }

    Workspace Work;
    test::TestPorts World;
    FileRoutines Files;
    int Saves = 0;
    bool CanSave = true;
    std::optional<Fcalcul> Form;
};

}  // namespace tarnvik
