#include "output/exports/rayfract_export.h"

#include <algorithm>

#include "core/files.h"
#include "core/text/number.h"
#include "output/exports/export_values.h"

namespace tarnvik {

namespace {

constexpr double ms_per_second = 1000;
constexpr const char* station = "###0.0";
constexpr const char* elevation = "###0.00";

/// Asks for the stations of the offset shots, their places on the line's own scale offered. False when a box
/// was cancelled.
bool Ask_Offset_Stations(Ports& ports, const std::string& title, const Project& project,
                         const std::vector<int>& shots, RayfractChoices& choices) {
    for (const int shot : shots) {
        if (!Is_Offset_Shot(project, shot)) continue;
        const double distance = project.ShotDistance(shot);
        const std::string offered = CStr(Val(Format(Station_Of_Place(project, choices, distance), station)));
        if (!Ask_Number(ports, title,
                        "Enter the shot " + CStr(shot) + " station number, distance=" + CStr(distance),
                        offered, choices.OffsetStations[shot])) {
            return false;
        }
    }
    return true;
}

/// The text that explains the conversion, where it came with the program.
void Show_Help(Ports& ports, const std::string& title) {
    const std::string path = ports.Launch.Program_Folder() + "/RayConvert.txt";
    if (File_Exists(path)) Edit_Export(ports, title, path);
}

}  // namespace

double Station_Of_Receiver(const RayfractChoices& choices, int receiver) {
    return choices.First + (receiver - 1) * choices.Spacing;
}

double Station_Of_Place(const Project& project, const RayfractChoices& choices, double distance) {
    const int receivers = project.NbReceivers;
    int right = 2;  // the receiver behind the place, with one before it
    while (right < receivers && Receiver_Distance(project, right) < distance)
        ++right;
    if (right > receivers) return choices.First;
    const double from = Receiver_Distance(project, right - 1);
    const double length = Receiver_Distance(project, right) - from;
    const double share = length != 0 ? (distance - from) / length : 0;
    return Station_Of_Receiver(choices, right - 1) + share * choices.Spacing;
}

std::string Rayfract_Text(const Project& project, const std::vector<int>& shots,
                          const RayfractChoices& choices) {
    // The commas are part of the headings that the other program expects.
    std::string text =
        "Shot Nr.;Shot Station #;Receiver Station #;First Break (seconds),Receiver elevation #, shot "
        "elevation #\r\n";
    for (const int shot : shots) {
        const auto given = choices.OffsetStations.find(shot);
        const double shot_station = given != choices.OffsetStations.end()
                                        ? given->second
                                        : Station_Of_Place(project, choices, project.ShotDistance(shot));
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
            const double time = First_Break(project, shot, receiver);
            if (time <= 0) continue;
            text += Format(shot, "####0") + ";" + Format(shot_station, station) + ";" +
                    Format(Station_Of_Receiver(choices, receiver), station) + ";" +
                    Format(time / ms_per_second, "###0.0000") + ";" +
                    Format(Receiver_Elevation(project, receiver), elevation) + ";" +
                    Format(project.ShotElevation(shot), elevation) + "\r\n";
        }
    }
    return text;
}

ExportReport Export_Rayfract(Ports& ports, const ExportSource& source) {
    ExportReport report;
    const std::string& title = source.Title;
    if (!ports.Ask.Ask_Yes("Run RAYFRACT module ?", title)) return report;
    Show_Help(ports, title);
    Workspace* work = source.Choose();
    if (work == nullptr) return report;
    const Project& project = work->Project;
    RayfractChoices choices;
    if (!Ask_Spacing(ports, title, "0.5", choices.Spacing)) return report;
    choices.OffsetShots = ports.Ask.Ask_Yes("Do you want to use offset shots", title);
    if (!Ask_Number(ports, title,
                    "Enter the station spacing between end shot n°1 (Tarnvik distance =0) and geophone n°1 "
                    "(station 1)",
                    "1", choices.First)) {
        return report;
    }
    const std::vector<int> shots = Shots_To_Export(project, choices.OffsetShots, report);
    if (!Ask_Offset_Stations(ports, title, project, shots, choices)) return report;
    Leave_Out_Without_Picks(project, shots, report);
    const FileRequest other_name{"Enter the new ASC file name", "ASC file |*.ASC|All files|*.*|", "", ""};
    std::vector<ExportFile> files = {
        {Export_Base(project, source.Folder) + ".asc", Rayfract_Text(project, shots, choices)}};
    if (!Agree_On_Names(ports, title, files, other_name) || !Write_Export_Files(ports, title, files, report))
        return report;
    Edit_Export(ports, title, report.Files.back());
    Tell_Export(ports, title, "ASC files for export to Rayfract have been written", report);
    return report;
}

}  // namespace tarnvik
