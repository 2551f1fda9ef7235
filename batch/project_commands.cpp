// show, save and convert: the project block as it stands.

#include <CLI/CLI.hpp>
#include <iostream>

#include "batch/commands.h"
#include "batch/option_checks.h"
#include "batch/project_report.h"
#include "core/files.h"
#include "core/tv4_file.h"

namespace tarnvik {

namespace {

ExitStatus Show(const CommonOptions& options, const std::string& folder) {
    BatchRun run(options, folder);
    const bool loaded = run.Load();
    if (!loaded) return run.Finish(Refused);
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
    const bool stored = run.Load() && run.May_Write(options.Out) && run.Store(options.Out);
    return run.Finish(stored ? run.Status() : Refused);
}

ExitStatus Convert(const CommonOptions& options, const std::string& folder) {
    BatchRun run(options, folder);
    const std::string old_title = "Old Tarnvik file";
    const std::string new_title = "New Tarnvik file";
    const auto refuse = [&run](const std::string& text, const std::string& title) {
        run.Prompts.Say(text, title, Icon::Critical);
        return run.Finish(Refused);
    };
    const auto old_bytes = Read_File(options.ProjectFile);
    if (!old_bytes) return refuse("This file does not exist !", old_title);
    const auto new_bytes = Convert_TV4(*old_bytes);
    if (!new_bytes) {
        return refuse(options.ProjectFile + " does not begin with the counts of a TV4 file", old_title);
    }
    if (!run.May_Write(options.Out)) return run.Finish(Refused);
    const std::string reason = Replace_File(options.Out, *new_bytes);
    if (!reason.empty()) return refuse(options.Out + " cannot be written: " + reason, new_title);
    run.Prompts.Say(options.Out + " has been recorded", new_title);
    return run.Finish(Done);
}

}  // namespace

void Add_Answers(CLI::App& command, CommonOptions& common) {
    command
        .add_option("--answer", common.Answers, "answer to the next question (yes, no, ok, cancel or a text)")
        ->take_all()
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command.add_flag("--yes", common.AlwaysYes,
                     "answer every yes/no question with yes, and replace the file of --out");
    command.add_flag("--json", common.Json, "result as one JSON object");
}

void Add_Project_Outputs(CLI::App& command, CommonOptions& common) {
    CLI::Option* save = command.add_flag("--save", common.Save, "write the project back");
    command.add_option("--out", common.Out, "write the project there (.tv5)")
        ->check(Name_Ending_In({".tv5"}))
        ->excludes(save);
}

CLI::App* Add_Project_Command(CLI::App& app, Request& request, const std::string& name,
                              const std::string& help) {
    CLI::App* command = app.add_subcommand(name, help);
    CommonOptions& common = request.Common;
    command->add_option("PROJECT", common.ProjectFile, "project file (.tv5)")->required();
    Add_Answers(*command, common);
    return command;
}

void Add_Show(CLI::App& app, Request& request) {
    Add_Project_Command(app, request, "show", "the project block")->callback([&request] {
        request.Run = Show;
    });
}

void Add_Save(CLI::App& app, Request& request) {
    CLI::App* command = Add_Project_Command(app, request, "save", "reads and writes the project");
    command->add_option("--out", request.Common.Out, "file to write (.tv5)")
        ->required()
        ->check(Name_Ending_In({".tv5"}));
    command->callback([&request] { request.Run = Save; });
}

void Add_Convert(CLI::App& app, Request& request) {
    CLI::App* command = app.add_subcommand("convert", "a file of the older TV4 format to TV5");
    command->add_option("OLD", request.Common.ProjectFile, "file to read (.tv4)")->required();
    command->add_option("NEW", request.Common.Out, "file to write (.tv5)")
        ->required()
        ->check(Name_Ending_In({".tv5"}));
    Add_Answers(*command, request.Common);
    command->callback([&request] { request.Run = Convert; });
}

}  // namespace tarnvik
