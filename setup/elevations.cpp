#include "setup/elevations.h"

#include <algorithm>

#include "core/text/number.h"
#include "setup/build_grid.h"
#include "setup/geometry.h"

namespace tarnvik {

namespace {

/// The elevation as the table shows it.
double Shown(double elevation) {
    return Val(Format(elevation, place_format));
}

void Update_Shots(Project& project) {
    const auto places = Receiver_Places(project);
    const auto elevations = Receiver_Elevations(project);
    const int shots = static_cast<int>(Shot_Places(project).size());
    for (int shot = 1; shot <= shots; ++shot) {
        const auto elevation = Elevation_Between(places, elevations, project.ShotDistance(shot));
        if (elevation) project.ShotElevation(shot) = Shown(*elevation);
    }
}

void Update_Receivers(Project& project) {
    const auto places = Shot_Places(project);
    const auto elevations = Shot_Elevations(project);
    auto receivers = Receiver_Elevations(project);
    const auto receiver_places = Receiver_Places(project);
    for (std::size_t i = 0; i < receivers.size(); ++i) {
        const auto elevation = Elevation_Between(places, elevations, receiver_places[i]);
        if (elevation) receivers[i] = Shown(*elevation);
    }
    Store_Receiver_Elevations(project, receivers);
}

}  // namespace

std::optional<double> Elevation_Between(std::span<const double> places, std::span<const double> elevations,
                                        double place) {
    std::optional<std::size_t> below;
    std::optional<std::size_t> above;
    const std::size_t count = std::min(places.size(), elevations.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (places[i] <= place && (!below || places[i] > places[*below])) below = i;
        if (places[i] >= place && (!above || places[i] < places[*above])) above = i;
    }
    if (!below || !above) return std::nullopt;
    if (places[*below] == place) return elevations[*below];
    const double share = (place - places[*below]) / (places[*above] - places[*below]);
    return elevations[*below] + share * (elevations[*above] - elevations[*below]);
}

std::optional<double> Shot_Elevation_From_Receivers(std::span<const double> receiver_places,
                                                    std::span<const double> receiver_elevations,
                                                    double line_length, double shot_place) {
    const std::size_t count = std::min(receiver_places.size(), receiver_elevations.size());
    if (count == 0 || shot_place < 0 || shot_place > line_length) return std::nullopt;
    if (shot_place == 0) return receiver_elevations[0];
    if (shot_place == line_length) return receiver_elevations[count - 1];
    std::size_t passed = 0;
    while (passed < count && receiver_places[passed] <= shot_place)
        ++passed;
    if (passed == 0) return receiver_elevations[0];
    if (passed == count) return receiver_elevations[count - 1];
    const double mean = (receiver_elevations[passed - 1] + receiver_elevations[passed]) / 2;
    return Int(100 * mean) / 100;
}

std::string Elevation_Caption(ElevationUpdate update) {
    return update == ElevationUpdate::ShotsFromReceivers ? "Compute  Shot Z from Z geo"
                                                         : "Compute  Geo Z from Z Shot";
}

void CalculAltiShot(Workspace& workspace, Ports& ports, ElevationUpdate update) {
    const bool of_shots = update == ElevationUpdate::ShotsFromReceivers;
    if (!ports.Ask.Ask_Yes(of_shots ? "Shot elevation update according geophone elevation ?"
                                    : "Receivers elevation update according shot elevation ?",
                           workspace.AppTitle)) {
        return;
    }
    EditScope edit(workspace, of_shots ? "Shot elevations" : "Geophone elevations");
    if (of_shots) {
        Update_Shots(workspace.Project);
    } else {
        Update_Receivers(workspace.Project);
    }
    edit.End();
}

}  // namespace tarnvik
