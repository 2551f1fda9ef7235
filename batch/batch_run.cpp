#include "batch/batch_run.h"

#include <iostream>
#include <nlohmann/json.hpp>
#include <utility>

#include "core/files.h"
#include "core/project_file.h"
#include "core/project_open.h"
#include "core/project_save.h"
#include "core/text/letters.h"
#include "processing/su_names.h"
#include "records/su_loading.h"
#include "setup/build_grid.h"

namespace tarnvik {

BatchRun::BatchRun(const CommonOptions& options, std::string program_folder)
    : Prompts(options.Answers, options.AlwaysYes),
      Launcher(std::move(program_folder)),
      Program({Prompts, Display, Launcher}, ""),
      Options(options) {
    Display.Attach(Program);
}

bool BatchRun::Refuse(const std::string& text) {
    Prompts.Say(text, Program.Work.AppTitle, Icon::Critical);
    return false;
}

bool BatchRun::Load() {
    Workspace& work = Program.Work;
    const std::string& path = Options.ProjectFile;
    if (LCase(Right(path, 4)) != ".tv5") return Refuse("No TV5 file selected ");
    if (!Read_File(path)) return Refuse("This file does not exist !");
    const ReadingReport report = Read_Project(work, path);
    if (!report.Refusal.empty()) return Refuse(No_Project_Text(path, report));
    // Opened all the same, as the window does when the user agrees.
    if (!report.Missing.empty()) Prompts.Say(path + ": " + report.Missing, work.AppTitle, Icon::Warning);
    Scale_Time_Grid(work);
    if (Program.Hooks.ReadGrmFile) Program.Hooks.ReadGrmFile();
    Fill_Grid(work);
    return true;
}

bool BatchRun::Store(const std::string& path) {
    if (!path.empty()) Program.Work.Project.CurrentFile = path;
    return Write_Project(Program.Work, Program.Outside);
}

bool BatchRun::May_Write(const std::string& path, const std::vector<std::string>& sources) {
    if (path.empty()) return true;
    std::vector<std::string> read = sources;
    read.push_back(Options.ProjectFile);
    if (!Program.Work.Project.SuFile.empty()) read.push_back(Su_Path(Program.Work.Project));
    read.push_back(Program.Work.Record.TwinSuFile);
    for (const std::string& source : read) {
        if (Same_File(path, source)) return Refuse(path + " is read by this command and stays as it is");
    }
    if (File_Exists(path) && !Options.AlwaysYes) return Refuse(path + " already exists; --yes replaces it");
    return true;
}

ExitStatus BatchRun::Finish(ExitStatus status) const {
    if (Options.Json && status != WrongUsage) {
        const nlohmann::ordered_json json = {{"file", status == Done ? Options.Out : std::string()},
                                             {"message", Prompts.Texts()}};
        std::cout << json.dump(1, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
    }
    return status;
}

}  // namespace tarnvik
