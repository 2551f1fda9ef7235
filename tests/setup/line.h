#pragma once

#include "core/workspace.h"
#include "setup/build_grid.h"
#include "setup/spread.h"

namespace tarnvik::test {

/// A line of evenly spaced receivers from 0 and shots from end to end, its grid filled, pick of shot s at
/// receiver r being 10 s + r ms.
inline void Make_Line(Workspace& workspace, int shots, int receivers, double spacing = 5) {
    Spread spread;
    spread.Spacing = spacing;
    spread.NbShots = shots;
    spread.NbReceivers = receivers;
    spread.LineLength = spacing * (receivers - 1);
    spread.ShotPlaces = Even_Shot_Places(spread.LineLength, shots, false);
    Set_Up_Project(workspace, spread);
    for (int shot = 1; shot <= shots; ++shot) {
        for (int receiver = 1; receiver <= receivers; ++receiver)
            workspace.Project.ShotTimes(shot, receiver) = static_cast<float>(10 * shot + receiver);
    }
    Fill_Grid(workspace);
}

inline void Set_Elevations(Workspace& workspace, std::initializer_list<float> elevations) {
    int receiver = 0;
    for (const float elevation : elevations)
        workspace.Project.ReceiverData(ReceiverElevation, ++receiver) = elevation;
    Fill_Grid(workspace);
}

}  // namespace tarnvik::test
