#include "app/line_loading.h"

#include "app/session.h"
#include "core/files.h"
#include "core/pick_origins.h"
#include "core/ports/passing_prompts.h"
#include "core/project_open.h"
#include "depth/grm_storage.h"
#include "setup/build_grid.h"
#include "traveltime/shot_grid.h"

namespace tarnvik {

std::string Load_Line(Session& session, const std::string& file, const std::string& name) {
    if (!Read_File(file)) return name + ": This file does not exist !";
    Workspace& work = session.Work;
    const ReadingReport report = Read_Project(work, file);
    if (!report.Refusal.empty()) return No_Project_Text(name, report);
    work.Project.CurrentFile = name;
    Split_Project_Path(work.Project, name);
    if (!session.SettingsFile.empty())
        Read_Pick_Origins(work.Project, Folder_Of(session.SettingsFile) + "projects");
    Scale_Time_Grid(work);
    work.Grm = {};
    work.Section.Grid.reset();
    PassingPrompts unasked;
    Ports passing{unasked, session.Outside.Show, session.Outside.Launch};
    Take_Up_GRM_File(work, passing);
    Fill_Grid(work);
    Fill_Shot_Grid(work);
    return {};
}

}  // namespace tarnvik
