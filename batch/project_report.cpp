#include "batch/project_report.h"

#include <array>
#include <charconv>
#include <iomanip>
#include <ostream>

#include "core/text/number.h"

namespace tarnvik {

namespace {

using Json = nlohmann::ordered_json;

Json Number(float value) {
    return Json_Number(value);
}

template <class T>
Json Number(T value) {
    return value;
}

template <class T>
Json List(const Array1<T>& values) {
    Json list = Json::array();
    for (int i = 1; i <= values.Last(); ++i)
        list.push_back(Number(values(i)));
    return list;
}

template <class T>
Json Table(const Array2<T>& values, int last_row) {
    Json table = Json::array();
    for (int row = 1; row <= std::min(last_row, values.Last_Row()); ++row) {
        Json list = Json::array();
        for (int column = 1; column <= values.Last_Column(); ++column)
            list.push_back(Number(values(row, column)));
        table.push_back(std::move(list));
    }
    return table;
}

template <class T>
Json Table(const Array2<T>& values) {
    return Table(values, values.Last_Row());
}

constexpr int filed_grm_rows = 9;

}  // namespace

double Json_Number(float value) {
    constexpr int digits = 9;
    std::array<char, 32> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, digits);
    double nine_digits = value;
    std::from_chars(text.data(), end.ptr, nine_digits);
    return nine_digits;
}

Json Project_Json(const Workspace& workspace) {
    const Project& project = workspace.Project;
    Json json;
    json["NbShots"] = project.NbShots;
    json["NbReceivers"] = project.NbReceivers;
    json["LineLength"] = project.LineLength;
    json["TotalTime"] = project.TotalTime;
    json["DistanceShift"] = project.DistanceShift;
    json["SuFile"] = project.SuFile;
    json["ShotTimes"] = Table(project.ShotTimes);
    json["ReceiverData"] = Table(project.ReceiverData, Project::FiledReceiverRows);
    json["ShotElevation"] = List(project.ShotElevation);
    json["ShotDistance"] = List(project.ShotDistance);
    json["ShotDepth"] = List(project.ShotDepth);
    json["VelocityA"] = Table(project.VelocityA);
    json["VelocityB"] = Table(project.VelocityB);
    json["InterceptA"] = Table(project.InterceptA);
    json["InterceptB"] = Table(project.InterceptB);
    json["CritDistA"] = Table(project.CritDistA);
    json["CritDistB"] = Table(project.CritDistB);
    json["ShotThickness"] = Table(project.ShotThickness);
    json["GrmData"] = Table(project.GrmData, filed_grm_rows);
    Json remarks = Json::array();
    for (int row = Project::RemarkFirstRow; row <= Project::RemarkLastRow; ++row) {
        Json remark = Json::array();
        for (int column = 0; column < project.remark_grid.Columns(); ++column) {
            remark.push_back(project.remark_grid.Text(row, column));
        }
        remarks.push_back(std::move(remark));
    }
    json["remark_grid"] = std::move(remarks);
    json["TimeFactor"] = workspace.Curves.TimeFactor;
    json["MaxTime"] = Number(static_cast<float>(workspace.Curves.MaxTime));
    json["NoOffsetShots"] = workspace.NoOffsetShots;
    return json;
}

void Print_Project(std::ostream& out, const Workspace& workspace) {
    const Project& project = workspace.Project;
    const std::string unit = workspace.Settings.Metric() ? " m" : " ft";
    out << project.CurrentFile << "\n"
        << "Shots: " << project.NbShots << ", receivers: " << project.NbReceivers
        << ", line length: " << CStr(project.LineLength) << unit << "\n"
        << "Total time: " << CStr(project.TotalTime) << " ms, distance shift: " << CStr(project.DistanceShift)
        << unit << "\n"
        << "Field records: " << (project.SuFile.empty() ? "none" : project.SuFile) << "\n"
        << "Latest pick: " << CStr(static_cast<float>(workspace.Curves.MaxTime)) << " ms\n";
    for (int shot = 1; shot <= project.ShotDistance.Last(); ++shot) {
        out << "\nShot " << shot << " at " << CStr(project.ShotDistance(shot)) << unit << ", elevation "
            << CStr(project.ShotElevation(shot)) << ", depth " << CStr(project.ShotDepth(shot)) << "\n";
        out << "  layer   VelocityA   VelocityB  InterceptA  InterceptB   CritDistA   CritDistB   "
               "thickness\n";
        for (int layer = 1; layer <= Project::MaxLayers; ++layer) {
            if (project.VelocityA(shot, layer) == 0 && project.VelocityB(shot, layer) == 0) continue;
            out << std::setw(7) << layer << std::setw(12) << project.VelocityA(shot, layer) << std::setw(12)
                << project.VelocityB(shot, layer);
            // Intercept and critical distance k belong to the top of layer k + 1, thickness k to layer k.
            for (const auto* values :
                 {&project.InterceptA, &project.InterceptB, &project.CritDistA, &project.CritDistB}) {
                out << std::setw(12) << (layer > 1 ? Format((*values)(shot, layer - 1), "0.0") : "");
            }
            const bool has_thickness = layer <= Project::MaxRefractors;
            out << std::setw(12) << (has_thickness ? Format(project.ShotThickness(shot, layer), "0.00") : "")
                << "\n";
        }
        out << "  picks, ms:";
        for (int receiver = 1; receiver <= project.ShotTimes.Last_Column(); ++receiver) {
            out << (receiver % 12 == 1 ? "\n   " : "") << std::setw(8)
                << Format(project.ShotTimes(shot, receiver), "0.00");
        }
        out << "\n";
    }
}

}  // namespace tarnvik
