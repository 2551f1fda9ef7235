#include "setup/project_commands.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "setup/build_grid.h"
#include "setup/geometry.h"

namespace tarnvik {

namespace {

bool Same_File(const std::string& one, const std::string& other) {
    std::error_code failed;
    return one == other || std::filesystem::equivalent(one, other, failed);
}

}  // namespace

void Change_All_Picks(Project& project, PickChange change) {
    const int shots = std::min<int>(project.NbShots, project.ShotTimes.Last_Row());
    const int receivers = std::min<int>(project.NbReceivers, project.ShotTimes.Last_Column());
    for (int shot = 1; shot <= shots; ++shot) {
        for (int receiver = 1; receiver <= receivers; ++receiver) {
            float& pick = project.ShotTimes(shot, receiver);
            if (pick > 0) pick = static_cast<float>(pick * change.Factor + change.Shift);
        }
    }
}

void shiftFBP(Workspace& workspace, Ports& ports, const std::function<bool(const std::string& path)>& open) {
    const double kind = Val(ports.Ask.Input(
        "Type 1 to scale all FBP time of a travel time, 2 to add/substract a value to all FBP, 0= Exit",
        workspace.AppTitle, "0"));
    if (kind != 1 && kind != 2) return;
    const std::string path =
        ports.Ask.Open_File({"Tarnvik File selection", "File Tarnvik TV5 |*.TV5|File Tarnvik BAK |*.BAK|",
                             "*.TV5", workspace.Project.ProjectDir});
    if (path.empty() || UCase(path) == "*.TV5") return;
    PickChange change;
    if (kind == 1) {
        change.Factor =
            Val(ports.Ask.Input(" Enter the factor to apply to all FBP", workspace.AppTitle, "1"));
        // A factor of 0, also that of a cancelled box, would take every pick away.
        if (!(change.Factor > 0) || change.Factor == 1) return;
    } else {
        change.Shift = Val(ports.Ask.Input(
            " Enter the time (ms) to add or substract (negative value) to all FBP", workspace.AppTitle, "0"));
        if (change.Shift == 0) return;
    }

    if (!Same_File(path, workspace.Project.CurrentFile) && !open(path)) return;
    EditScope edit(workspace, "Scale or shift of all picks");
    Change_All_Picks(workspace.Project, change);
    edit.End();
    Tell_Times_Below_0(workspace);
    Save_Geometry(workspace, ports);
}

void Deletename(Workspace& workspace, Ports& ports) {
    const std::string path = workspace.Project.CurrentFile;
    if (path.empty() || !File_Exists(path)) {
        ports.Ask.Say("This file does not exist !", workspace.AppTitle, Icon::Critical);
        return;
    }
    if (!ports.Ask.Ask_Yes("Do you want to delete " + path + " ?", workspace.AppTitle, Icon::Warning)) return;
    std::error_code failed;
    if (std::filesystem::remove(path, failed)) {
        ports.Ask.Say(path + " has been deleted", workspace.AppTitle, Icon::Information);
    } else {
        ports.Ask.Say(path + " cannot be deleted: " + failed.message(), workspace.AppTitle, Icon::Critical);
    }
}

}  // namespace tarnvik
