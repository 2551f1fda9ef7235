#include "records/record_zoom.h"

#include <algorithm>
#include <utility>

#include "core/text/number.h"
#include "records/record_files.h"
#include "records/record_scroll.h"

namespace tarnvik {

namespace {
constexpr double scale_width = 4;
}  // namespace

void RecordZoom::Arm() {
    Work.Record.ZoomMode = 1;
    Outside.Show.Show_Fields();
}

bool RecordZoom::Enlarged() const {
    const RecordView& record = Work.Record;
    return record.ZoomMode == 1 || record.FirstTrace != record.WholeFirst ||
           record.LastTrace != record.WholeLast || record.FirstSample > 1 ||
           record.LastSample < record.NbSamples;
}

void RecordZoom::Show_All() {
    RecordView& record = Work.Record;
    record.FirstSample = 1;
    Store_If_It_Fits(record.LastSample, record.NbSamples);
    record.ZoomMode = 0;
    Show_Trace_Range(Work, record.WholeFirst, record.WholeLast);
}

void RecordZoom::Show_Whole() {
    Show_All();
    Outside.Show.Display_Record();
    Outside.Show.Show_Fields();
}

void RecordZoom::Refresh() {
    Show_All();
    Work.Record.TraceSizes.clear();
    TextGrid& sizes = Work.Grids.size_grid;
    for (int row = 0; row < sizes.Rows(); ++row)
        sizes.Set_Text(row, 0, "1");
    Outside.Show.Display_Record();
    Outside.Show.Show_Fields();
}

void RecordZoom::Zoom_To(const RecordArea& dragged) {
    RecordView& record = Work.Record;
    record.ZoomMode = 0;
    if (record.RecordWidth <= 0) return;  // no record is on screen
    RecordArea area = dragged.Sorted();
    // The pointer may have left the picture while it was held.
    const double left = record.FirstTrace * trace_width;
    const double right = (record.LastTrace + 1.0) * trace_width;
    if (left < right) {
        area.X1 = std::clamp(area.X1, left, right);
        area.X2 = std::clamp(area.X2, left, right);
    }
    const auto first = CLng(area.X1 / trace_width);
    const auto last = CLng(area.X2 / trace_width - 1);
    if (!first || !last || *last <= *first) {
        Outside.Ask.Say("1 trace, display not Possible", Work.AppTitle);
        Outside.Show.Show_Fields();
        return;
    }
    Show_Trace_Range(Work, *first, *last);
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
    if (record.RecordWidth <= 0) return;  // no record is on screen
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
    Outside.Show.Display_Record();
    picture.Set_Pointer(PointerShape::Cross);
    Outside.Show.Show_Fields();
}

}  // namespace tarnvik
