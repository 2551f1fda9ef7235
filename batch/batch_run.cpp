#include "batch/batch_run.h"

#include <utility>

#include "core/files.h"
#include "core/project_open.h"
#include "core/project_save.h"
#include "core/text/letters.h"
#include "setup/build_grid.h"

namespace tarnvik {

BatchRun::BatchRun(const CommonOptions& options, std::string program_folder)
    : Prompts(options.Answers, options.AlwaysYes),
      Launcher(std::move(program_folder)),
      Program({Prompts, Display, Launcher}, ""),
      ProjectFile(options.ProjectFile) {
    Display.Attach(Program);
}

bool BatchRun::Load() {
    Workspace& work = Program.Work;
    if (LCase(Right(ProjectFile, 4)) != ".tv5") {
        Prompts.Say("No TV5 file selected ", work.AppTitle, Icon::Critical);
        return false;
    }
    if (!Read_File(ProjectFile)) {
        Prompts.Say("This file does not exist !", work.AppTitle, Icon::Critical);
        return false;
    }
    Read_Project(work, ProjectFile);
    Scale_Time_Grid(work);
    Fill_Grid(work);
    return true;
}

bool BatchRun::Store(const std::string& path) {
    if (!path.empty()) Program.Work.Project.CurrentFile = path;
    return Write_Project(Program.Work, Program.Outside);
}

}  // namespace tarnvik
