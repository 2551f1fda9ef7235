// su-convert: files of instruments to one SU file.

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>

#include "batch/commands.h"
#include "batch/option_checks.h"
#include "processing/instruments/conversion.h"

namespace tarnvik {

namespace {

using Json = nlohmann::ordered_json;

struct ConvertOptions {
    std::vector<std::string> Files;
    std::string Order = "name";
    std::optional<double> Spacing;
    std::optional<double> FirstReceiver;
    std::string Shots;
    std::string Geometry;
};

Json As_Json(const FieldFile& file) {
    return {{"file", file.File},
            {"format", file.Format},
            {"byte_order", file.ByteOrder},
            {"sample_format", file.SampleFormat},
            {"text_header", file.TextHeader},
            {"traces", file.Traces},
            {"ns", file.Samples},
            {"dt", file.Interval},
            {"delay", file.Delay},
            {"written", file.Written},
            {"assumed", file.Assumed},
            {"faults", file.Faults}};
}

void Print(const ConversionReport& report, const CommonOptions& common) {
    for (const FieldFile& file : report.Files) {
        std::cout << file.File << ": ";
        if (file.Format.empty()) {
            std::cout << "not converted\n";
        } else {
            std::cout << file.Format << ", " << file.ByteOrder << "-endian, " << file.SampleFormat << ", "
                      << file.Traces << " traces of " << file.Samples << " samples, " << file.Interval
                      << " us, delay " << file.Delay << " ms, " << file.Written << " traces written\n";
        }
        for (const std::string& sentence : file.Assumed)
            std::cout << "  assumed: " << sentence << "\n";
        for (const std::string& sentence : file.Faults)
            std::cout << "  fault: " << sentence << "\n";
    }
    if (report.Went_Well()) std::cout << common.Out << ": " << report.Traces << " traces\n";
}

ExitStatus Convert_To_Su(const CommonOptions& common, const ConvertOptions& options,
                         const std::string& folder) {
    BatchRun run(common, folder);
    ConversionRequest request;
    request.Files = options.Files;
    request.Order = options.Order == "shot" ? FileOrder::Shot : FileOrder::Name;
    request.Spacing = options.Spacing;
    request.FirstReceiver = options.FirstReceiver;
    request.Shots = Numbers(options.Shots);
    request.GeometryTable = options.Geometry;
    request.Out = std::filesystem::absolute(common.Out).string();
    std::vector<std::string> sources = options.Files;
    sources.push_back(options.Geometry);
    ConversionReport report;
    if (run.May_Write(common.Out, sources)) {
        report = Convert_Field_Files(request);
        for (const std::string& message : report.Messages)
            run.Prompts.Say(message, run.Program.Work.AppTitle, Icon::Information);
        if (!report.Went_Well()) run.Refuse(report.Failure);
    } else {
        report.Failure = "refused";
    }
    if (common.Json) {
        Json json;
        json["file"] = report.Went_Well() ? common.Out : std::string();
        json["traces"] = report.Traces;
        json["files"] = Json::array();
        for (const FieldFile& file : report.Files)
            json["files"].push_back(As_Json(file));
        json["messages"] = run.Prompts.Messages();
        std::cout << json.dump(1, ' ', false, Json::error_handler_t::replace) << "\n";
    } else {
        Print(report, common);
    }
    return report.Went_Well() ? Done : Refused;
}

}  // namespace

void Add_Su_Convert(CLI::App& app, Request& request) {
    CLI::App* command =
        app.add_subcommand("su-convert", "files of instruments (SEG-2, SEG-Y, SU) to one SU file");
    auto options = std::make_shared<ConvertOptions>();
    command->add_option("FILE", options->Files, "SEG-2, SEG-Y or SU of either byte order")->required();
    command->add_option("--order", options->Order, "order of the files: name or shot")
        ->check(CLI::IsMember({"name", "shot"}));
    auto* spacing = command->add_option("--spacing", options->Spacing, "distance between receivers");
    spacing->check(Any_Number());
    command->add_option("--first-receiver", options->FirstReceiver, "place of the first receiver")
        ->check(Any_Number())
        ->needs(spacing);
    command->add_option("--shots", options->Shots, "place of each record's shot, A,B,...")
        ->check(List_Of_Numbers());
    command->add_option("--geometry", options->Geometry, "table of places by file or record, and channel");
    command->add_option("--out", request.Common.Out, "SU file to write")
        ->required()
        ->check(Name_Ending_In({".su"}));
    Add_Answers(*command, request.Common);
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Convert_To_Su(common, *options, folder);
        };
    });
}

}  // namespace tarnvik
