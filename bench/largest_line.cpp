#include "largest_line.h"

#include <cmath>

namespace tarnvik::bench {

Workspace Largest_Line() {
    constexpr int shots = Project::MaxShots;
    constexpr int receivers = 120;
    constexpr double spacing = 5;
    Workspace workspace;
    Project& project = workspace.Project;
    project.NbShots = shots;
    project.NbReceivers = receivers;
    project.LineLength = spacing * (receivers - 1);
    Redimension_Project(project);
    for (int receiver = 1; receiver <= receivers; ++receiver) {
        project.ReceiverData(ReceiverDistance, receiver) = static_cast<float>((receiver - 1) * spacing);
        project.ReceiverData(ReceiverElevation, receiver) = 100;
        project.ReceiverData(ReceiverRockDepth, receiver) = 20;
        project.ReceiverData(ReceiverDepth1, receiver) = 5;
        project.ReceiverData(ReceiverDepth2, receiver) = 12;
        project.GrmData(9, receiver) = 20;
    }
    for (int shot = 1; shot <= shots; ++shot) {
        project.ShotDistance(shot) = (shot - 1) * project.LineLength / (shots - 1);
        project.ShotElevation(shot) = 100;
        for (int layer = 1; layer <= Project::MaxRefractors; ++layer)
            project.ShotThickness(shot, layer) = 3 * layer;
        for (int layer = 1; layer <= Project::MaxLayers; ++layer) {
            project.VelocityA(shot, layer) = static_cast<std::int16_t>(600 * layer);
            project.VelocityB(shot, layer) = static_cast<std::int16_t>(600 * layer);
        }
        for (int receiver = 1; receiver <= receivers; ++receiver) {
            const double offset =
                std::abs(project.ReceiverData(ReceiverDistance, receiver) - project.ShotDistance(shot));
            project.ShotTimes(shot, receiver) = static_cast<float>(3 + offset / 3);
        }
    }
    Scale_Time_Grid(workspace);
    return workspace;
}

}  // namespace tarnvik::bench
