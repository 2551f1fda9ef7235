#include "output/exports/seisopt_export.h"

#include "core/end_shots.h"
#include "core/text/number.h"
#include "output/exports/export_values.h"
#include "output/horizontal_distances.h"

namespace tarnvik {

namespace {

constexpr const char* centimetres = "###0.00";
constexpr const char* microseconds = "###0.000000";
constexpr double ms_per_second = 1000;

/// Shots that the correction gave no place: it passes over those that stand at a receiver, or outside the
/// receivers.
void Tell_Shots_Without_Place(const Project& project, const std::vector<int>& shots, ExportReport& report) {
    int first = 1;
    int last = 1;
    First_Last_End_Shot(project, first, last);
    for (const int shot : shots) {
        if (shot == first || project.ShotDistanceZ(shot) != 0) continue;
        report.LeftOut.push_back("Shot " + CStr(shot) +
                                 ": it stands between no two receivers and has no real distance, 0 was "
                                 "written");
    }
}

}  // namespace

std::string SeisOpt_Sources(const Project& project, const std::vector<int>& shots,
                            const SeisOptChoices& choices) {
    std::string text;
    for (const int shot : shots) {
        const double distance =
            choices.RealDistances ? project.ShotDistanceZ(shot) : project.ShotDistance(shot);
        text += Format(distance + choices.AddedDistance, centimetres) + " " +
                Format(Source_Elevation(project, shot) + choices.AddedElevation, centimetres) + " " +
                CStr(Picks_Of_Shot(project, shot)) + "\r\n";
    }
    return text;
}

std::string SeisOpt_Receivers(const Project& project, const SeisOptChoices& choices) {
    std::string text;
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        text += Format(Receiver_Distance(project, receiver) + choices.AddedDistance, centimetres) + " " +
                Format(Receiver_Elevation(project, receiver) + choices.AddedElevation, centimetres) + "\r\n";
    }
    return text;
}

std::string SeisOpt_Observations(const Project& project, const std::vector<int>& shots) {
    std::string text;
    for (const int shot : shots) {
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
            const double time = First_Break(project, shot, receiver);
            if (time > 0) text += Format(time / ms_per_second, microseconds) + "\r\n";
        }
    }
    return text;
}

ExportReport Export_SeisOpt2D(Ports& ports, const ExportSource& source) {
    ExportReport report;
    const std::string& title = source.Title;
    ports.Ask.Say("This module records the 3 necessary files for SeisOpt2D program, without offset shots !",
                  title);
    Workspace* work = source.Choose();
    SeisOptChoices choices;
    if (work == nullptr ||
        !Ask_Number(ports, title, "Distance to add to ALL original distances", "0", choices.AddedDistance) ||
        !Ask_Number(ports, title, "Elevation to add to ALL original elevations", "0",
                    choices.AddedElevation)) {
        return report;
    }
    const Project& project = work->Project;
    choices.RealDistances =
        ports.Ask.Ask_Yes(" Do you want to compute real distances (if there a slopes) ?", title);
    if (choices.RealDistances) {
        const EditScope edit(*work, "Real distances");
        Horizontal_Distances(*work, ports);
    }
    const std::vector<int> shots = Shots_To_Export(project, false, report);
    if (choices.RealDistances) Tell_Shots_Without_Place(project, shots, report);
    const std::string base = Export_Base(project, source.Folder);
    const FileRequest other_name{"Enter the new file name", "All files|*.*|", "", ""};
    std::vector<ExportFile> files = {{base + "_src", SeisOpt_Sources(project, shots, choices)},
                                     {base + "_rec", SeisOpt_Receivers(project, choices)},
                                     {base + "_obs", SeisOpt_Observations(project, shots)}};
    if (!Agree_On_Names(ports, title, files, other_name) || !Write_Export_Files(ports, title, files, report))
        return report;
    for (const std::string& file : report.Files)
        Edit_Export(ports, title, file);
    // No blank before the number of shots: the text that users know.
    Tell_Export(ports, title,
                "Remember ! This spread has " + CStr(report.Picks) + " first break picks and" +
                    CStr(report.Shots) + " shots",
                report);
    return report;
}

}  // namespace tarnvik
