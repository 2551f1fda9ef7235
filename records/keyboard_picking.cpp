#include "records/keyboard_picking.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/text/number.h"
#include "records/magnifier.h"
#include "records/pick_context.h"
#include "records/pick_proposal.h"
#include "records/record_choice.h"
#include "records/record_files.h"
#include "records/record_reading.h"
#include "records/trace_edits.h"

namespace tarnvik {

namespace {
constexpr Colour cursor_colour = 0xD07000;  // a blue that is no pick's
}  // namespace

bool KeyboardPicking::Ready() const {
    return Work.Record.RecordWidth > 0 && Work.Record.SampleInterval > 0 && Work.Record.NbTraces > 0;
}

/// False when the key was the one that shows the cursor.
bool KeyboardPicking::Wake() {
    if (!Ready()) return false;
    if (Work.Record.Picking.Active) return true;
    Work.Record.Picking.Active = true;
    Start();
    Follow();
    Outside.Show.Show_Fields();
    return false;
}

void KeyboardPicking::Start() {
    RecordReading record(Work);
    if (record.Empty()) return;
    PickingView& cursor = Work.Record.Picking;
    if (record.Has(cursor.Trace)) return;  // where the mouse picked last
    int trace = std::max(record.First(), Work.Record.FirstTrace);
    while (trace < record.Last() && record.Dead(trace))
        ++trace;
    cursor.Trace = trace;
    cursor.Sample = Proposed_Sample(Work, record, trace, 0);
}

void KeyboardPicking::Go_To(int trace, int step) {
    RecordReading record(Work);
    if (!record.Has(trace)) return;
    Work.Record.Picking.Trace = trace;
    Work.Record.Picking.Sample = Proposed_Sample(Work, record, trace, step);
}

void KeyboardPicking::Move(int traces, int samples) {
    if (!Wake()) return;
    PickingView& cursor = Work.Record.Picking;
    if (traces != 0) {
        const int target = std::clamp(cursor.Trace + traces, Work.Record.WholeFirst, Work.Record.WholeLast);
        if (target != cursor.Trace) Go_To(target, traces > 0 ? 1 : -1);
    }
    // From the full sample that it stands nearest to: a snapped cursor stands between them.
    if (samples != 0)
        cursor.Sample = std::clamp(std::round(cursor.Sample) + samples, 1.0,
                                   std::max(1.0, double(Work.Record.NbSamples)));
    Bring_Into_Sight();
    Follow();
    Outside.Show.Show_Fields();
}

void KeyboardPicking::Pick() {
    if (!Wake()) return;
    PickingView& cursor = Work.Record.Picking;
    const int trace = cursor.Trace;
    double sample = cursor.Sample;
    int next = trace;
    {
        RecordReading record(Work);
        if (!record.Has(trace)) return;
        if (cursor.SnapEvery) sample = Snapped(Work, record, trace, sample);
        cursor.Sample = sample;
        for (int behind = trace + 1; behind <= record.Last() && next == trace; ++behind) {
            if (!record.Dead(behind)) next = behind;
        }
    }
    Pick_Trace(Work, trace, sample * Work.Record.SampleInterval / 1000 + Work.Record.PickTimeShift);
    if (next != trace) {
        Go_To(next, 1);
        Bring_Into_Sight();
    } else if (!Go_On_To_Next_Record(Work, Outside, Work.Record.WholeLast) && Work.Fields.Status.empty()) {
        Work.Fields.Status = "This is the last trace of the record: PageDown shows the next one";
    }
    Follow();
    Outside.Show.Show_Fields();
}

void KeyboardPicking::Remove() {
    if (!Wake()) return;
    Remove_Pick(Work, Work.Record.Picking.Trace);
    Follow();
    Outside.Show.Show_Fields();
}

void KeyboardPicking::Kill_Or_Revive() {
    if (!Wake()) return;
    const int trace = Work.Record.Picking.Trace;
    if (RecordReading(Work).Dead(trace)) {
        Revive_Trace(Work, trace);
    } else {
        Kill_Trace(Work, trace);
    }
    Follow();
    Outside.Show.Show_Fields();
}

void KeyboardPicking::Snap() {
    if (!Wake()) return;
    PickingView& cursor = Work.Record.Picking;
    RecordReading record(Work);
    if (!record.Has(cursor.Trace)) return;
    const double snapped = Snapped(Work, record, cursor.Trace, cursor.Sample);
    if (snapped == cursor.Sample) Work.Fields.Status = "Nothing else to snap to beside the cursor";
    cursor.Sample = snapped;
    Bring_Into_Sight();
    Follow();
    Outside.Show.Show_Fields();
}

void KeyboardPicking::Choose(SnapTo feature) {
    Work.Record.Picking.Feature = feature;
    Outside.Show.Show_Fields();
}

void KeyboardPicking::Toggle(bool PickingView::*choice) {
    bool& value = Work.Record.Picking.*choice;
    value = !value;
    Follow();
    Outside.Show.Show_Fields();
}

void KeyboardPicking::Leave() {
    Work.Record.Picking.Active = false;
    Follow();
}

/// Where only a part of the record is in sight the part moves with the cursor.
void KeyboardPicking::Bring_Into_Sight() {
    RecordView& view = Work.Record;
    const PickingView& cursor = view.Picking;
    std::int32_t traces = 0;
    if (cursor.Trace < view.FirstTrace) traces = cursor.Trace - view.FirstTrace;
    if (cursor.Trace > view.LastTrace) traces = cursor.Trace - view.LastTrace;
    int samples = 0;
    const int height = view.LastSample - view.FirstSample;
    if (cursor.Sample < view.FirstSample || cursor.Sample > view.LastSample) {
        const int first = std::clamp<int>(static_cast<int>(cursor.Sample) - height / 2, 1,
                                          std::max(1, view.NbSamples - height));
        samples = first - view.FirstSample;
    }
    if (traces == 0 && samples == 0) return;
    view.FirstTrace += traces;
    view.LastTrace += traces;
    view.FirstSample = static_cast<std::int16_t>(view.FirstSample + samples);
    view.LastSample = static_cast<std::int16_t>(view.LastSample + samples);
    Outside.Show.Display_Record();
}

void KeyboardPicking::Show_Cursor() {
    const RecordView& view = Work.Record;
    const PickingView& cursor = view.Picking;
    std::vector<Mark> marks;
    if (cursor.Active && cursor.Trace >= view.FirstTrace && cursor.Trace <= view.LastTrace) {
        const double axis = cursor.Trace * trace_width + trace_width / 2 + 1;
        const double half = trace_width / 2;
        marks.push_back({.X1 = axis,
                         .Y1 = double(view.FirstSample),
                         .X2 = axis,
                         .Y2 = double(view.LastSample),
                         .InColour = cursor_colour,
                         .Dashed = true});
        marks.push_back({.X1 = axis - half,
                         .Y1 = cursor.Sample,
                         .X2 = axis + half,
                         .Y2 = cursor.Sample,
                         .InColour = cursor_colour,
                         .Width = 2});
        const double ms = Int(cursor.Sample * view.SampleInterval / 1000 * 100) / 100;
        Work.Fields.RecordReadout = CStr(ms) + "ms   Trace:" + CStr(cursor.Trace);
    }
    Outside.Show.Show_Marks(Canvas::Ecran, MarkLayer::Cursor, std::move(marks));
}

void KeyboardPicking::Follow() {
    PickingView& cursor = Work.Record.Picking;
    if (!Ready()) {
        Outside.Show.Show_Marks(Canvas::Ecran, MarkLayer::Context, {});
        Outside.Show.Show_Marks(Canvas::Ecran, MarkLayer::Cursor, {});
        return;
    }
    const RecordView& view = Work.Record;
    if (cursor.Active && (cursor.Trace < view.WholeFirst || cursor.Trace > view.WholeLast)) Start();
    RecordReading record(Work);
    Outside.Show.Show_Marks(Canvas::Ecran, MarkLayer::Context, Context_Marks(Work, record));
    Show_Cursor();
    if (cursor.Magnifier && cursor.Active) Magnify(Work, cursor.Trace, cursor.Sample);
    if (cursor.Magnifier) Show_Magnifier(Work, Outside);
}

bool Go_On_To_Next_Record(Workspace& workspace, Ports& ports, int trace) {
    const RecordView& view = workspace.Record;
    if (!view.Picking.NextRecord || trace != view.WholeLast || !Has_Neighbour(workspace, 1)) return false;
    Go_To_Neighbour(workspace, ports, 1);
    return true;
}

}  // namespace tarnvik
