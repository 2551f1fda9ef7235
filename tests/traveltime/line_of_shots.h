#pragma once

#include "core/workspace.h"
#include "support/test_ports.h"
#include "traveltime/curves.h"

namespace tarnvik::test {

/// A line with receivers every `spacing` from 0 and shots spread evenly over it, no picks.
struct LineOfShots : TestPorts {
    LineOfShots(int shots, int receivers, double spacing = 5) {
        tarnvik::Project& project = Work.Project;
        project.CurrentFile = "/nowhere/line.tv5";
        project.NbShots = static_cast<std::int16_t>(shots);
        project.NbReceivers = static_cast<std::int16_t>(receivers);
        project.LineLength = (receivers - 1) * spacing;
        Redimension_Project(project);
        for (int r = 1; r <= receivers; ++r)
            project.ReceiverData(ReceiverDistance, r) = static_cast<float>((r - 1) * spacing);
        for (int s = 1; s <= shots; ++s)
            project.ShotDistance(s) = shots > 1 ? (s - 1) * project.LineLength / (shots - 1) : 0;
    }

    /// Times of one shot, from receiver 1 on; 0 is no pick.
    void Pick(int shot, std::initializer_list<float> times) {
        int r = 0;
        for (const float time : times)
            Work.Project.ShotTimes(shot, ++r) = time;
    }
    void Draw() { Show_Curves(Work, Ports); }
    RecordingPicture& Of(Canvas canvas) { return Display.Pictures[canvas]; }
    RecordingPicture& Dromo() { return Of(Canvas::Dromo); }
    /// One curve alone on an empty frame, in `colour`.
    void Draw_Shot(int shot, Colour colour, double shift = 0) {
        Dessine_Cadre(Work, Ports);
        Dromo().List.clear();
        Dessine_Tir(Work, Ports, shot, colour, shift, Work.Curves.TimeFactor, Work.Project.LineLength);
    }

    Workspace Work;
};

}  // namespace tarnvik::test
