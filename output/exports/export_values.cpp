#include "output/exports/export_values.h"

#include <algorithm>

#include "core/text/number.h"

namespace tarnvik {

double Plain(float value) {
    return Val(CStr(value));
}

bool Is_Offset_Shot(const Project& project, int shot) {
    return project.ShotDistance(shot) < 0 || project.ShotDistance(shot) > project.LineLength;
}

double First_Break(const Project& project, int shot, int receiver) {
    return std::max(0.0, Plain(project.ShotTimes(shot, receiver)));
}

int Picks_Of_Shot(const Project& project, int shot) {
    int picks = 0;
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver)
        picks += project.ShotTimes(shot, receiver) > 0 ? 1 : 0;
    return picks;
}

double Receiver_Distance(const Project& project, int receiver) {
    return Plain(project.ReceiverData(ReceiverDistance, receiver));
}

double Receiver_Elevation(const Project& project, int receiver) {
    return Plain(project.ReceiverData(ReceiverElevation, receiver));
}

double Source_Elevation(const Project& project, int shot) {
    return project.ShotElevation(shot) - project.ShotDepth(shot);
}

std::vector<int> Shots_To_Export(const Project& project, bool with_offset_shots, ExportReport& report) {
    std::vector<int> shots;
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        const int picks = Picks_Of_Shot(project, shot);
        if (!with_offset_shots && Is_Offset_Shot(project, shot)) {
            report.LeftOut.push_back("Shot " + CStr(shot) + " with " + CStr(picks) +
                                     (picks == 1 ? " pick" : " picks") + ": it is an offset shot");
            continue;
        }
        shots.push_back(shot);
        report.Picks += picks;
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
            const float time = project.ShotTimes(shot, receiver);
            if (time < 0) {
                report.LeftOut.push_back("Shot " + CStr(shot) + ", receiver " + CStr(receiver) +
                                         ": the time of " + CStr(time) + " ms is below 0");
            }
        }
    }
    report.Shots = static_cast<int>(shots.size());
    report.Receivers = project.NbReceivers;
    return shots;
}

void Leave_Out_Without_Picks(const Project& project, const std::vector<int>& shots, ExportReport& report) {
    for (const int shot : shots) {
        if (Picks_Of_Shot(project, shot) > 0) continue;
        report.LeftOut.push_back("Shot " + CStr(shot) + ": it has no picks");
        --report.Shots;
    }
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        const bool picked = std::any_of(shots.begin(), shots.end(),
                                        [&](int shot) { return project.ShotTimes(shot, receiver) > 0; });
        if (picked) continue;
        report.LeftOut.push_back("Receiver " + CStr(receiver) + ": it has no picks");
        --report.Receivers;
    }
}

}  // namespace tarnvik
