#include "setup/geometry.h"

#include <algorithm>

#include "core/project_save.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

std::vector<double> Row_Of_Receivers(const Project& project, ReceiverRow row) {
    std::vector<double> values;
    const int last = std::min<int>(project.NbReceivers, project.ReceiverData.Last_Column());
    for (int receiver = 1; receiver <= last; ++receiver)
        values.push_back(project.ReceiverData(row, receiver));
    return values;
}

std::vector<double> Of_Shots(const Project& project, const Array1<double>& of_shots) {
    std::vector<double> values;
    const int last = std::min<int>(project.NbShots, of_shots.Last());
    for (int shot = 1; shot <= last; ++shot)
        values.push_back(of_shots(shot));
    return values;
}

void Store_Row(Project& project, ReceiverRow row, std::span<const double> values) {
    for (int receiver = 1; receiver <= static_cast<int>(values.size()); ++receiver) {
        if (project.ReceiverData.Has(row, receiver))
            project.ReceiverData(row, receiver) =
                static_cast<float>(values[static_cast<std::size_t>(receiver) - 1]);
    }
}

}  // namespace

double Filed_Place(double place) {
    return Rounded(place * 100) / 100;
}

std::vector<double> Receiver_Places(const Project& project) {
    return Row_Of_Receivers(project, ReceiverDistance);
}

std::vector<double> Receiver_Elevations(const Project& project) {
    return Row_Of_Receivers(project, ReceiverElevation);
}

std::vector<double> Shot_Places(const Project& project) {
    return Of_Shots(project, project.ShotDistance);
}

std::vector<double> Shot_Elevations(const Project& project) {
    return Of_Shots(project, project.ShotElevation);
}

void Store_Receiver_Places(Project& project, std::span<const double> places) {
    Store_Row(project, ReceiverDistance, places);
}

void Store_Receiver_Elevations(Project& project, std::span<const double> elevations) {
    Store_Row(project, ReceiverElevation, elevations);
}

bool Save_Geometry(Workspace& workspace, Ports& ports) {
    return Write_Project(workspace, ports, SaveNotice::Told);
}

}  // namespace tarnvik
