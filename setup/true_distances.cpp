#include "setup/true_distances.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "core/text/letters.h"
#include "core/text/number.h"
#include "setup/elevations.h"
#include "setup/geometry.h"

namespace tarnvik {

namespace {

/// Asks for the elevation of an offset shot; a cancelled box keeps the one it has.
void Ask_Offset_Elevation(const std::string& title, Ports& ports, int number, double initial,
                          double& elevation) {
    const std::string typed =
        ports.Ask.Input("Enter Offset " + CStr(number) + " elevation:", title, CStr(initial));
    if (!Trim(typed).empty()) elevation = Val(typed);
}

void Elevate_Shots(Project& project, const std::string& title, Ports& ports) {
    const auto places = Receiver_Places(project);
    const auto elevations = Receiver_Elevations(project);
    if (places.empty()) return;
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        const double place = project.ShotDistance(shot);
        if (const auto elevation =
                Shot_Elevation_From_Receivers(places, elevations, project.LineLength, place)) {
            project.ShotElevation(shot) = *elevation;
        } else if (place < 0) {
            Ask_Offset_Elevation(title, ports, 1, elevations.front(), project.ShotElevation(shot));
        } else {
            Ask_Offset_Elevation(title, ports, shot, elevations.back(), project.ShotElevation(shot));
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
    const std::string& title = workspace.AppTitle;
    // All questions are answered on a copy, so that the change itself is one edit, made whole or not at all.
    Project changed = workspace.Project;
    const double spacing = Val(ports.Ask.Input(
        "Enter the avearage distance between geophones, ZERO= Exit module", title, CStr(changed.GeoSpace)));
    if (!(spacing > 0)) return;
    changed.GeoSpace = spacing;
    const std::string first =
        ports.Ask.Input("Enter the distance between End shot 1 and geophones 1 ", title, CStr(spacing / 2));
    if (Trim(first).empty()) return;

    const auto before = Receiver_Places(changed);
    const auto after =
        Places_From_Elevations(Receiver_Elevations(changed), Val(first),
                               changed.ShotElevation.Has(1) ? changed.ShotElevation(1) : 0, spacing);
    if (!after) {
        ports.Ask.Say("Check your Receiver location and elevation...", title, Icon::Critical);
        return;
    }
    Store_Receiver_Places(changed, *after);
    for (int shot = 1; shot <= std::min<int>(changed.NbShots, changed.ShotDistance.Last()); ++shot)
        changed.ShotDistance(shot) =
            Filed_Place(Moved_With_Receivers(before, *after, changed.ShotDistance(shot)));
    changed.LineLength = Filed_Place(Moved_With_Receivers(before, *after, changed.LineLength));
    if (ports.Ask.Ask_Yes("Do you want to interplolate Shot elevation from Geophone elevation", title))
        Elevate_Shots(changed, title, ports);

    EditScope edit(workspace, "Distances according to Z");
    workspace.Project = std::move(changed);
    edit.End();
    if (ports.Ask.Ask_Yes("Do you want to save your modifications", title)) Save_Geometry(workspace, ports);
}

}  // namespace tarnvik
