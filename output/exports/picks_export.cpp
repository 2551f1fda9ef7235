#include "output/exports/picks_export.h"

#include <map>
#include <utility>

#include "core/text/number.h"
#include "output/exports/export_values.h"

namespace tarnvik {

namespace {

constexpr const char* millimetres = "0.000";
constexpr const char* microseconds = "0.000000";
constexpr double ms_per_second = 1000;

/// Places in thousandths, so that equal ones compare equal, in the order along the line.
using Place = std::pair<std::int64_t, std::int64_t>;

Place Place_At(double x, double z) {
    return {static_cast<std::int64_t>(Rounded(x * 1000)), static_cast<std::int64_t>(Rounded(z * 1000))};
}

Place Shot_Place(const Project& project, int shot) {
    return Place_At(project.ShotDistance(shot), Source_Elevation(project, shot));
}

Place Receiver_Place(const Project& project, int receiver) {
    return Place_At(Receiver_Distance(project, receiver), Receiver_Elevation(project, receiver));
}

/// Each place once, with its number from 1. A place that nothing was shot at would be taken for a receiver by
/// whoever reads the file, so shots without picks have none.
std::map<Place, int> Numbered_Places(const Project& project, const std::vector<int>& shots) {
    std::map<Place, int> places;
    for (const int shot : shots)
        if (Picks_Of_Shot(project, shot) > 0) places[Shot_Place(project, shot)] = 0;
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver)
        places[Receiver_Place(project, receiver)] = 0;
    int number = 0;
    for (auto& [place, its_number] : places)
        its_number = ++number;
    return places;
}

}  // namespace

std::string Picks_Text(const Project& project, ExportReport& report) {
    const std::vector<int> shots = Shots_To_Export(project, true, report);
    Leave_Out_Without_Picks(project, shots, report);
    std::string text = "shot;receiver;shot_x;shot_z;receiver_x;receiver_z;time_ms\r\n";
    for (const int shot : shots) {
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
            const double time = First_Break(project, shot, receiver);
            if (time <= 0) continue;
            text += CStr(shot) + ";" + CStr(receiver) + ";" + CStr(project.ShotDistance(shot)) + ";" +
                    CStr(Source_Elevation(project, shot)) + ";" + CStr(Receiver_Distance(project, receiver)) +
                    ";" + CStr(Receiver_Elevation(project, receiver)) + ";" + CStr(time) + "\r\n";
        }
    }
    return text;
}

std::string Unified_Text(const Project& project, ExportReport& report) {
    const std::vector<int> shots = Shots_To_Export(project, true, report);
    const std::map<Place, int> places = Numbered_Places(project, shots);
    std::string text = CStr(static_cast<int>(places.size())) + " # shot/geophone points\r\n# x z\r\n";
    for (const auto& [place, number] : places) {
        text += Format(static_cast<double>(place.first) / 1000, millimetres) + " " +
                Format(static_cast<double>(place.second) / 1000, millimetres) + "\r\n";
    }
    text += CStr(report.Picks) + " # measurements\r\n# s g t\r\n";
    for (const int shot : shots) {
        if (Picks_Of_Shot(project, shot) == 0) {
            report.LeftOut.push_back("Shot " + CStr(shot) + ": it has no picks");
            --report.Shots;
            continue;
        }
        const std::string source = CStr(places.at(Shot_Place(project, shot)));
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
            const double time = First_Break(project, shot, receiver);
            if (time <= 0) continue;
            text += source + " " + CStr(places.at(Receiver_Place(project, receiver))) + " " +
                    Format(time / ms_per_second, microseconds) + "\r\n";
        }
    }
    return text;
}

ExportReport Export_Picks(Ports& ports, const ExportSource& source) {
    return Export_One_File(ports, source, "_picks.csv", Picks_Text);
}

ExportReport Export_Unified(Ports& ports, const ExportSource& source) {
    return Export_One_File(ports, source, ".sgt", Unified_Text);
}

}  // namespace tarnvik
