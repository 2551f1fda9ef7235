#pragma once

#include "core/workspace.h"

namespace tarnvik::test {

/// A line of 180 m, one picture unit per metre: three shots at 0, 75 and 180 and four receivers at 30, 60, 90
/// and 150, everything at elevation 100 (20 picture units down: the top of the picture is 110).
inline Workspace Flat_Line() {
    Workspace workspace;
    Project& project = workspace.Project;
    project.NbShots = 3;
    project.NbReceivers = 4;
    project.LineLength = 180;
    Redimension_Project(project);
    const double shot_places[] = {0, 75, 180};
    for (int shot = 1; shot <= 3; ++shot) {
        project.ShotDistance(shot) = shot_places[shot - 1];
        project.ShotElevation(shot) = 100;
    }
    const float receiver_places[] = {30, 60, 90, 150};
    for (int receiver = 1; receiver <= 4; ++receiver) {
        project.ReceiverData(ReceiverDistance, receiver) = receiver_places[receiver - 1];
        project.ReceiverData(ReceiverElevation, receiver) = 100;
    }
    workspace.Mode.Display(DisplayMode::Profil);
    return workspace;
}

}  // namespace tarnvik::test
