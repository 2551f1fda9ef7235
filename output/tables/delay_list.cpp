#include "output/tables/delay_list.h"

#include "core/files.h"
#include "core/text/number.h"
#include "depth/delay_times.h"

namespace tarnvik {

namespace {

/// Path of the project without whatever ending it has, in the folder of the export.
std::string Without_Ending(const Project& project, const std::string& folder) {
    const std::string& path = project.CurrentFile;
    std::string name = Name_Of(path);
    if (const auto point = name.rfind('.'); point != std::string::npos) name.erase(point);
    return (folder.empty() ? Folder_Of(path) : folder) + name;
}

}  // namespace

ExportReport Export_Delay_List(Ports& ports, const ExportSource& source) {
    ExportReport report;
    Workspace* work = source.Choose();
    if (work == nullptr) return report;
    const Project& project = work->Project;
    if (!Has_Delays(project)) {
        ports.Ask.Say("No delay available !!!", source.Title);
        return report;
    }
    std::string lines;
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver)
        lines += Print_Number(project.ReceiverData(ReceiverIntercept, receiver)) + "\r\n";
    std::vector<ExportFile> files = {{Without_Ending(project, source.Folder) + "_Delay.txt", lines}};
    if (!Agree_On_Names(ports, source.Title, files, {"Enter the new file name", "*.txt|*.txt|", "", ""}) ||
        !Write_Export_Files(ports, source.Title, files, report)) {
        return report;
    }
    report.Receivers = project.NbReceivers;
    report.Done = true;
    ports.Ask.Say("delay recorded in " + report.Files.back(), source.Title);
    return report;
}

}  // namespace tarnvik
