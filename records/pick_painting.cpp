#include "records/pick_painting.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "core/text/number.h"
#include "records/record_files.h"
#include "records/record_reading.h"
#include "records/set_pick.h"

namespace tarnvik {

namespace {

constexpr Colour brush_colour = colours::Red;

double Axis(int trace) {
    return trace * trace_width + trace_width / 2;
}

}  // namespace

void PickPainting::Start(double x, double y) {
    Drawing = true;
    Line.assign(1, {x, y});
}

void PickPainting::Move_To(double x, double y) {
    if (!Drawing) return;
    Line.push_back({x, y});
    std::vector<Mark> marks;
    for (std::size_t i = 1; i < Line.size(); ++i) {
        marks.push_back({.X1 = Line[i - 1].X,
                         .Y1 = Line[i - 1].Y,
                         .X2 = Line[i].X,
                         .Y2 = Line[i].Y,
                         .InColour = brush_colour,
                         .Width = 2});
    }
    Outside.Show.Show_Marks(Canvas::Ecran, MarkLayer::Selection, std::move(marks));
}

void PickPainting::End() {
    if (!Drawing) return;
    Drawing = false;
    Outside.Show.Show_Marks(Canvas::Ecran, MarkLayer::Selection, {});
    const RecordView& view = Work.Record;
    std::map<int, double> painted;
    // A hand that goes back paints over what it had painted.
    for (std::size_t i = 0; i < Line.size(); ++i) {
        const Point to = Line[i];
        const Point from = i == 0 ? to : Line[i - 1];
        if (const auto under = Trace_At(view, to.X); under && i + 1 == Line.size() && painted.empty())
            painted[*under] = to.Y;  // a touch without a stroke
        const auto [left, right] = std::minmax(from.X, to.X);
        const auto first = static_cast<int>(std::ceil((left - trace_width / 2) / trace_width));
        const auto last = static_cast<int>(std::floor((right - trace_width / 2) / trace_width));
        for (int trace = std::max(first, view.FirstTrace); trace <= std::min(last, view.LastTrace); ++trace) {
            const double share = right > left ? (Axis(trace) - from.X) / (to.X - from.X) : 1;
            painted[trace] = from.Y + (to.Y - from.Y) * share;
        }
    }
    // The ends of a stroke belong to the traces that they lie on, though they do not reach the axis.
    if (Line.size() > 1 && painted.size() > 1) {
        for (const Point& end : {Line.front(), Line.back()}) {
            const auto trace = Trace_At(view, end.X);
            if (trace && *trace >= view.FirstTrace && *trace <= view.LastTrace)
                painted.emplace(*trace, end.Y);
        }
    }
    Line.clear();
    RecordReading record(Work);
    if (record.Empty()) return;
    EditScope edit(Work, "Paint picks of record " + CStr(double(view.Record)));
    PickSetter picks(Work);
    for (auto [trace, sample] : painted) {
        if (!record.Has(trace) || record.Dead(trace)) continue;
        if (view.Picking.SnapEvery) sample = Snapped(Work, record, trace, sample);
        picks.Set_Trace(trace, std::max(sample * record.Sample_Ms() + view.PickTimeShift, 0.0));
    }
    picks.Tell_Faults("Pick");
    edit.End();
    Outside.Show.Show_Fields();
}

}  // namespace tarnvik
