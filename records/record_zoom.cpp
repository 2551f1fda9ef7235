#include "records/record_zoom.h"

#include <algorithm>
#include <utility>

#include "core/text/number.h"
#include "records/record_display.h"

namespace tarnvik {

namespace {
constexpr double scale_width = 4;
}  // namespace

void RecordZoom::Command4() {
    Work.Record.ZoomMode = 1;
    Command4Enabled = false;
    Command17Enabled = true;
    Outside.Show.Show_Fields();
}

void RecordZoom::Show_All() {
    RecordView& record = Work.Record;
    record.FirstSample = 1;
    Store_If_It_Fits(record.LastSample, record.NbSamples);
    record.ZoomMode = 0;
    Command4Enabled = true;
    Command17Enabled = false;
    if (!ZoomedFile.empty() && ZoomedFile == Work.Project.SuFile) {
        Work.Fields.Text9 = CStr(FullFirst);
        Work.Fields.Text10 = CStr(FullLast);
    }
    ZoomedFile.clear();
}

void RecordZoom::Command17() {
    Show_All();
    Outside.Show.Display_Record();
    Outside.Show.Show_Fields();
}

void RecordZoom::Command21() {
    Show_All();
    TextGrid& sizes = Work.Grids.size_grid;
    for (int row = 0; row < sizes.Rows(); ++row)
        sizes.Set_Text(row, 0, "1");
    Work.Record.AmplitudeGain = Val(Work.Fields.Text11);
    Outside.Show.Display_Record();
    Outside.Show.Show_Fields();
}

void RecordZoom::Show_Neighbour(int step) {
    ScrollBar& scroll = Work.Fields.HScroll2;
    const int wanted = scroll.Value + step;
    if (wanted < 1 || wanted > (Work.Project.NbShots > 0 ? Work.Project.NbShots : scroll.Max)) return;
    scroll.Value = wanted;
    const double traces = static_cast<double>(step) * Work.Record.ChannelsPerRecord;
    Work.Fields.Text9 = CStr(Val(Work.Fields.Text9) + traces);
    Work.Fields.Text10 = CStr(Val(Work.Fields.Text10) + traces);
    FullFirst += traces;
    FullLast += traces;
    Outside.Show.Display_Record();
    Outside.Show.Show_Fields();
}

void RecordZoom::Command24() {
    Show_Neighbour(-1);
}

void RecordZoom::Command23() {
    Show_Neighbour(1);
}

void RecordZoom::Zoom_To(const RecordArea& dragged) {
    RecordView& record = Work.Record;
    record.ZoomMode = 0;
    RecordArea area = dragged.Sorted();
    // The pointer may have left the picture while it was held.
    const double left = record.FirstTrace * trace_width;
    const double right = (record.LastTrace + 1.0) * trace_width;
    if (left < right) {
        area.X1 = std::clamp(area.X1, left, right);
        area.X2 = std::clamp(area.X2, left, right);
    }
    const double first = Rounded(area.X1 / trace_width);
    const double last = Rounded(area.X2 / trace_width) - 1;
    if (last <= first) {
        Command4Enabled = true;
        Command17Enabled = !ZoomedFile.empty();
        Outside.Ask.Say("1 trace, display not Possible", Work.AppTitle);
        Outside.Show.Show_Fields();
        return;
    }
    if (ZoomedFile.empty() || ZoomedFile != Work.Project.SuFile) {
        FullFirst = Val(Work.Fields.Text9);
        FullLast = Val(Work.Fields.Text10);
        ZoomedFile = Work.Project.SuFile;
    }
    Work.Fields.Text9 = CStr(first);
    Work.Fields.Text10 = CStr(last);
    const auto top = CInt(std::max(area.Y1, 0.0));
    const auto bottom = CInt(std::min<double>(area.Y2, record.NbSamples));
    if (top && bottom && *top < *bottom) {  // a flat area keeps the samples shown
        record.FirstSample = *top;
        record.LastSample = *bottom;
    }
    Outside.Show.Display_Record();
    Outside.Show.Show_Fields();
}

void RecordZoom::Draw_Scale_Line(double y) {
    Picture& scale = Outside.Show.Canvas_Of(Canvas::Echelle3);
    scale.Set_Draw_Mode(DrawMode::Xor);
    scale.Line(0, y, scale_width, y, colours::White);
    scale.Set_Draw_Mode(DrawMode::Copy);
    LineAt = y;
}

void RecordZoom::Scale_Press(double y) {
    ScaleHeld = true;
    LineDrawn = false;
    ScaleStart = y;
}

void RecordZoom::Scale_Move(double y) {
    if (!ScaleHeld) return;
    if (LineDrawn) Draw_Scale_Line(LineAt);
    Draw_Scale_Line(y);
    LineDrawn = true;
}

void RecordZoom::Scale_Release(double y) {
    if (!ScaleHeld) return;
    ScaleHeld = false;
    if (LineDrawn) Draw_Scale_Line(LineAt);
    LineDrawn = false;
    RecordView& record = Work.Record;
    auto first = CInt(std::max(ScaleStart, 0.0));
    auto last = CInt(std::max(y, 0.0));
    if (!first || !last) return;
    if (*first > *last) std::swap(first, last);
    last = std::min(*last, record.SamplesWord);
    if (*first >= *last) return;  // a click, no stretch of time
    record.FirstSample = *first;
    record.LastSample = *last;
    Picture& picture = Outside.Show.Canvas_Of(Canvas::Ecran);
    picture.Set_Pointer(PointerShape::Hourglass);
    if (const auto trace = CLng(Val(Work.Fields.Text9))) record.FirstTrace = *trace;
    if (const auto trace = CLng(Val(Work.Fields.Text10))) record.LastTrace = *trace;
    Outside.Show.Display_Record();
    picture.Set_Pointer(PointerShape::Cross);
    Command17Enabled = true;
    Outside.Show.Show_Fields();
}

}  // namespace tarnvik
