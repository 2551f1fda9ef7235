#include "records/picking.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "core/fault.h"
#include "core/text/number.h"
#include "records/polarity_reversal.h"
#include "records/record_display.h"
#include "records/record_files.h"
#include "records/spectrum_area.h"

namespace tarnvik {

namespace {

constexpr double drag_pixels = 3;  ///< a hand that trembles less than this has not dragged

/// Sample interval in ms; 0 while none is known.
double Interval(const RecordView& record) {
    return record.SampleInterval / 1000.0;
}

/// Trace under a place, if it is one of those on screen: a held pointer may leave the picture.
std::optional<int> Shown_Trace_At(const RecordView& record, double x) {
    const auto trace = Trace_At(record, x);
    if (!trace || *trace < record.FirstTrace || *trace > record.LastTrace) return std::nullopt;
    return trace;
}

}  // namespace

void RecordPointer::Redraw() {
    Outside.Show.Show_Curves();
    Outside.Show.Display_Record();
    Outside.Show.Show_Fields();
}

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
    Read_Out(event);
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
    if (!RightHeld) return;
    RightHeld = false;
    if (Dragged) {
        Redraw();
    } else {
        Click(Pressed.X, Pressed.Y, 2);
    }
}

/// Place of a trace's pick in the project.
RecordPointer::Cell RecordPointer::Cell_Of(int trace) {
    const RecordView& record = Work.Record;
    const int channels = record.ChannelsPerRecord;
    const int record_number = Work.Fields.HScroll2.Value;
    double receiver = First_Receiver_Shown(Work) + trace - Val(Work.Fields.Text9);
    if (Work.Fields.Check8) {
        // Counted from the other end of the record.
        const double field_channel = static_cast<double>(channels) * record_number - trace + 1;
        receiver = Work.Fields.Check2 ? field_channel + Val(Work.Fields.Text18) - 1 : field_channel;
    }
    Cell cell;
    cell.Shot = Work.Fields.Check2 ? CInt(Val(Work.Fields.Text13)).value_or(0) : record_number;
    cell.Receiver = CInt(receiver).value_or(0);
    return cell;
}

void RecordPointer::Click(double x, double y, int button) {
    RecordView& record = Work.Record;
    const auto trace = Shown_Trace_At(record, x);
    if (!trace) return;
    if (Work.Fields.Check16) {
        Reverse_Polarity(Work, Outside, *trace);
        return;
    }
    RecordFiles files(Work);
    if (Interval(record) > 0) y += record.PickTimeShift / Interval(record);
    const Cell cell = Cell_Of(*trace);
    // Any click, also one that asks for a kill, first brings a dead trace back to life.
    files.Set_Word(*trace, words::trid, live_trace);
    if (button == 2 && Kill(*trace, cell, files)) return;
    Pick(*trace, cell, y, files);
}

/// Asks whether to kill the trace. False when the answer is no: the click then places a pick, which is meant.
bool RecordPointer::Kill(int trace, const Cell& cell, RecordFiles& files) {
    const double row = Val(Work.Fields.Text18) + Work.Grids.size_grid.CurrentRow;
    if (!Outside.Ask.Ask_Yes("Kill trace " + CStr(row), Work.AppTitle)) return false;
    files.Set_Word(trace, words::trid, dead_trace);
    files.Set_Word(trace, words::First_Breaks, 0);
    files.Tell_Faults("Kill");
    if (cell.Receiver >= 1 && cell.Shot >= 1) {
        if (Work.Project.ShotTimes.Has(cell.Shot, cell.Receiver)) {
            Work.Project.ShotTimes(cell.Shot, cell.Receiver) = 0;
        }
        Work.Grids.Buildgrid.Set_Text(cell.Receiver, cell.Shot, "0.00");
    }
    Outside.Show.Display_Record();
    Read_Times_From_Grid(Work);
    Outside.Show.Show_Curves();
    Outside.Show.Show_Fields();
    return true;
}

void RecordPointer::Pick(int trace, const Cell& cell, double y, RecordFiles& files) {
    Picture& picture = Outside.Show.Canvas_Of(Canvas::Ecran);
    const double ms = y * Work.Record.SampleInterval / 1000;
    files.Set_Word(trace, words::First_Breaks, ms * 10);
    files.Tell_Faults("Pick");
    picture.Set_Draw_Width(3);
    const double left = trace * trace_width;
    picture.Line(left, y, left + trace_width, y, colours::Red);
    Store_Time(cell, ms);
    Redraw();
    picture.Set_Pointer(PointerShape::Cross);
}

void RecordPointer::Store_Time(const Cell& cell, double ms) {
    const std::string text = Format(ms, "##00.00");
    // One column further than the shot's own, as ever; the redraw of the curves fills the table from
    // ShotTimes.
    if (cell.Receiver >= 1 && cell.Shot >= 1 && Work.Grids.Buildgrid.Has(cell.Receiver, cell.Shot + 1)) {
        TextGrid::Cell& shown = Work.Grids.Buildgrid.At(cell.Receiver, cell.Shot + 1);
        shown.Text = text;
        shown.ForeColour = colours::Black;
        shown.Align = TextGrid::Alignment::Right;
    }
    Array2<float>& times = Work.Project.ShotTimes;
    if (cell.Receiver >= 1 && cell.Shot >= 1 && times.Has(cell.Shot, cell.Receiver)) {
        times(cell.Shot, cell.Receiver) = static_cast<float>(Val(text));
    } else if (Work.Project.NbShots > 0) {
        Work.Fields.Status = "Pick in the SU file only: the project has no receiver " + CStr(cell.Receiver) +
                             " of shot " + CStr(cell.Shot);
    }
}

void RecordPointer::Read_Out(const RecordEvent& event) {
    const RecordView& record = Work.Record;
    const auto trace = Trace_At(record, event.X);
    if (!trace) return;
    const double ms = Int(event.Y * record.SampleInterval / 1000 * 100) / 100;
    const int position = *trace - record.FirstTrace + 1;
    Work.Fields.RecordReadout = CStr(ms) + "ms   Trace:" + CStr(position + Val(Work.Fields.Text9) - 1);
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
    Dragged = true;
    {
        RecordFiles files(Work);
        const double ms = Int(std::max(event.Y, 0.0) * Work.Record.SampleInterval / 1000 * 100) / 100;
        files.Set_Word(*trace, words::First_Breaks, ms * 10);
        files.Tell_Faults("Pick");
        Store_Time(Cell_Of(*trace), ms);
    }
    Outside.Show.Display_Record();
}

}  // namespace tarnvik
