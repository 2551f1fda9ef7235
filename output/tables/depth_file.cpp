#include "output/tables/depth_file.h"

#include <array>

#include "core/text/number.h"
#include "output/exports/export_values.h"
#include "output/tables/delay_result.h"

namespace tarnvik {

namespace {

constexpr double hundredths = 100;

struct DepthField {
    ReceiverRow Row;
    const char* Name;
};

constexpr std::array depth_fields = {
    DepthField{ReceiverDistance, "distance"},          DepthField{ReceiverElevation, "elevation"},
    DepthField{ReceiverDepth1, "first depth"},         DepthField{ReceiverDepth2, "second depth"},
    DepthField{ReceiverRockDepth, "depth of bedrock"},
};

}  // namespace

std::string Depth_File_Text(const Project& project, std::optional<DepthMisfit>& misfit) {
    std::string text;
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        for (const DepthField& field : depth_fields) {
            const double value = Plain(project.ReceiverData(field.Row, receiver));
            const auto number = CInt(hundredths * value);
            if (!number) {
                misfit = DepthMisfit{receiver, field.Name, value};
                return {};
            }
            text += Print_Number(int{*number});
        }
        text += "\r\n";
    }
    return text;
}

ExportReport Export_Depth_File(Ports& ports, const ExportSource& source) {
    ExportReport report;
    const std::string& title = source.Title;
    const std::string not_recorded = "Error: TVX file not recorded";
    ports.Ask.Say(
        "This option will create an ASCII file (*.TVX) with\r\n"
        " Distances (x100), elevations(x100) and all depths(x100) \r\n"
        "below each receiver. Others software can use the data",
        title);
    Workspace* work = source.Choose();
    if (work == nullptr) return report;
    const Project& project = work->Project;
    std::optional<DepthMisfit> misfit;
    const std::string text = Depth_File_Text(project, misfit);
    if (misfit) {
        const bool csv = ports.Ask.Ask_Yes(
            not_recorded + "\r\nReceiver " + CStr(misfit->Receiver) + ": the " + misfit->Quantity + " of " +
                CStr(misfit->Value) + " x 100 is beyond 32767\r\nRecord the results as a CSV file instead ?",
            title, Icon::Critical);
        return csv ? Record_Delay_Result(ports, source) : report;
    }
    std::vector<ExportFile> files = {{Export_Base(project, source.Folder) + ".TVX", text}};
    if (!Agree_On_Names(ports, title, files, {"Enter the new file name", "TVX|*.TVX|", "", ""}) ||
        !Write_Export_Files(ports, title, files, report, not_recorded)) {
        return report;
    }
    report.Receivers = project.NbReceivers;
    Tell_Export(ports, title, report.Files.back() + " has been written", report);
    return report;
}

}  // namespace tarnvik
