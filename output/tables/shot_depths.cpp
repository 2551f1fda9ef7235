#include "output/tables/shot_depths.h"

#include "core/files.h"
#include "core/text/number.h"
#include "output/exports/export_values.h"

namespace tarnvik {

namespace {

constexpr const char* centimetres = "###0.00";

// The numbers by which users know what went wrong with a file.
constexpr int error_of_access = 75;
constexpr int error_of_path = 76;

/// "Error N°" and what went wrong if the file could not be written.
std::string Words_Of_Error(const std::string& path) {
    const std::string folder = Folder_Of(path);
    return "Error N°" + CStr(folder.empty() || File_Exists(folder) ? error_of_access : error_of_path);
}

}  // namespace

std::string Shot_Depths_Text(const Project& project, ExportReport& report) {
    std::string text =
        "Intercept depth computation\r\n"
        "Receiver number, Receiver elevation, Receiver distances\r\n";
    report.Receivers = project.NbReceivers;
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        text += CStr(receiver) + ", " + Format(Receiver_Elevation(project, receiver), centimetres) + ", " +
                Format(Receiver_Distance(project, receiver), centimetres) + "\r\n";
    }
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        text += "Shot n° " + CStr(shot) + "\r\n";
        double depth = 0;
        for (int layer = 1; layer <= Project::MaxRefractors; ++layer) {
            const double thickness = project.ShotThickness(shot, layer);
            if (thickness <= 0) continue;
            depth += thickness;
            text += "Layer " + CStr(layer) + ", Depth " + Format(depth, centimetres) +
                    ", Bed rock elevation " + Format(project.ShotElevation(shot) - depth, centimetres) +
                    "\r\n";
        }
        if (depth > 0) {
            ++report.Shots;
        } else {
            report.LeftOut.push_back("Shot " + CStr(shot) + ": it has no depths");
        }
    }
    return text;
}

ExportReport Export_Shot_Depths(Ports& ports, const ExportSource& source) {
    ExportReport report;
    const std::string& title = source.Title;
    Workspace* work = source.Choose();
    if (work == nullptr) return report;
    std::string path = work->Project.CurrentFile;
    if (!source.Folder.empty()) path = source.Folder + Name_Of(path);
    std::vector<ExportFile> files = {
        {Up_To_First_Point(path, "sht"), Shot_Depths_Text(work->Project, report)}};
    if (!Agree_On_Names(ports, title, files, {"Enter the new file name", "sht|*.sht|", "", ""}) ||
        !Write_Export_Files(ports, title, files, report, Words_Of_Error(files.front().Path))) {
        return report;
    }
    Edit_Export(ports, title, report.Files.back());
    Tell_Export(ports, title, report.Files.back() + " has been written", report);
    return report;
}

}  // namespace tarnvik
