#pragma once

#include <array>
#include <vector>

#include "core/workspace.h"
#include "demo/layered_earth.h"

namespace tarnvik::test {

/// Puts a line over a layered earth into the workspace: receivers from distance 0 on at equal spacing, the
/// shots where told, first arrivals as exact as the project holds them (single precision).
inline void Lay_Line(Workspace& workspace, const LayeredEarth& earth, int receivers, double spacing,
                     const std::vector<double>& shots, double shot_depth = 0) {
    Project& project = workspace.Project;
    project.NbShots = static_cast<std::int16_t>(shots.size());
    project.NbReceivers = static_cast<std::int16_t>(receivers);
    project.LineLength = (receivers - 1) * spacing;
    Redimension_Project(project);
    for (int receiver = 1; receiver <= receivers; ++receiver)
        project.ReceiverData(ReceiverDistance, receiver) = static_cast<float>((receiver - 1) * spacing);
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        const double place = shots[static_cast<std::size_t>(shot) - 1];
        project.ShotDistance(shot) = place;
        project.ShotDepth(shot) = shot_depth;
        for (int receiver = 1; receiver <= receivers; ++receiver) {
            project.ShotTimes(shot, receiver) =
                static_cast<float>(earth.First_Arrival({place, shot_depth}, {(receiver - 1) * spacing, 0}));
        }
    }
    Scale_Time_Grid(workspace);
}

/// 24 receivers at 0, 5 ... 115 over 6 m of 500 on 2000: an intercept of 12 sqrt(1 - 1/16) / 500 s = 23.2 ms.
inline void Lay_Two_Layers(Workspace& workspace, const std::vector<double>& shots) {
    const std::array velocities{500.0, 2000.0};
    const std::array thicknesses{6.0};
    Lay_Line(workspace, LayeredEarth::Horizontal(velocities, thicknesses), 24, 5, shots);
}

/// Receivers of one branch of a shot's curve, 0 to -1 when it has none.
struct Branch {
    int First = 0;
    int Last = -1;
    int Receivers() const { return Last - First + 1; }
};

/// The receivers below (`side` 'A') or above the shot where the wave along the top of `layer` comes first;
/// for layer 1 the direct wave.
inline Branch Branch_Of(const Project& project, const LayeredEarth& earth, int shot, int layer, char side) {
    Branch found;
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        const double place = project.ReceiverData(ReceiverDistance, receiver);
        const double shot_place = project.ShotDistance(shot);
        int branch = 0;
        earth.First_Arrival({shot_place, project.ShotDepth(shot)}, {place, 0}, &branch);
        if (branch != layer || place == shot_place || (place < shot_place) != (side == 'A')) continue;
        if (found.First == 0) found.First = receiver;
        found.Last = receiver;
    }
    return found;
}

}  // namespace tarnvik::test
