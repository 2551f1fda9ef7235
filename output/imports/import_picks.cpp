#include "output/imports/import_picks.h"

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "output/exports/export_files.h"
#include "output/imports/pick_files.h"

namespace tarnvik {

namespace {

/// The receivers that the export wrote beside the file.
std::optional<std::string> Receivers_Beside(const std::string& path) {
    for (const char* ending : {"2.asc", ".asc", ".vs"}) {
        const std::string beside = Derived_File(path, ending, "_XZ.txt");
        if (beside != path && File_Exists(beside)) return Read_File(beside);
    }
    return std::nullopt;
}

ImportedLine Read_Line(const Workspace& aside, Ports& ports, const std::string& path) {
    ImportedLine line;
    const auto bytes = Read_File(path);
    if (!bytes) {
        line.Refusal = "it cannot be read";
        return line;
    }
    switch (Kind_Of_Pick_File(*bytes)) {
        case PickFile::Plotrefa:
            return Read_Plotrefa(*bytes, Receivers_Beside(path));
        case PickFile::Unified:
            return Read_Unified(*bytes);
        case PickFile::Rayfract:
            break;
    }
    const std::string typed = ports.Ask.Input("Enter the distance between two stations", aside.AppTitle, "1");
    if (!(Val(typed) > 0)) {
        line.Refusal = "The distance between two stations must be above 0";
        return line;
    }
    return Read_Rayfract(*bytes, Val(typed));
}

}  // namespace

ImportReport Import_Picks(Workspace& aside, Ports& ports, const std::string& path) {
    ImportReport report = Project_Of_Line(Read_Line(aside, ports, path), aside.Project);
    if (!report.Refusal.empty()) ports.Ask.Say(path + ": " + report.Refusal, aside.AppTitle, Icon::Critical);
    return report;
}

std::string Import_Summary(const Project& project, const ImportReport& report) {
    const std::string text = CStr(report.Picks) + " picks, " + CStr(int{project.NbShots}) + " shots, " +
                             CStr(int{project.NbReceivers}) + " receivers. End shots are " +
                             CStr(report.FirstEndShot) + " and " + CStr(report.LastEndShot) +
                             "; added to all distances: " + CStr(project.DistanceShift) + ".";
    return text + Left_Out_Text(report.LeftOut);
}

}  // namespace tarnvik
