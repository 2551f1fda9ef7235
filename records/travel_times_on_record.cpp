#include <algorithm>
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

void Draw_One(const Workspace& workspace, Picture& ecran, const SpreadLayout& spread, int shot,
              Colour colour) {
    const Project& project = workspace.Project;
    const RecordView& view = workspace.Record;
    bool begun = false;
    double last_x = 0;
    double last_sample = 0;
    double last_distance = 0;
    const std::int64_t end = std::min<std::int64_t>(view.LastTrace, spread.Last_Trace(spread.Records()));
    for (std::int64_t trace = std::max(view.FirstTrace, 1); trace <= end; ++trace) {
        const auto place = spread.Place_Of(trace);
        if (!place || place->Receiver < 1) continue;
        const int receiver = place->Receiver;
        if (!project.ShotTimes.Has(shot, receiver) || !project.ReceiverData.Has(ReceiverDistance, receiver)) {
            continue;
        }
        const auto sample = Sample_Of(project.ShotTimes(shot, receiver), view.SampleInterval);
        if (!sample) continue;
        const double distance = project.ReceiverData(ReceiverDistance, receiver);
        const double x = amplitude_reference * 2 * static_cast<double>(trace) + 1 + amplitude_reference;
        const double source = project.ShotDistance(shot);
        // The two branches of a shot inside the spread are not joined across it, whatever direction the
        // spread was recorded in.
        const bool across =
            std::min(last_distance, distance) <= source && source < std::max(last_distance, distance);
        if (begun && !across) ecran.Line(last_x, last_sample, x, *sample, colour);
        begun = true;
        last_x = x;
        last_sample = *sample;
        last_distance = distance;
    }
}

}  // namespace

void Draw_TT_On_Record(const Workspace& workspace, Picture& ecran, const SpreadLayout& spread,
                       const ShotColour& shot_colour) {
    const Project& project = workspace.Project;
    const std::int32_t selected = workspace.Record.CurveOnRecord;
    const int own = spread.Shot_Of(spread.Record_Of(workspace.Record.FirstTrace));
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        if (selected >= 1 && shot != selected) continue;
        // The picks of the record on screen mark its own curve already.
        if (shot == own || !project.ShotDistance.Has(shot)) continue;
        Draw_One(workspace, ecran, spread, shot, shot_colour ? shot_colour(shot) : colours::Grey);
    }
}

}  // namespace tarnvik
