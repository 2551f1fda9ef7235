#include "output/exports/plotrefa_export.h"

#include <algorithm>

#include "core/text/number.h"
#include "output/exports/export_values.h"

namespace tarnvik {

namespace {

constexpr const char* real_number = "###0.000000";
constexpr const char* whole_number = "###0";

}  // namespace

std::string Plotrefa_Text(const Project& project, const std::vector<int>& shots,
                          const PlotrefaChoices& choices) {
    std::string text = "1977 6 3.000000\r\n";
    text += "0 " + Format(static_cast<double>(shots.size()), whole_number) + " " +
            Format(choices.Spacing, real_number) + "\r\n";
    for (const int shot : shots) {
        text += Format(project.ShotDistance(shot) + choices.AddedDistance, real_number) + " " +
                Format(Picks_Of_Shot(project, shot), whole_number) + " 0\r\n";
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
            const double time = First_Break(project, shot, receiver);
            if (time <= 0) continue;
            text += Format(Receiver_Distance(project, receiver) + choices.AddedDistance, real_number) + " " +
                    Format(time, real_number) + " 1\r\n";
        }
    }
    return text + "0 0\r\n0\r\n0 0\r\n";
}

std::string Plotrefa_Receivers(const Project& project, const PlotrefaChoices& choices) {
    std::string text;
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        text += Format(Receiver_Distance(project, receiver) + choices.AddedDistance, real_number) + " " +
                Format(Receiver_Elevation(project, receiver), real_number) + "\r\n";
    }
    return text;
}

double Usual_Spacing(const Project& project) {
    std::vector<double> spacings;
    for (int receiver = 2; receiver <= project.NbReceivers; ++receiver)
        spacings.push_back(Receiver_Distance(project, receiver) - Receiver_Distance(project, receiver - 1));
    if (spacings.empty()) return 1;
    const auto middle = spacings.begin() + static_cast<std::ptrdiff_t>(spacings.size() / 2);
    std::nth_element(spacings.begin(), middle, spacings.end());
    return *middle;
}

ExportReport Export_Plotrefa(Ports& ports, const ExportSource& source) {
    ExportReport report;
    const std::string& title = source.Title;
    ports.Ask.Say("This module records the ASCII necessary file (ASC file) for PLOTREFA program", title);
    Workspace* work = source.Choose();
    if (work == nullptr) return report;
    const Project& project = work->Project;
    PlotrefaChoices choices;
    if (!Ask_Spacing(ports, title, CStr(Usual_Spacing(project)), choices.Spacing)) return report;
    choices.OffsetShots = ports.Ask.Ask_Yes("Do you want to use offset shots", title);
    if (!Ask_Number(ports, title, "Enter the distance to add", "0", choices.AddedDistance)) return report;
    const std::vector<int> shots = Shots_To_Export(project, choices.OffsetShots, report);
    const std::string base = Export_Base(project, source.Folder);
    const std::string text = Plotrefa_Text(project, shots, choices);
    const FileRequest other_name{"Enter the new ASC file name", "ASC file |*.ASC|All files|*.*|", "", ""};
    std::vector<ExportFile> files = {{base + ".VS", text},
                                     {base + "_XZ.txt", Plotrefa_Receivers(project, choices)},
                                     {base + "2.ASC", text}};
    if (!Agree_On_Names(ports, title, files, other_name) || !Write_Export_Files(ports, title, files, report))
        return report;
    Edit_Export(ports, title, report.Files.back());
    Tell_Export(ports, title, "ASC files for export to Plotrefa have been written", report);
    return report;
}

}  // namespace tarnvik
