// show, save and convert: the project block as it stands.

#include <CLI/CLI.hpp>
#include <iostream>

#include "batch/commands.h"
#include "batch/project_report.h"
#include "core/files.h"
#include "core/tv4_file.h"

namespace tarnvik {

namespace {

ExitStatus Show(const CommonOptions& options, const std::string& folder) {
    BatchRun run(options, folder);
    if (!run.Load()) return Refused;
    if (options.Json) {
        std::cout
            << Project_Json(run.Program.Work).dump(1, ' ', false, nlohmann::json::error_handler_t::replace)
            << "\n";
    } else {
        Print_Project(std::cout, run.Program.Work);
    }
    return run.Status();
}

ExitStatus Save(const CommonOptions& options, const std::string& folder) {
    BatchRun run(options, folder);
    return run.Load() && run.Store(options.Out) ? run.Status() : Refused;
}

ExitStatus Convert(const std::string& old_path, const std::string& new_path) {
    const auto old_bytes = Read_File(old_path);
    if (!old_bytes) {
        std::cerr << "[Old Tarnvik file] This file does not exist !\n";
        return Refused;
    }
    const auto new_bytes = Convert_TV4(*old_bytes);
    if (!new_bytes) {
        std::cerr << "[Old Tarnvik file] " << old_path << " does not begin with the counts of a TV4 file\n";
        return Refused;
    }
    const std::string reason = Replace_File(new_path, *new_bytes);
    if (!reason.empty()) {
        std::cerr << "[New Tarnvik file] " << new_path << " cannot be written: " << reason << "\n";
        return Refused;
    }
    std::cerr << "[New Tarnvik file] " << new_path << " has been recorded\n";
    return Done;
}

}  // namespace

void Add_Answers(CLI::App& command, CommonOptions& common) {
    command
        .add_option("--answer", common.Answers, "answer to the next question (yes, no, ok, cancel or a text)")
        ->take_all()
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command.add_flag("--yes", common.AlwaysYes, "answer every yes/no question with yes");
}

CLI::App* Add_Project_Command(CLI::App& app, Request& request, const std::string& name,
                              const std::string& help) {
    CLI::App* command = app.add_subcommand(name, help);
    CommonOptions& common = request.Common;
    command->add_option("PROJECT", common.ProjectFile, "project file (.tv5)")->required();
    Add_Answers(*command, common);
    command->add_flag("--json", common.Json, "result as one JSON object");
    return command;
}

void Add_Show(CLI::App& app, Request& request) {
    Add_Project_Command(app, request, "show", "the project block")->callback([&request] {
        request.Run = Show;
    });
}

void Add_Save(CLI::App& app, Request& request) {
    CLI::App* command = Add_Project_Command(app, request, "save", "reads and writes the project");
    command->add_option("--out", request.Common.Out, "file to write (.tv5)")->required();
    command->callback([&request] { request.Run = Save; });
}

void Add_Convert(CLI::App& app, Request& request) {
    CLI::App* command = app.add_subcommand("convert", "a file of the older TV4 format to TV5");
    command->add_option("OLD", request.Common.ProjectFile, "file to read (.tv4)")->required();
    command->add_option("NEW", request.Common.Out, "file to write (.tv5)")->required();
    command->callback([&request] {
        request.Run = [](const CommonOptions& options, const std::string&) {
            return Convert(options.ProjectFile, options.Out);
        };
    });
}

}  // namespace tarnvik
