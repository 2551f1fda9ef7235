// export and import: lines in the files of other programs.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "batch/commands.h"
#include "batch/option_checks.h"
#include "core/files.h"
#include "core/project_save.h"
#include "output/exports/dxf_export.h"
#include "output/exports/picks_export.h"
#include "output/exports/plotrefa_export.h"
#include "output/exports/rayfract_export.h"
#include "output/exports/seisopt_export.h"
#include "output/exports/surfer_export.h"
#include "output/imports/import_picks.h"
#include "output/tables/delay_list.h"
#include "output/tables/delay_result.h"
#include "output/tables/depth_file.h"
#include "output/tables/shot_depths.h"

namespace tarnvik {

namespace {

using Json = nlohmann::ordered_json;

/// The kinds that the command knows, each with the routine of its menu entry.
struct ExportKind {
    const char* Name;
    ExportReport (*Run)(Ports& ports, const ExportSource& source);
};
ExportReport Export_Section_Beside(Ports& ports, const ExportSource& source) {
    return Export_Surfer(ports, source, {});
}

constexpr std::array export_kinds = {
    ExportKind{"tvx", Export_Depth_File},
    ExportKind{"csv", Record_Delay_Result},
    ExportKind{"sht", Export_Shot_Depths},
    ExportKind{"delay", Export_Delay_List},
    ExportKind{"seisopt2d", Export_SeisOpt2D},
    ExportKind{"plotrefa", Export_Plotrefa},
    ExportKind{"rayfract", Export_Rayfract},
    ExportKind{"surfer", Export_Section_Beside},
    ExportKind{"sgt", Export_Unified},
    ExportKind{"picks", Export_Picks},
    ExportKind{"dxf", Export_Dxf},
};

std::vector<std::string> Names_Of_Kinds() {
    std::vector<std::string> names;
    for (const ExportKind& kind : export_kinds)
        names.emplace_back(kind.Name);
    return names;
}

struct ExportOptions {
    std::string Kind;
    std::string Folder;
};

/// The messages of a run, one a line.
Json Lines_Of(const std::string& texts) {
    Json lines = Json::array();
    std::string line;
    for (const char letter : texts + "\n") {
        if (letter == '\r') continue;
        if (letter != '\n') {
            line += letter;
        } else if (!line.empty()) {
            lines.push_back(std::move(line));
            line.clear();
        }
    }
    return lines;
}

void Print(const Json& json) {
    std::cout << json.dump(1, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
}

std::string With_Separator(std::string folder) {
    if (!folder.empty() && folder.back() != '/' && folder.back() != '\\') folder += '/';
    return folder;
}

/// What a refused export has already written goes, unless it stood there before.
void Take_Back(ExportReport& report) {
    std::error_code failed;
    for (const std::string& path : report.Created)
        std::filesystem::remove(path, failed);
    std::erase_if(report.Files, [&report](const std::string& path) {
        return std::find(report.Created.begin(), report.Created.end(), path) != report.Created.end();
    });
    report.Picks = 0;
    report.Shots = 0;
}

ExitStatus Export(const CommonOptions& common, const ExportOptions& options, const std::string& folder) {
    BatchRun run(common, folder);
    ExportReport report;
    Workspace& work = run.Program.Work;
    if (run.Load()) {
        const auto kind = std::find_if(export_kinds.begin(), export_kinds.end(),
                                       [&](const ExportKind& known) { return known.Name == options.Kind; });
        ExportSource source;
        source.Title = work.AppTitle;
        source.Choose = [&work] { return &work; };
        source.Folder = With_Separator(options.Folder);
        report = kind->Run(run.Program.Outside, source);
    }
    if (!report.Done) Take_Back(report);
    if (common.Json) {
        Json json;
        json["files"] = report.Files;
        json["picks"] = report.Picks;
        json["shots"] = report.Shots;
        json["left_out"] = report.LeftOut;
        json["messages"] = Lines_Of(run.Prompts.Texts());
        Print(json);
    } else {
        for (const std::string& file : report.Files)
            std::cout << file << "\n";
    }
    return report.Done ? Done : Refused;
}

ExitStatus Import(const CommonOptions& common, const std::string& folder) {
    BatchRun run(common, folder);
    Workspace& work = run.Program.Work;
    ImportReport report;
    bool stored = false;
    if (run.May_Write(common.Out)) {
        report = Import_Picks(work, run.Program.Outside, common.ProjectFile);
        if (report.Refusal.empty()) {
            // Its replacement has been agreed to by --yes.
            work.FileOnDisk = common.Out;
            stored = run.Store(common.Out);
        }
    }
    const std::string summary = stored ? Import_Summary(work.Project, report) : std::string();
    if (common.Json) {
        Json json;
        json["file"] = stored ? common.Out : std::string();
        json["picks"] = report.Picks;
        json["shots"] = int{work.Project.NbShots};
        json["receivers"] = int{work.Project.NbReceivers};
        json["left_out"] = report.LeftOut;
        json["messages"] = Lines_Of(run.Prompts.Texts());
        Print(json);
    } else if (stored) {
        std::cout << common.Out << ": " << summary << "\n";
    }
    return stored ? Done : Refused;
}

}  // namespace

void Add_Export(CLI::App& app, Request& request) {
    CLI::App* command = Add_Project_Command(app, request, "export",
                                            "picks or results for another program, with its questions");
    auto options = std::make_shared<ExportOptions>();
    command->add_option("KIND", options->Kind, "what to write")
        ->required()
        ->check(CLI::IsMember(Names_Of_Kinds()));
    command->add_option("--out-dir", options->Folder, "folder of the files; otherwise the project's")
        ->check(CLI::ExistingDirectory);
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Export(common, *options, folder);
        };
    });
}

void Add_Import(CLI::App& app, Request& request) {
    CLI::App* command = app.add_subcommand("import", "picks of another program's file become a project");
    command
        ->add_option("FILE", request.Common.ProjectFile,
                     "PLOTREFA (.asc, .vs), Rayfract (.asc) or unified data (.sgt, .dat)")
        ->required();
    command->add_option("--out", request.Common.Out, "project to write (.tv5)")
        ->required()
        ->check(Name_Ending_In({".tv5"}));
    Add_Answers(*command, request.Common);
    command->callback([&request] { request.Run = Import; });
}

}  // namespace tarnvik
