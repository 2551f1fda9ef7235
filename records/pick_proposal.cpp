#include "records/pick_proposal.h"

#include <algorithm>
#include <cmath>

#include "records/onset.h"

namespace tarnvik {

namespace {

constexpr int furthest_pick = 4;  ///< traces that a pick may lie away to tell of the moveout

/// A first break as a place: distance from the shot without direction, and time in samples.
struct Arrival {
    double Distance = 0;
    double Sample = 0;
};

/// The line's traces by their distance from the shot. Without a geometry they lie one unit apart from the
/// first one on.
class Moveout {
  public:
    Moveout(const Workspace& workspace, RecordReading& record) : Record(record) {
        if (record.Sample_Ms() > 0) Shift = workspace.Record.PickTimeShift;
    }
    double Distance(int trace) const {
        const auto offset = Record.Offset(trace);
        return offset ? std::abs(*offset) : trace - Record.First();
    }
    bool Same_Side(int trace, int other) const {
        const auto here = Record.Offset(trace);
        const auto there = Record.Offset(other);
        return !here || !there || *here * *there >= 0;
    }
    /// Where a click would have to be for the pick that stands.
    std::optional<Arrival> Picked(int trace) {
        const auto ms = Record.Pick_Ms(trace);
        if (!ms) return std::nullopt;
        return Arrival{Distance(trace), (*ms - Shift) / Record.Sample_Ms()};
    }
    static double Continued(const Arrival& last, double slowness, double distance) {
        return last.Sample + slowness * (distance - last.Distance);
    }

  private:
    RecordReading& Record;
    double Shift = 0;
};

/// Samples more for each unit of distance; later arrivals never come from nearer receivers. Across the shot,
/// where the distance hardly changes, what is known stays.
double Slowness(const Arrival& last, const Arrival& before, double known) {
    const double apart = last.Distance - before.Distance;
    if (std::abs(apart) < std::max(last.Distance, before.Distance) * 0.05) return known;
    const double seen = std::max((last.Sample - before.Sample) / apart, 0.0);
    // A curve bends down with the distance; one pick that is off must not carry the next ones away.
    constexpr double steeper = 1.3;
    return known > 0 ? (known + std::min(seen, steeper * known)) / 2 : seen;
}

/// Onset near a place that is the less certain the longer the step to it was; the place itself without one.
double Onset_Beside(std::span<const float> samples, double expected, double step_length, double reach) {
    constexpr double uncertain = 0.6;
    const double place = std::max(expected, 1.0);
    for (const double within : {std::max(reach, uncertain * step_length), 3 * reach}) {
        if (const auto onset = Find_Onset(samples, place, within)) return *onset;
    }
    return place;
}

/// Continues the moveout of the two picks before.
std::optional<double> From_Last_Picks(Moveout& moveout, RecordReading& record, int trace, int step,
                                      double reach) {
    if (step == 0) return std::nullopt;
    std::optional<Arrival> last;
    int last_trace = 0;
    for (int back = 1; back <= furthest_pick; ++back) {
        const int other = trace - step * back;
        if (!record.Has(other)) break;
        const auto pick = moveout.Picked(other);
        if (!pick) continue;
        if (!last) {
            last = pick;
            last_trace = other;
            continue;
        }
        if (!moveout.Same_Side(other, last_trace)) break;
        const double expected = Moveout::Continued(*last, Slowness(*last, *pick, 0), moveout.Distance(trace));
        return Onset_Beside(record.Samples(trace), expected, std::abs(expected - last->Sample), reach);
    }
    return std::nullopt;
}

/// Follows the onsets from the trace nearest to the shot to this one, through the picks on the way.
std::optional<double> Followed(Moveout& moveout, RecordReading& record, int trace, double reach) {
    const auto nearest = Nearest_Arrival(record);
    if (!nearest) return std::nullopt;
    Arrival last =
        moveout.Picked(nearest->Trace).value_or(Arrival{moveout.Distance(nearest->Trace), nearest->Sample});
    // As long as there is one arrival alone, it came straight from the shot.
    double slowness =
        record.Offset(nearest->Trace) && last.Distance > 0 ? std::max(last.Sample, 0.0) / last.Distance : 0;
    bool slope_known = false;
    const int step = trace < nearest->Trace ? -1 : 1;
    for (int at = nearest->Trace; at != trace;) {
        at += step;
        if (record.Dead(at) && at != trace) continue;
        std::optional<Arrival> next = moveout.Picked(at);
        if (!next) {
            const double expected = Moveout::Continued(last, slowness, moveout.Distance(at));
            // The first step, whose slope is not known yet, may be a long one.
            const double step_length = std::abs(expected - last.Sample);
            next = Arrival{moveout.Distance(at), Onset_Beside(record.Samples(at), expected,
                                                              slope_known ? step_length : 3 * reach, reach)};
        }
        slowness = Slowness(*next, last, slowness);
        slope_known = true;
        last = *next;
    }
    return last.Sample;
}

}  // namespace

std::optional<NearestArrival> Nearest_Arrival(RecordReading& record) {
    std::optional<NearestArrival> nearest;
    double distance = 0;
    for (int trace = record.First(); trace <= record.Last(); ++trace) {
        const auto offset = record.Offset(trace);
        const double away = offset ? std::abs(*offset) : trace - record.First();
        if (record.Dead(trace) || (nearest && away >= distance)) continue;
        nearest = NearestArrival{trace, 0};
        distance = away;
    }
    if (!nearest) return std::nullopt;
    const auto arrival = First_Arrival(record.Samples(nearest->Trace), Snap_Reach(record.Sample_Ms()));
    if (!arrival) return std::nullopt;
    nearest->Sample = *arrival;
    return nearest;
}

double Proposed_Sample(const Workspace& workspace, RecordReading& record, int trace, int step) {
    if (record.Empty()) return 1;
    Moveout moveout(workspace, record);
    if (const auto own = moveout.Picked(trace)) return own->Sample;
    const double reach = Snap_Reach(record.Sample_Ms());
    auto expected = From_Last_Picks(moveout, record, trace, step, reach);
    if (!expected) expected = Followed(moveout, record, trace, reach);
    if (!expected) return 1;
    if (workspace.Record.Picking.Feature == SnapTo::Onset) return std::max(*expected, 1.0);
    return Snapped(workspace, record, trace, std::max(*expected, 1.0));
}

}  // namespace tarnvik
