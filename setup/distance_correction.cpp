#include "setup/distance_correction.h"

#include <algorithm>
#include <optional>
#include <string>

#include "core/text/letters.h"
#include "core/text/number.h"
#include "setup/geometry.h"

namespace tarnvik {

namespace {

/// Number of a shot of the project; tells the user when the text names none.
std::optional<int> Shot_Number(Workspace& workspace, Ports& ports, const std::string& typed) {
    const auto shot = CInt(Val(typed));
    const int last = std::min<int>(workspace.Project.NbShots, workspace.Project.ShotDistance.Last());
    if (shot && *shot >= 1 && *shot <= last) return *shot;
    ports.Ask.Say(typed + " is no shot of this line: 1 to " + CStr(last), workspace.AppTitle, Icon::Warning);
    return std::nullopt;
}

void Add_To_All_Distances(Project& project, double shift) {
    auto places = Receiver_Places(project);
    for (double& place : places)
        place += shift;
    Store_Receiver_Places(project, places);
    for (int shot = 1; shot <= std::min<int>(project.NbShots, project.ShotDistance.Last()); ++shot)
        project.ShotDistance(shot) += shift;
}

}  // namespace

void Distance_Correction(Workspace& workspace, Ports& ports) {
    Project& project = workspace.Project;
    double proposed = -project.DistanceShift;
    if (project.DistanceShift == 0) {
        const std::string typed = ports.Ask.Input("Enter the End Shot 1 number", workspace.AppTitle, "2");
        if (Trim(typed).empty()) return;
        const auto shot = Shot_Number(workspace, ports, typed);
        if (!shot) return;
        proposed = -project.ShotDistance(*shot);
        // A shot that lies at 0 already proposes 0, not "-0".
        if (proposed == 0) proposed = 0;
    }
    const std::string answer =
        ports.Ask.Input(" Enter the distance to remove or add (End shot 1 must have ZERO distance)",
                        workspace.AppTitle, CStr(proposed));
    if (Trim(answer).empty()) return;
    const double shift = Val(answer);
    EditScope edit(workspace, "Distance correction");
    project.DistanceShift = shift;
    if (shift != 0) Add_To_All_Distances(project, shift);
    edit.End();
    if (shift == 0) return;
    ports.Ask.Say("Remember to check the line length !", workspace.AppTitle, Icon::Information);
}

void Enter_Line_Length(Workspace& workspace, Ports& ports) {
    Project& project = workspace.Project;
    const std::string typed =
        ports.Ask.Input(" Enter the End Shot number ", workspace.AppTitle, CStr(int{project.NbShots}));
    if (Trim(typed).empty()) return;
    const auto shot = Shot_Number(workspace, ports, typed);
    if (!shot) return;
    const std::string length =
        ports.Ask.Input("Enter line length (From end shot 1 to End Shot " + CStr(*shot), workspace.AppTitle,
                        CStr(project.ShotDistance(*shot)));
    if (!(Val(length) > 0)) return;
    EditScope edit(workspace, "Line length");
    project.LineLength = Val(length);
    edit.End();
}

}  // namespace tarnvik
