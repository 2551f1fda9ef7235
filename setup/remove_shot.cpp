#include "setup/remove_shot.h"

#include <memory>
#include <string>

#include "core/fault.h"
#include "core/files.h"
#include "core/project_file.h"
#include "core/project_open.h"
#include "core/text/number.h"
#include "processing/rewrite_su.h"
#include "records/su_file.h"
#include "records/su_loading.h"
#include "setup/build_grid.h"
#include "setup/geometry.h"
#include "traveltime/shot_grid.h"

namespace tarnvik {

namespace {

template <class T>
Array1<T> Without(const Array1<T>& of_shots, int shot) {
    if (!of_shots.Has(shot)) return of_shots;
    Array1<T> left(of_shots.Last() - 1);
    for (int i = 0; i <= left.Last(); ++i)
        left(i) = of_shots(i < shot ? i : i + 1);
    return left;
}

template <class T>
Array2<T> Without(const Array2<T>& of_shots, int shot) {
    if (!of_shots.Has(shot, 0)) return of_shots;
    Array2<T> left(of_shots.Last_Row() - 1, of_shots.Last_Column());
    for (int i = 0; i <= left.Last_Row(); ++i) {
        for (int j = 0; j <= left.Last_Column(); ++j)
            left(i, j) = of_shots(i < shot ? i : i + 1, j);
    }
    return left;
}

}  // namespace

bool Take_Out_Shot(Project& project, int shot) {
    if (shot < 1 || shot > project.NbShots) return false;
    project.ShotTimes = Without(project.ShotTimes, shot);
    project.PickOrigins = Without(project.PickOrigins, shot);
    project.ShotElevation = Without(project.ShotElevation, shot);
    project.ShotDistance = Without(project.ShotDistance, shot);
    project.ShotDistanceZ = Without(project.ShotDistanceZ, shot);
    project.ShotDepth = Without(project.ShotDepth, shot);
    project.VelocityA = Without(project.VelocityA, shot);
    project.VelocityB = Without(project.VelocityB, shot);
    project.InterceptA = Without(project.InterceptA, shot);
    project.InterceptB = Without(project.InterceptB, shot);
    project.CritDistA = Without(project.CritDistA, shot);
    project.CritDistB = Without(project.CritDistB, shot);
    project.ShotThickness = Without(project.ShotThickness, shot);
    --project.NbShots;
    return true;
}

bool Remove_Colonne(Workspace& workspace, Ports& ports, int column) {
    Project& project = workspace.Project;
    if (column < 1 || column > project.NbShots) return false;
    if (!project.CurrentFile.empty() && workspace.BackedUpBeforeRemoval != project.CurrentFile) {
        const std::string reason =
            File_Exists(project.CurrentFile) ? Backup_Project(project.CurrentFile) : std::string();
        if (!reason.empty())
            ports.Ask.Say(project.CurrentFile + ": no backup copy: " + reason, workspace.AppTitle,
                          Icon::Warning);
        workspace.BackedUpBeforeRemoval = project.CurrentFile;
    }
    TextGrid& grid = workspace.Grids.Buildgrid;
    const bool shown = BuildgridLayout(project).Fits(grid);
    Take_Out_Shot(project, column);
    if (shown) {
        for (int row = 0; row < grid.Rows(); ++row) {
            for (int i = column; i + 1 < grid.Columns(); ++i)
                grid.At(row, i) = grid.At(row, i + 1);
        }
        grid.Resize(grid.Rows(), grid.Columns() - 1);
        // The columns behind carried the captions of their old numbers.
        for (int shot = column; shot <= project.NbShots; ++shot)
            grid.Set_Text(0, shot, "Shot" + CStr(shot));
    }
    Remove_Shot_Row(workspace, column);
    return true;
}

std::string Name_Without_Shot(const std::string& path, int shot) {
    const std::string name = Name_Of(path);
    const auto point = name.rfind('.');
    const std::string stem = point == std::string::npos ? name : name.substr(0, point);
    const std::string extension = point == std::string::npos ? std::string() : name.substr(point);
    return Folder_Of(path) + stem + "_" + CStr(shot) + extension;
}

void RemoveShot(Workspace& workspace, Ports& ports, int shot) {
    const Project& project = workspace.Project;
    if (shot < 1 || shot > project.NbShots) return;
    if (project.CurrentFile.empty()) {
        ports.Ask.Say("No files loaded", workspace.AppTitle, Icon::Critical);
        return;
    }
    if (!ports.Ask.Ask_Yes("Do you want to remove shot " + CStr(shot), workspace.AppTitle)) return;

    // Records that are not found are not those of the new project either.
    const bool has_records = !project.SuFile.empty() && Locate_SU_File(workspace, ports);
    std::string new_file = Name_Without_Shot(project.CurrentFile, shot);
    // Always the extension in lower case, whatever the old one's.
    if (const auto point = new_file.rfind('.'); point != std::string::npos) new_file.erase(point);
    new_file += ".tv5";
    const std::string new_su = has_records ? Name_Without_Shot(Su_Path(project), shot) : std::string();
    for (const std::string& path : {new_file, new_su}) {
        if (File_Exists(path) &&
            !ports.Ask.Ask_Yes(path + " already exists, overwrite ?", workspace.AppTitle)) {
            return;
        }
    }

    FreshFiles fresh;
    std::string report;
    if (has_records) {
        fresh.push_back(std::make_unique<FreshFile>(workspace.Edits, new_su));
        Note_Chain(workspace,
                   Cleaned_Up(Rewrite_Text(ports.Launch.Program_Folder(), Su_Path(project), new_su)));
        const ChainEnd end = Drop_Shot(workspace, ports, shot, Su_Path(project), fresh.back()->Name());
        if (!end.Well()) {
            Tell_Chain_End(workspace, ports, end);
            return;
        }
        report = "Trace extraction OK ! New SU file has been recorded as " + new_su + "\n";
    }
    Project left = project;
    Take_Out_Shot(left, shot);
    left.SuFile = new_su;
    fresh.push_back(std::make_unique<FreshFile>(workspace.Edits, new_file));
    std::string reason;
    try {
        reason = Replace_File(fresh.back()->Name(), Project_Bytes(left));
    } catch (const Fault& fault) {
        reason = fault.what();
    }
    if (!reason.empty()) {
        ports.Ask.Say(new_file + ": " + reason, workspace.AppTitle, Icon::Critical);
        return;
    }
    EditScope edit(workspace, "Files without shot " + CStr(shot));
    reason = Put_All(fresh);
    if (!reason.empty()) {
        edit.Give_Up();
        ports.Ask.Say(reason, workspace.AppTitle, Icon::Critical);
        return;
    }
    edit.End();
    report += "The new Tarnvik file has been saved as " + new_file + "\nLoad this file !";
    ports.Ask.Say(report, workspace.AppTitle, Icon::Information);
    workspace.Fields.Caption = "[" + new_file + "]";
    ports.Show.Show_Fields();
}

}  // namespace tarnvik
