#include "records/record_zoom.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "core/text/number.h"
#include "records/record_display.h"

namespace tarnvik {

namespace {
constexpr double scale_width = 4;
}  // namespace

void RecordZoom::Command4() {
    W.Record.ZoomMode = 1;
    Store_If_It_Fits(W.Record.SavedFirst, Val(W.Fields.Text9));
    Store_If_It_Fits(W.Record.SavedLast, Val(W.Fields.Text10));
    Command4Enabled = false;
    Command17Enabled = true;
    P.Show.Show_Fields();
}

void RecordZoom::Show_All() {
    RecordView& record = W.Record;
    record.FirstSample = 1;
    Store_If_It_Fits(record.LastSample, record.NbSamples);
    record.ZoomMode = 0;
    Command4Enabled = true;
    Command17Enabled = false;
    if (!ZoomedFile.empty() && ZoomedFile == W.Project.SuFile) {
        W.Fields.Text9 = CStr(FullFirst);
        W.Fields.Text10 = CStr(FullLast);
    }
    ZoomedFile.clear();
}

void RecordZoom::Command17() {
    Show_All();
    P.Show.Display_Record();
    P.Show.Show_Fields();
}

void RecordZoom::Command21() {
    Show_All();
    TextGrid& sizes = W.Grids.size_grid;
    for (int row = 0; row < sizes.Rows(); ++row)
        sizes.Set_Text(row, 0, "1");
    W.Record.AmplitudeGain = Val(W.Fields.Text11);
    P.Show.Display_Record();
    P.Show.Show_Fields();
}

void RecordZoom::Show_Neighbour(int step) {
    ScrollBar& scroll = W.Fields.HScroll2;
    const int wanted = scroll.Value + step;
    if (wanted < 1 || wanted > (W.Project.NbShots > 0 ? W.Project.NbShots : scroll.Max)) return;
    scroll.Value = wanted;
    const double traces = static_cast<double>(step) * W.Record.ChannelsPerRecord;
    W.Fields.Text9 = CStr(Val(W.Fields.Text9) + traces);
    W.Fields.Text10 = CStr(Val(W.Fields.Text10) + traces);
    FullFirst += traces;
    FullLast += traces;
    P.Show.Display_Record();
    P.Show.Show_Fields();
}

void RecordZoom::Command24() {
    Show_Neighbour(-1);
}

void RecordZoom::Command23() {
    Show_Neighbour(1);
}

void RecordZoom::Zoom_To(const RecordArea& dragged) {
    RecordView& record = W.Record;
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
        P.Ask.Say("1 trace, display not Possible", W.AppTitle);
        P.Show.Show_Fields();
        return;
    }
    if (ZoomedFile.empty() || ZoomedFile != W.Project.SuFile) {
        FullFirst = Val(W.Fields.Text9);
        FullLast = Val(W.Fields.Text10);
        ZoomedFile = W.Project.SuFile;
    }
    W.Fields.Text9 = CStr(first);
    W.Fields.Text10 = CStr(last);
    const auto top = CInt(std::max(area.Y1, 0.0));
    const auto bottom = CInt(std::min<double>(area.Y2, record.NbSamples));
    if (top && bottom && *top < *bottom) {  // a flat area keeps the samples shown
        record.FirstSample = *top;
        record.LastSample = *bottom;
    }
    P.Show.Display_Record();
    P.Show.Show_Fields();
}

void RecordZoom::Draw_Scale_Line(double y) {
    Picture& scale = P.Show.Canvas_Of(Canvas::Echelle3);
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
    RecordView& record = W.Record;
    auto first = CInt(std::max(ScaleStart, 0.0));
    auto last = CInt(std::max(y, 0.0));
    if (!first || !last) return;
    if (*first > *last) std::swap(first, last);
    last = std::min(*last, record.SamplesWord);
    if (*first >= *last) return;  // a click, no stretch of time
    record.FirstSample = *first;
    record.LastSample = *last;
    record.ClickY2 = y;
    Picture& picture = P.Show.Canvas_Of(Canvas::Ecran);
    picture.Set_Pointer(PointerShape::Hourglass);
    for (const auto& [trace, saved, text] :
         {std::tuple(&record.FirstTrace, &record.SavedFirst, &W.Fields.Text9),
          std::tuple(&record.LastTrace, &record.SavedLast, &W.Fields.Text10)}) {
        if (const auto number = CLng(Val(*text))) *trace = *number;
        Store_If_It_Fits(*saved, Val(*text));
    }
    P.Show.Display_Record();
    picture.Set_Pointer(PointerShape::Cross);
    Command17Enabled = true;
    P.Show.Show_Fields();
}

}  // namespace tarnvik
