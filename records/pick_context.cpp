#include "records/pick_context.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "core/text/number.h"
#include "records/record_files.h"

namespace tarnvik {

namespace {

/// Times of one shot along the line, by distance.
class ShotCurve {
  public:
    ShotCurve(const Project& project, int shot) {
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
            if (!project.ShotTimes.Has(shot, receiver) ||
                !project.ReceiverData.Has(ReceiverDistance, receiver))
                continue;
            const double ms = project.ShotTimes(shot, receiver);
            if (ms > 0) Points.emplace_back(project.ReceiverData(ReceiverDistance, receiver), ms);
        }
        std::sort(Points.begin(), Points.end());
    }
    /// Time at a place, on the straight line between the picks beside it; also one receiver beyond the last
    /// pick. Nothing further off.
    std::optional<double> At(double place) const {
        if (Points.size() < 2) return std::nullopt;
        auto behind = std::lower_bound(Points.begin(), Points.end(), std::pair(place, 0.0));
        if (behind == Points.begin()) ++behind;
        if (behind == Points.end()) --behind;
        const auto& [x1, t1] = *(behind - 1);
        const auto& [x2, t2] = *behind;
        const double apart = x2 - x1;
        if (apart <= 0 || place < x1 - apart || place > x2 + apart) return std::nullopt;
        return t1 + (t2 - t1) * (place - x1) / apart;
    }

  private:
    std::vector<std::pair<double, double>> Points;
};

double Axis(double trace) {
    return trace * trace_width + trace_width / 2 + 1;
}

/// Place on the picture of a distance along the line: between the traces beside it, or at the last one where
/// it lies no more than a receiver beyond.
std::optional<double> Place_Of(RecordReading& record, double shot, double distance) {
    std::optional<double> nearest;
    double away = 0;
    for (int trace = record.First(); trace <= record.Last(); ++trace) {
        const auto offset = record.Offset(trace);
        if (!offset) continue;
        const double here = shot + *offset;
        if (trace < record.Last()) {
            const auto next = record.Offset(trace + 1);
            if (next && *next != *offset) {
                const double share = (distance - here) / (*next - *offset);
                if (share >= 0 && share <= 1) return Axis(trace + share);
                if ((trace == record.First() && share < 0 && share >= -1) ||
                    (trace + 1 == record.Last() && share > 1 && share <= 2)) {
                    const double off = share < 0 ? -share : share - 1;
                    if (!nearest || off < away) {
                        nearest = Axis(share < 0 ? trace : trace + 1);
                        away = off;
                    }
                }
            }
        }
    }
    return nearest;
}

class Context {
  public:
    Context(const Workspace& workspace, RecordReading& record)
        : Work(workspace), Record(record), Shot(workspace.Record.Shot) {
        const auto place = record.Layout().Place_Of(record.First());
        if (place) Shot = place->Shot;
    }

    void Neighbours() {
        std::optional<std::pair<double, double>> last;
        for (int trace = Record.First(); trace <= Record.Last(); ++trace) {
            const auto ms = Record.Pick_Ms(trace);
            if (!ms) continue;
            const std::pair here(Axis(trace), *ms / Record.Sample_Ms());
            if (last) Line(*last, here, neighbours_colour, false);
            last = here;
        }
    }

    void Reciprocal() {
        const Project& project = Work.Project;
        if (!project.ShotDistance.Has(Shot)) return;
        for (int other = 1; other <= project.NbShots; ++other) {
            if (other == Shot || project.ShotDistance(other) == project.ShotDistance(Shot)) continue;
            const auto ms = ShotCurve(project, other).At(project.ShotDistance(Shot));
            const auto x = Place_Of(Record, project.ShotDistance(Shot), project.ShotDistance(other));
            if (!ms || !(*ms > 0) || !x) continue;
            const double y = *ms / Record.Sample_Ms();
            Line({*x - trace_width / 2, y}, {*x + trace_width / 2, y}, reciprocal_colour, false);
            Found.push_back(
                {.Shape = Mark::Kind::Dot, .X1 = *x, .Y1 = y, .InColour = reciprocal_colour, .Width = 2});
            Found.push_back({.Shape = Mark::Kind::Text,
                             .X1 = *x + trace_width / 2,
                             .Y1 = y,
                             .InColour = reciprocal_colour,
                             .Words = CStr(other)});
        }
    }

    void Shot_Before() {
        const Project& project = Work.Project;
        if (!project.ShotDistance.Has(Shot) || !project.ShotDistance.Has(Shot - 1)) return;
        const ShotCurve before(project, Shot - 1);
        const double source = project.ShotDistance(Shot - 1);
        std::optional<std::pair<double, double>> last;
        for (int trace = Record.First(); trace <= Record.Last(); ++trace) {
            const auto offset = Record.Offset(trace);
            if (!offset) continue;
            auto ms = before.At(source + *offset);
            // A shot from the other end has the same distances in the other direction.
            if (!ms) ms = before.At(source - *offset);
            if (!ms || !(*ms > 0)) {
                last.reset();
                continue;
            }
            const std::pair here(Axis(trace), *ms / Record.Sample_Ms());
            if (last) Line(*last, here, shot_before_colour, true);
            last = here;
        }
    }

    std::vector<Mark> Found;

  private:
    void Line(std::pair<double, double> from, std::pair<double, double> to, Colour colour, bool dashed) {
        Found.push_back({.Shape = Mark::Kind::Line,
                         .X1 = from.first,
                         .Y1 = from.second,
                         .X2 = to.first,
                         .Y2 = to.second,
                         .InColour = colour,
                         .Dashed = dashed});
    }
    const Workspace& Work;
    RecordReading& Record;
    int Shot;
};

}  // namespace

std::vector<Mark> Context_Marks(const Workspace& workspace, RecordReading& record) {
    if (record.Empty()) return {};
    const PickingView& wanted = workspace.Record.Picking;
    Context context(workspace, record);
    if (wanted.Neighbours) context.Neighbours();
    if (wanted.Reciprocal) context.Reciprocal();
    if (wanted.ShotBefore) context.Shot_Before();
    return std::move(context.Found);
}

}  // namespace tarnvik
