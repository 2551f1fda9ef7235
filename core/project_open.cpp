#include "core/project_open.h"

#include <filesystem>
#include <system_error>

#include "core/files.h"
#include "core/pick_origins.h"
#include "core/text/letters.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

namespace fs = std::filesystem;

constexpr double offset_shot_distance = -5;

bool Is_Untouched_Default(const std::string& path) {
    return UCase(path) == "*.TV5";
}

/// Offset shots are only ever found, never forgotten: a later file without any still counts as having them.
void Look_For_Offset_Shots(Workspace& workspace) {
    const Project& project = workspace.Project;
    if (project.ShotDistance.Has(1) && project.ShotDistance(1) < offset_shot_distance) {
        workspace.NoOffsetShots = false;
    }
    if (project.ShotDistance.Has(project.NbShots) &&
        project.ShotDistance(project.NbShots) > project.LineLength) {
        workspace.NoOffsetShots = false;
    }
}

}  // namespace

ReadingReport Read_Project(Workspace& workspace, const std::string& path) {
    if (Is_Untouched_Default(path)) return {};
    Project& project = workspace.Project;
    project.CurrentFile = path;
    ReadingReport report = Parse_Project(Read_File(path).value_or(""), project);
    workspace.Fields.Label16 = project.SuFile;
    workspace.Fields.Text25 = CStr(project.TotalTime);
    Look_For_Offset_Shots(workspace);
    Split_Project_Path(project, path);
    Read_Pick_Origins(project, workspace.CompanionFolder);
    workspace.FileOnDisk = path;
    workspace.Edits.Start(project, true);
    return report;
}

void Add_Recent_File(Settings& settings, const std::string& path) {
    for (std::size_t i = settings.RecentFiles.size() - 1; i > 0; --i)
        settings.RecentFiles[i] = settings.RecentFiles[i - 1];
    settings.RecentFiles[0] = path;
}

void Check_Project_Name(Workspace& workspace, Ports& ports, const std::string& path) {
    std::error_code failed;
    const auto blank = path.find(' ');
    if (blank != std::string::npos &&
        ports.Ask.Ask_Yes(
            path + " file name contains a space, correct it ? (FOR DIRECTORY DO NOT CORRECT HERE ! ) ",
            workspace.AppTitle)) {
        const std::string corrected = path.substr(0, blank) + path.substr(blank + 1);
        if (!File_Exists(corrected)) fs::rename(path, corrected, failed);
    }
    const auto state = fs::status(path, failed);
    if (!fs::exists(state) || (state.permissions() & fs::perms::owner_write) != fs::perms::none) return;
    ports.Ask.Say(path + "has READ ONLY attribut," + workspace.AppTitle + " will modify it",
                  workspace.AppTitle);
    fs::permissions(path, fs::perms::owner_write, fs::perm_options::add, failed);
}

std::string Backup_Project(const std::string& path) {
    const std::string backup = Folder_Of(path) + Replace_First(Name_Of(path), ".tv5", ".bak");
    if (backup == path) return path + " is no TV5 file";
    return Copy_File(path, backup);
}

}  // namespace tarnvik
