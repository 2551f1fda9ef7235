#include "output/horizontal_distances.h"

#include <algorithm>
#include <cmath>

#include "core/end_shots.h"

namespace tarnvik {

namespace {

/// Horizontal leg of a slope; the absolute value serves the ends of the line, where a shot may stand higher
/// above the receiver than it is away from it.
double Horizontal_Leg(double slope, double rise) {
    return std::sqrt(std::abs(slope * slope - rise * rise));
}

double Value_Or_0(const Array1<double>& values, int index) {
    return values.Has(index) ? values(index) : 0;
}

/// Gives the shots between two receivers their horizontal place. `before` is the place of the first receiver
/// as corrected, `after` the place of the second one as it was: the share of the stretch comes to the shot's
/// own distance. Kept, since profiles drawn so far have their shots there.
void Place_Shots_Between(Project& project, int first, int last, double before, double after) {
    for (int shot = first + 1; shot <= last - 1 && project.ShotDistance.Has(shot); ++shot) {
        const double distance = project.ShotDistance(shot);
        if (distance <= before || distance >= after) continue;
        project.ShotDistanceZ(shot) = before + (distance - before) / (after - before) * (after - before);
    }
}

}  // namespace

void Horizontal_Distances(Workspace& workspace, Ports& ports) {
    Project& project = workspace.Project;
    Array2<float>& data = project.ReceiverData;
    int first = 1;
    int last = 1;
    First_Last_End_Shot(project, first, last);
    const int receivers = std::min<int>(project.NbReceivers, data.Last_Column());
    if (receivers < 1) return;

    double as_measured = data(ReceiverDistance, 1);
    const double first_rise = data(ReceiverElevation, 1) - Value_Or_0(project.ShotElevation, first);
    data(ReceiverDistance, 1) = static_cast<float>(Horizontal_Leg(as_measured, first_rise));
    if (project.ShotDistanceZ.Has(first)) project.ShotDistanceZ(first) = 0;

    for (int receiver = 2; receiver <= receivers; ++receiver) {
        // The receiver before already stands at its new place: the correction of one pair moves into the
        // next. Corrected lines in users' files were computed so.
        const double before = data(ReceiverDistance, receiver - 1);
        as_measured = data(ReceiverDistance, receiver);
        const double dx = as_measured - before;
        const double dz =
            static_cast<double>(data(ReceiverElevation, receiver)) - data(ReceiverElevation, receiver - 1);
        Place_Shots_Between(project, first, last, before, as_measured);
        double squared = dx * dx - dz * dz;
        if (squared < 0) {
            ports.Ask.Say("Check your Receiver location and elevation...", workspace.AppTitle, Icon::Warning);
            squared = 0;
        }
        data(ReceiverDistance, receiver) = static_cast<float>(before + std::sqrt(squared));
    }

    if (!project.ShotDistance.Has(last)) return;
    const double last_rise = data(ReceiverElevation, receivers) - project.ShotElevation(last);
    project.ShotDistanceZ(last) = data(ReceiverDistance, receivers) +
                                  Horizontal_Leg(as_measured - project.ShotDistance(last), last_rise);
}

}  // namespace tarnvik
