#include <optional>

#include "core/ports/picture.h"
#include "core/text/number.h"
#include "records/record_display.h"

namespace tarnvik {

namespace {

/// Sample of a first-break time above 0.
std::optional<int> Sample_Of(double ms, int sample_interval) {
    if (!(ms > 0) || sample_interval == 0) return std::nullopt;
    return CInt(ms / (sample_interval / 1000.0));
}

void Draw_One(const Workspace& workspace, Picture& ecran, int shot, Colour colour) {
    const Project& project = workspace.Project;
    const RecordView& view = workspace.Record;
    const int first_receiver = First_Receiver_Shown(workspace);
    bool begun = false;
    double last_x = 0;
    double last_sample = 0;
    double last_distance = 0;
    for (std::int64_t trace = view.FirstTrace; trace <= view.LastTrace; ++trace) {
        const std::int64_t place = first_receiver + (trace - view.FirstTrace);
        if (place > project.NbReceivers) break;
        const int receiver = static_cast<int>(place);
        if (!project.ShotTimes.Has(shot, receiver) || !project.ReceiverData.Has(ReceiverDistance, receiver)) {
            continue;
        }
        const auto sample = Sample_Of(project.ShotTimes(shot, receiver), view.SampleInterval);
        if (!sample) continue;
        const double distance = project.ReceiverData(ReceiverDistance, receiver);
        const double x = amplitude_reference * 2 * static_cast<double>(trace) + 1 + amplitude_reference;
        const double source = project.ShotDistance(shot);
        // The two branches of a shot inside the spread are not joined across it.
        const bool across = last_distance <= source && source < distance;
        if (begun && !across) ecran.Line(last_x, last_sample, x, *sample, colour);
        begun = true;
        last_x = x;
        last_sample = *sample;
        last_distance = distance;
    }
}

}  // namespace

int First_Receiver_Shown(const Workspace& workspace) {
    const RecordView& view = workspace.Record;
    const double station = Rounded(Val(workspace.Fields.Text18));
    if (station >= 1 && station <= workspace.Project.NbReceivers) return static_cast<int>(station);
    if (view.ChannelsPerRecord < 1 || view.FirstTrace < 1) return 1;
    return (view.FirstTrace - 1) % view.ChannelsPerRecord + 1;
}

void Draw_TT_On_Record(Workspace& workspace, Picture& ecran, const ShotColour& shot_colour) {
    const Project& project = workspace.Project;
    const double selected = Int(Val(workspace.Fields.Text21));
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        if (selected >= 1 && shot != selected) continue;
        // The picks of the record on screen mark its own curve already.
        if (shot == workspace.Velocity.CurrentShot || !project.ShotDistance.Has(shot)) continue;
        Draw_One(workspace, ecran, shot, shot_colour ? shot_colour(shot) : colours::Grey);
    }
}

}  // namespace tarnvik
