#include "setup/true_distances.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/text/letters.h"
#include "core/text/number.h"
#include "setup/build_grid.h"
#include "setup/elevations.h"
#include "setup/geometry.h"

namespace tarnvik {

namespace {

/// Asks for the elevation of an offset shot; a cancelled box keeps the one it has.
void Ask_Offset_Elevation(Workspace& workspace, Ports& ports, int shot, int number, double initial) {
    const std::string typed =
        ports.Ask.Input("Enter Offset " + CStr(number) + " elevation:", workspace.AppTitle, CStr(initial));
    if (!Trim(typed).empty()) workspace.Project.ShotElevation(shot) = Val(typed);
}

void Elevate_Shots(Workspace& workspace, Ports& ports) {
    Project& project = workspace.Project;
    const auto places = Receiver_Places(project);
    const auto elevations = Receiver_Elevations(project);
    if (places.empty()) return;
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        const double place = project.ShotDistance(shot);
        if (const auto elevation =
                Shot_Elevation_From_Receivers(places, elevations, project.LineLength, place)) {
            project.ShotElevation(shot) = *elevation;
        } else if (place < 0) {
            Ask_Offset_Elevation(workspace, ports, shot, 1, elevations.front());
        } else {
            Ask_Offset_Elevation(workspace, ports, shot, shot, elevations.back());
        }
    }
}

}  // namespace

std::optional<std::vector<double>> Places_From_Elevations(std::span<const double> elevations,
                                                          double first_distance, double shot_elevation,
                                                          double spacing) {
    std::vector<double> places;
    if (elevations.empty()) return places;
    const double first_step = shot_elevation - elevations[0];
    places.push_back(std::sqrt(std::abs(first_distance * first_distance - first_step * first_step)));
    for (std::size_t i = 1; i < elevations.size(); ++i) {
        const double step = elevations[i] - elevations[i - 1];
        const double square = spacing * spacing - step * step;
        if (!(square >= 0)) return std::nullopt;
        places.push_back(places.back() + std::sqrt(square));
    }
    return places;
}

double Moved_With_Receivers(std::span<const double> before, std::span<const double> after, double place) {
    const std::size_t count = std::min(before.size(), after.size());
    if (count == 0 || place <= 0) return place;
    if (place < before[0]) return place / before[0] * after[0];
    for (std::size_t i = 0; i + 1 < count; ++i) {
        if (before[i] <= place && place < before[i + 1]) {
            const double share = (place - before[i]) / (before[i + 1] - before[i]);
            return after[i] + share * (after[i + 1] - after[i]);
        }
    }
    return place + after[count - 1] - before[count - 1];
}

void Compute_Distances_According_To_Z(Workspace& workspace, Ports& ports) {
    Project& project = workspace.Project;
    Read_Grid(workspace);
    const double spacing =
        Val(ports.Ask.Input("Enter the avearage distance between geophones, ZERO= Exit module",
                            workspace.AppTitle, CStr(project.GeoSpace)));
    if (!(spacing > 0)) return;
    project.GeoSpace = spacing;
    const std::string first = ports.Ask.Input("Enter the distance between End shot 1 and geophones 1 ",
                                              workspace.AppTitle, CStr(spacing / 2));
    if (Trim(first).empty()) return;

    const auto before = Receiver_Places(project);
    const auto after =
        Places_From_Elevations(Receiver_Elevations(project), Val(first),
                               project.ShotElevation.Has(1) ? project.ShotElevation(1) : 0, spacing);
    if (!after) {
        ports.Ask.Say("Check your Receiver location and elevation...", workspace.AppTitle, Icon::Critical);
        return;
    }
    Store_Receiver_Places(project, *after);
    for (int shot = 1; shot <= std::min<int>(project.NbShots, project.ShotDistance.Last()); ++shot)
        project.ShotDistance(shot) =
            Filed_Place(Moved_With_Receivers(before, *after, project.ShotDistance(shot)));
    project.LineLength = Filed_Place(Moved_With_Receivers(before, *after, project.LineLength));
    workspace.Fields.Text6 = CStr(project.LineLength);
    Show_Geometry(workspace, ports);

    if (ports.Ask.Ask_Yes("Do you want to interplolate Shot elevation from Geophone elevation",
                          workspace.AppTitle)) {
        Elevate_Shots(workspace, ports);
        Show_Geometry(workspace, ports);
    }
    if (ports.Ask.Ask_Yes("Do you want to save your modifications", workspace.AppTitle))
        Save_Geometry(workspace, ports);
}

}  // namespace tarnvik
