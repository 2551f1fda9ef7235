#include "setup/xyz_commands.h"

#include <algorithm>
#include <cmath>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "setup/geometry.h"

namespace tarnvik {

namespace {

constexpr double same_place = 0.005;  ///< half the last decimal of the table

FileRequest Xyz_Request(const Workspace& workspace, const std::string& title) {
    return {title, "Text File |*.txt|", "*.txt", workspace.Project.ProjectDir};
}

/// Points of a file; nothing after a fault, which the user was told.
std::optional<std::vector<XyzPoint>> Points_Of(Workspace& workspace, Ports& ports, const std::string& path) {
    const auto bytes = Read_File(path);
    XyzFile file;
    if (bytes) {
        file = Read_Xyz(*bytes);
    } else {
        file.Error = "This file does not exist !";
    }
    if (file.Error.empty()) return file.Points;
    ports.Ask.Say(path + "\n" + file.Error, workspace.AppTitle, Icon::Critical);
    return std::nullopt;
}

bool Has_Count(Workspace& workspace, Ports& ports, const std::string& path, std::size_t found, int wanted) {
    if (found == static_cast<std::size_t>(std::max(wanted, 0))) return true;
    ports.Ask.Say(path + " holds " + CStr(static_cast<int>(found)) + " points, the line has " + CStr(wanted),
                  workspace.AppTitle, Icon::Critical);
    return false;
}

void Offer_Xyz_Tool(Workspace& workspace, Ports& ports) {
    if (!ports.Ask.Ask_Yes("Do you want to check the XYZ file ?", workspace.AppTitle)) return;
    const std::string folder = ports.Launch.Program_Folder();
    const std::string tool = folder + "/XYZ_Grid.EXE";
    if (ports.Launch.Start(tool, "", folder) < launch_failure_below)
        ports.Ask.Say(tool + "Unable to shell application:", workspace.AppTitle, Icon::Critical);
}

}  // namespace

SurveyedLine Surveyed_Places(std::span<const XyzPoint> geophones, std::span<const XyzPoint> shots,
                             std::span<const double> shot_places, double first_receiver_place,
                             double line_length) {
    SurveyedLine line;
    line.Receivers = Path_Distances(geophones);
    for (const XyzPoint& shot : shots)
        line.Shots.push_back(Place_On_Path(geophones, shot.X, shot.Y));

    double origin = -first_receiver_place;
    std::optional<double> last_end_shot;
    for (std::size_t i = 0; i < std::min(line.Shots.size(), shot_places.size()); ++i) {
        if (std::abs(shot_places[i]) < same_place) {
            origin = line.Shots[i];
        } else if (std::abs(shot_places[i] - line_length) < same_place) {
            last_end_shot = line.Shots[i];
        }
    }
    line.LineLength =
        last_end_shot ? *last_end_shot - origin : (line.Receivers.empty() ? 0 : line.Receivers.back());
    for (double& place : line.Receivers)
        place -= origin;
    for (double& place : line.Shots)
        place -= origin;
    return line;
}

void Enter_XYZ_Files(Workspace& workspace, Ports& ports) {
    Project& project = workspace.Project;
    const std::string shot_path = ports.Ask.Open_File(Xyz_Request(workspace, "Tarnvik XYZ Shot"));
    if (shot_path.empty()) return;
    const std::string geophone_path = ports.Ask.Open_File(Xyz_Request(workspace, "Tarnvik XYZ Geophone"));
    if (geophone_path.empty()) return;
    Offer_Xyz_Tool(workspace, ports);

    const auto shots = Points_Of(workspace, ports, shot_path);
    if (!shots || !Has_Count(workspace, ports, shot_path, shots->size(), project.NbShots)) return;
    const auto geophones = Points_Of(workspace, ports, geophone_path);
    if (!geophones || !Has_Count(workspace, ports, geophone_path, geophones->size(), project.NbReceivers))
        return;
    if (!project.ShotTimes.Has(project.NbShots, project.NbReceivers)) return;
    if (!ports.Ask.Ask_Yes(
            "Do you want to record the real distance and elevation of geophones in Tarnvik file ?",
            workspace.AppTitle)) {
        return;
    }
    const double spacing =
        Val(ports.Ask.Input("Enter the avearage distance between two geophones", workspace.AppTitle, "5"));
    if (!(spacing > 0)) return;

    const auto receiver_places = Receiver_Places(project);
    const SurveyedLine line =
        Surveyed_Places(*geophones, *shots, Shot_Places(project),
                        receiver_places.empty() ? 0 : receiver_places.front(), project.LineLength);
    std::vector<double> elevations;
    for (const XyzPoint& geophone : *geophones)
        elevations.push_back(geophone.Z);
    EditScope edit(workspace, "XYZ files");
    project.GeoSpace = spacing;
    Store_Receiver_Places(project, line.Receivers);
    Store_Receiver_Elevations(project, elevations);
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        project.ShotDistance(shot) = Filed_Place(line.Shots[static_cast<std::size_t>(shot) - 1]);
        project.ShotElevation(shot) = (*shots)[static_cast<std::size_t>(shot) - 1].Z;
    }
    if (line.LineLength > 0) project.LineLength = Filed_Place(line.LineLength);
    edit.End();
    Save_Geometry(workspace, ports);
}

void Check_XYZ_File(Workspace& workspace, Ports& ports) {
    const std::string path = ports.Ask.Open_File(Xyz_Request(workspace, "Tarnvik XYZ Shot"));
    if (path.empty()) return;
    if (const auto points = Points_Of(workspace, ports, path)) {
        ports.Ask.Say(path + ": " + CStr(static_cast<int>(points->size())) + " points", workspace.AppTitle,
                      Icon::Information);
    }
    Offer_Xyz_Tool(workspace, ports);
}

}  // namespace tarnvik
