#include "records/picking.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "core/text/number.h"
#include "records/keyboard_picking.h"
#include "records/magnifier.h"
#include "records/polarity_reversal.h"
#include "records/record_files.h"
#include "records/record_reading.h"
#include "records/record_readout.h"
#include "records/set_pick.h"
#include "records/spectrum_area.h"
#include "records/trace_edits.h"

namespace tarnvik {

namespace {

constexpr double drag_pixels = 3;  ///< a hand that trembles less than this has not dragged

/// Trace under a place, if it is one of those on screen: a held pointer may leave the picture.
std::optional<int> Shown_Trace_At(const RecordView& record, double x) {
    const auto trace = Trace_At(record, x);
    if (!trace || *trace < record.FirstTrace || *trace > record.LastTrace) return std::nullopt;
    return trace;
}

}  // namespace

void RecordPointer::Press(const RecordEvent& event) {
    if (event.Button == 2 && Work.Record.AutoPickMode == -1) {
        Automatic.Set_Start(event.X, event.Y);
        return;
    }
    if (Area_Armed()) {
        Outside.Show.Canvas_Of(Canvas::Ecran).Set_Pointer(PointerShape::Cross);
        Band.Start(event.X, event.Y);
        return;
    }
    if (event.Button == 1 && Work.Record.Picking.Painting && !Work.Record.ReverseOnClick) {
        if (Work.Record.RecordWidth > 0) Painting.Start(event.X, event.Y);
        return;
    }
    if (event.Button == 2) {
        RightHeld = true;
        Dragged = false;
        Pressed = event;
    } else if (event.Button == 1) {
        Click(event.X, event.Y, 1);
    }
}

void RecordPointer::Move(const RecordEvent& event) {
    if (Band.Active()) Band.Move_To(Outside.Show.Canvas_Of(Canvas::Ecran), event.X, event.Y);
    Painting.Move_To(event.X, event.Y);
    Read_Out(event);
    Show_Cross_Hair(Work, Outside, event.X, event.Y);
    if (Work.Record.Picking.Magnifier) {
        if (const auto trace = Shown_Trace_At(Work.Record, event.X)) Magnify(Work, *trace, event.Y);
        Show_Magnifier(Work, Outside);
    }
    if (RightHeld && event.Button == 2) Drag(event);
}

void RecordPointer::Release(const RecordEvent& event) {
    if (Band.Active()) {
        Picture& picture = Outside.Show.Canvas_Of(Canvas::Ecran);
        Band.Move_To(picture, event.X, event.Y);
        Band.End(picture);
        const RecordArea area = {Band.X1, Band.Y1, Band.X2, Band.Y2};
        if (Work.Record.SpectrumRequest == 1) {
            Work.Record.SpectrumRequest = 0;
            Show_Spectrum(Work, Outside, area);
            picture.Set_Draw_Width(2);
            picture.Set_Pointer(PointerShape::Arrow);
        } else if (Work.Record.ZoomMode == 1) {
            picture.Set_Pointer(PointerShape::Arrow);
            Zoom.Zoom_To(area);
        }
        return;
    }
    if (Painting.Active()) {
        Painting.End();
        return;
    }
    if (!RightHeld) return;
    RightHeld = false;
    if (Dragged) {
        Outside.Show.Show_Fields();
    } else {
        Click(Pressed.X, Pressed.Y, 2);
    }
}

void RecordPointer::Click(double x, double y, int button) {
    RecordView& record = Work.Record;
    const auto trace = Shown_Trace_At(record, x);
    if (!trace) return;
    record.PickedTrace = *trace;
    if (Work.Record.ReverseOnClick) {
        Reverse_Polarity(Work, Outside, *trace);
        return;
    }
    if (button == 2) {
        const double row = Work.Record.FirstGeophone + Work.Grids.size_grid.CurrentRow;
        // The answer No places a pick, as users know it; a box that was closed does nothing.
        const Answer answer = Outside.Ask.Message("Kill trace " + CStr(row), Work.AppTitle, Icon::Question,
                                                  Buttons::YesNoCancel);
        if (answer == Answer::Cancel) return;
        if (answer == Answer::Yes) {
            Kill_Trace(Work, *trace);
            Outside.Show.Show_Fields();
            return;
        }
    }
    Pick(*trace, y);
}

void RecordPointer::Pick(int trace, double y) {
    PickingView& keys = Work.Record.Picking;
    bool first_pick = false;
    if (keys.SnapEvery || keys.NextRecord) {
        RecordReading record(Work);
        if (record.Has(trace)) {
            if (keys.SnapEvery) y = Snapped(Work, record, trace, y);
            first_pick = !record.Pick_Ms(trace);
        }
    }
    // The keys go on from where the mouse was.
    keys.Trace = trace;
    keys.Sample = y;
    Pick_Trace(Work, trace, y * Work.Record.SampleInterval / 1000 + Work.Record.PickTimeShift);
    Outside.Show.Show_Fields();
    if (first_pick) Go_On_To_Next_Record(Work, Outside, trace);
}

void RecordPointer::Read_Out(const RecordEvent& event) {
    const RecordView& record = Work.Record;
    const auto trace = Trace_At(record, event.X);
    if (!trace) return;
    const int position = *trace - record.FirstTrace + 1;
    Work.Fields.RecordReadout = Record_Read_Out(Work, event.X, event.Y).value_or("");
    // The row beside the pointer is the one that the question before a kill names.
    if (position >= 1 && position <= Work.Grids.size_grid.Rows())
        Work.Grids.size_grid.CurrentRow = position - 1;
    Outside.Show.Show_Fields();
}

/// The pick of the trace under the pointer follows the pointer.
void RecordPointer::Drag(const RecordEvent& event) {
    const Frame frame = Outside.Show.Canvas_Of(Canvas::Ecran).Current_Frame();
    const double across = frame.To_Pixel_X(event.X) - frame.To_Pixel_X(Pressed.X);
    const double down = frame.To_Pixel_Y(event.Y) - frame.To_Pixel_Y(Pressed.Y);
    if (!Dragged && std::hypot(across, down) <= drag_pixels) return;
    const auto trace = Shown_Trace_At(Work.Record, event.X);
    if (!trace) return;
    if (!Dragged) ++Drags;
    Dragged = true;
    PickSetter picks(Work, PickOrigin::Moved);
    const EditScope edit(Work, Trace_Edit_Name("Drag pick of", picks.Layout(), *trace),
                         "drag on record " + CStr(Drags));
    picks.Set_Trace(*trace, Int(std::max(event.Y, 0.0) * Work.Record.SampleInterval / 1000 * 100) / 100);
    picks.Tell_Faults("Pick");
}

}  // namespace tarnvik
