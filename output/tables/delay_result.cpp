#include "output/tables/delay_result.h"

#include <algorithm>

#include "core/files.h"
#include "core/text/item_reader.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "depth/delay_times.h"
#include "output/exports/export_values.h"
#include "output/section_sources.h"

namespace tarnvik {

namespace {

/// A difference of single-precision values without the digits that they do not have.
double Short(double value) {
    return Plain(static_cast<float>(value));
}

/// The third interface is known while its computation is in memory: no file holds it.
bool Third_Interface_Lost(const Project& project) {
    bool four_layers = false;
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        if (project.ReceiverData(ReceiverScratch, receiver) > 0) return false;
        four_layers |= project.ReceiverData(ReceiverV4, receiver) > 0 &&
                       project.ReceiverData(ReceiverDepth2, receiver) > 0;
    }
    return four_layers;
}

/// False after a message, and when the user gave up.
bool Ask_Places(Ports& ports, const std::string& title, const Project& project,
                std::vector<ReceiverPlace>& places) {
    places = Places_On_Line(project);
    // The misprint is part of the text that users know.
    if (!ports.Ask.Ask_Yes("Do you have X,Y;T géophone location file ?", title)) return true;
    const std::string path = ports.Ask.Open_File(
        {"XYZ text file", "XYZ|*.txt| All|*.*|", "*.txt", Folder_Of(project.CurrentFile)});
    if (path.empty()) return false;
    const auto bytes = Read_File(path);
    const auto read = bytes ? Read_Places(*bytes, project.NbReceivers) : std::nullopt;
    if (!read) {
        ports.Ask.Say(path + (bytes ? " does not hold three numbers for each of the " +
                                          CStr(int{project.NbReceivers}) + " receivers, and nothing else"
                                    : " cannot be read"),
                      title, Icon::Critical);
        return false;
    }
    places = *read;
    return true;
}

}  // namespace

std::optional<std::vector<ReceiverPlace>> Read_Places(std::string_view bytes, int receivers) {
    ItemReader reader(bytes);
    std::vector<ReceiverPlace> places(static_cast<std::size_t>(std::max(0, receivers)));
    for (ReceiverPlace& place : places) {
        reader.Number(place.X);
        reader.Number(place.Y);
        reader.Number(place.Z);
    }
    const bool whole = reader.All_There() && reader.No_Words();
    double more = 0;
    if (!whole || reader.Number(more)) return std::nullopt;
    return places;
}

std::vector<ReceiverPlace> Places_On_Line(const Project& project) {
    std::vector<ReceiverPlace> places;
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver)
        places.push_back({Receiver_Distance(project, receiver), 0, Receiver_Elevation(project, receiver)});
    return places;
}

std::vector<double> Thicknesses_Below(const Project& project, int receiver, bool two_layers) {
    const auto depth = [&](ReceiverRow row) { return Plain(project.ReceiverData(row, receiver)); };
    if (two_layers) return {std::max(0.0, depth(ReceiverRockDepth)), 0, 0};
    std::vector<double> thicknesses = {depth(ReceiverDepth1), depth(ReceiverDepth2) - depth(ReceiverDepth1),
                                       depth(ReceiverScratch) - depth(ReceiverDepth2)};
    for (double& thickness : thicknesses)
        thickness = std::max(0.0, Short(thickness));
    return thicknesses;
}

std::string Delay_Result_Text(const Project& project, const std::vector<ReceiverPlace>& places,
                              const std::string& name) {
    // The headings are those of a line of four layers, also for one of two.
    std::string text = "Travel Time;Geophone;X;Y;Z;v1;v2;V3;V4;E1;E2;E3;Bed Rock;Distance;" + name + "\r\n";
    const bool two_layers = Abc_Has_Two_Layers(project);
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        const auto value = [&](ReceiverRow row) { return CStr(project.ReceiverData(row, receiver)); };
        const ReceiverPlace& place = places.at(static_cast<std::size_t>(receiver) - 1);
        std::vector<std::string> fields = {value(ReceiverIntercept), CStr(receiver)};
        for (const double coordinate : {place.X, place.Y, place.Z})
            fields.push_back(CStr(coordinate));
        for (const ReceiverRow row : {ReceiverV1, ReceiverV2, ReceiverV3, ReceiverV4})
            fields.push_back(value(row));
        double bedrock = 0;
        for (const double thickness : Thicknesses_Below(project, receiver, two_layers)) {
            fields.push_back(CStr(thickness));
            bedrock += thickness;
        }
        fields.push_back(CStr(Short(bedrock)));
        fields.push_back(value(ReceiverDistance));
        for (const std::string& field : fields)
            text += field + ";";
        text += name + "\r\n";
    }
    return text;
}

ExportReport Record_Delay_Result(Ports& ports, const ExportSource& source) {
    ExportReport report;
    const std::string& title = source.Title;
    Workspace* work = source.Choose();
    if (work == nullptr) return report;
    const Project& project = work->Project;
    if (!Has_Delays(project)) {
        ports.Ask.Say("First compute delays", title, Icon::Critical);
        return report;
    }
    std::vector<ReceiverPlace> places;
    if (!Ask_Places(ports, title, project, places)) return report;
    const std::string base = Export_Base(project, source.Folder);
    std::vector<ExportFile> files = {{base + ".csv", Delay_Result_Text(project, places, Name_Of(base))}};
    if (!Agree_On_Names(ports, title, files, {"Enter the new file name", "File CSV |*.CSV|", "", ""}) ||
        !Write_Export_Files(ports, title, files, report)) {
        return report;
    }
    if (ports.Launch.Open_Document(report.Files.back()) < launch_failure_below)
        ports.Ask.Say("Unable to launch EXCEL", title, Icon::Warning);
    report.Receivers = project.NbReceivers;
    if (Third_Interface_Lost(project)) {
        report.LeftOut.push_back(
            "The third interface: project files do not keep it, compute the depths again to have E3");
    }
    Tell_Export(ports, title, report.Files.back() + " has been written", report);
    return report;
}

}  // namespace tarnvik
