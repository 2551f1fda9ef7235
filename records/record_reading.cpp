#include "records/record_reading.h"

#include <algorithm>

#include "records/onset.h"

namespace tarnvik {

namespace {
constexpr double snap_reach_ms = 6;
}  // namespace

RecordReading::RecordReading(const Workspace& workspace)
    : RecordReading(workspace, workspace.Record.WholeFirst, workspace.Record.WholeLast) {}

RecordReading::RecordReading(const Workspace& workspace, std::int64_t first, std::int64_t last)
    : Work(workspace),
      File(Su_Path(workspace.Project)),
      FirstTrace(static_cast<int>(std::max<std::int64_t>(first, 1))),
      LastTrace(
          static_cast<int>(std::min<std::int64_t>(last, File.Is_Open() ? File.Nb_Traces().value_or(0) : 0))),
      Interval(File.Sample_Interval() / 1000.0),
      Spread(workspace, File, FirstTrace, std::max(FirstTrace, LastTrace)) {}

std::optional<double> RecordReading::Pick_Ms(int trace) {
    double ms = File.Pick_Ms(trace);
    const auto place = Spread.Place_Of(trace);
    if (place && place->Shot >= 1 && place->Receiver >= 1 &&
        Work.Project.ShotTimes.Has(place->Shot, place->Receiver)) {
        ms = Work.Project.ShotTimes(place->Shot, place->Receiver);
    }
    if (!(ms > 0)) return std::nullopt;
    return ms;
}

std::optional<double> RecordReading::Offset(int trace) const {
    const Project& project = Work.Project;
    const auto place = Spread.Place_Of(trace);
    if (!place || place->Shot < 1 || place->Receiver < 1 || !project.ShotDistance.Has(place->Shot) ||
        !project.ReceiverData.Has(ReceiverDistance, place->Receiver))
        return std::nullopt;
    return double{project.ReceiverData(ReceiverDistance, place->Receiver)} -
           project.ShotDistance(place->Shot);
}

std::span<const float> RecordReading::Samples(int trace) {
    Buffer.resize(static_cast<std::size_t>(std::max(0, File.Nb_Samples())));
    const auto read = static_cast<std::size_t>(File.Samples(trace, Buffer));
    return std::span<const float>(Buffer).first(read);
}

double Snap_Reach(double sample_ms) {
    return sample_ms > 0 ? std::max(snap_reach_ms / sample_ms, 3.0) : 3.0;
}

double Snapped(const Workspace& workspace, RecordReading& record, int trace, double sample) {
    if (record.Empty()) return sample;
    return Find_Feature(workspace.Record.Picking.Feature, record.Samples(trace), sample,
                        Snap_Reach(record.Sample_Ms()))
        .value_or(sample);
}

}  // namespace tarnvik
