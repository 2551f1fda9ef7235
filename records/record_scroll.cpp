#include "records/record_scroll.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "core/text/number.h"
#include "records/record_files.h"
#include "records/trace_range.h"

namespace tarnvik {

namespace {

constexpr double wheel_factor = 1.25;
constexpr double pan_share = 0.1;  ///< of what is shown, for one step
constexpr int least_samples = 8;
constexpr int least_traces = 2;
constexpr double smallest_gain = 0.001;
constexpr double largest_gain = 1e6;

int Whole(double value) {
    return static_cast<int>(std::lround(std::clamp(value, -1e9, 1e9)));
}

/// A number typed in error may be any; the sums of these still fit.
int Near(int trace) {
    constexpr int far_trace = 500'000'000;
    return std::clamp(trace, -far_trace, far_trace);
}

}  // namespace

Stretch Enlarged(Stretch shown, Stretch whole, double share, double factor, int least) {
    const int length = shown.Length();
    const int most = whole.Length();
    if (length <= 0 || most <= 0 || !(factor > 0) || !std::isfinite(factor)) return shown;
    const int smallest = std::min(least, most);
    int wanted = Whole(length / factor);
    if (wanted == length && factor != 1) wanted += factor > 1 ? -1 : 1;
    wanted = std::clamp(wanted, smallest, most);
    const int first = Whole(shown.First + std::clamp(share, 0.0, 1.0) * (length - wanted));
    return Moved({first, first + wanted}, whole, 0);
}

Stretch Moved(Stretch shown, Stretch whole, int by) {
    const int length = std::min(shown.Length(), whole.Length());
    const int first = std::clamp(shown.First + by, whole.First, whole.End - length);
    return {first, first + length};
}

void Show_Trace_Range(Workspace& workspace, int first, int last, int record_start) {
    RecordView& view = workspace.Record;
    TextGrid& sizes = workspace.Grids.size_grid;
    for (int row = 0; row < sizes.Rows(); ++row) {
        const std::string text = sizes.Text(row, 0);
        if (!text.empty()) view.TraceSizes[Near(view.FirstTrace) - Near(view.WholeFirst) + row] = text;
    }
    view.FirstTrace = first;
    view.LastTrace = last;
    view.WholeFirst = record_start;
    // Before the first drawing there are no factors, which fills the rows itself.
    if (sizes.Rows() == 0) return;
    const std::int64_t traces = std::int64_t{last} - first + 1;
    sizes.Resize(static_cast<int>(std::clamp<std::int64_t>(traces, 0, most_size_rows)), 1);
    for (int row = 0; row < sizes.Rows(); ++row) {
        const auto known = view.TraceSizes.find(Near(first) - Near(view.WholeFirst) + row);
        sizes.Set_Text(row, 0, known == view.TraceSizes.end() ? "1" : known->second);
    }
}

void Show_Trace_Range(Workspace& workspace, int first, int last) {
    Show_Trace_Range(workspace, first, last, workspace.Record.WholeFirst);
}

Stretch RecordScroll::Samples() const {
    return {Work.Record.FirstSample, Work.Record.LastSample};
}

Stretch RecordScroll::All_Samples() const {
    return {1, std::max<int>(Work.Record.NbSamples, Work.Record.LastSample)};
}

Stretch RecordScroll::Traces() const {
    return {Near(Work.Record.FirstTrace), Near(Work.Record.LastTrace) + 1};
}

Stretch RecordScroll::All_Traces() const {
    // A range that was typed may reach beyond the record.
    const RecordView& view = Work.Record;
    return {Near(std::min(view.WholeFirst, view.FirstTrace)),
            Near(std::max(view.WholeLast, view.LastTrace)) + 1};
}

void RecordScroll::Show(Stretch samples, Stretch traces) {
    if (!Has_Record() || (samples == Samples() && traces == Traces())) return;
    RecordView& view = Work.Record;
    view.FirstSample = static_cast<std::int16_t>(samples.First);
    view.LastSample = static_cast<std::int16_t>(samples.End);
    Show_Trace_Range(Work, traces.First, traces.End - 1);
    Outside.Show.Display_Record();
}

void RecordScroll::Enlarge_Time(double sample, double steps) {
    const Stretch shown = Samples();
    if (shown.Length() <= 0) return;
    const double share = (sample - shown.First) / shown.Length();
    Show(Enlarged(shown, All_Samples(), share, std::pow(wheel_factor, steps), least_samples), Traces());
}

void RecordScroll::Enlarge_Traces(double x, double steps) {
    const Stretch shown = Traces();
    if (shown.Length() <= 0) return;
    const double share = (x / trace_width - shown.First) / shown.Length();
    Show(Samples(), Enlarged(shown, All_Traces(), share, std::pow(wheel_factor, steps), least_traces));
}

void RecordScroll::Pan(double steps) {
    const bool through_time = Samples() != All_Samples();
    const Stretch shown = through_time ? Samples() : Traces();
    const double way = std::max(1.0, pan_share * shown.Length()) * -steps + PartOfStep;
    const double whole = std::trunc(way);
    PartOfStep = way - whole;
    if (through_time) {
        Show(Moved(shown, All_Samples(), Whole(whole)), Traces());
    } else {
        Show(Samples(), Moved(shown, All_Traces(), Whole(whole)));
    }
}

void RecordScroll::Turn_Gain(double steps) {
    if (!Has_Record() || steps == 0) return;
    const double gain = Work.Record.AmplitudeGain == 0 ? 1 : Work.Record.AmplitudeGain;
    const double wanted =
        std::clamp(std::abs(gain) * std::pow(wheel_factor, steps), smallest_gain, largest_gain);
    // Two digits, as one would type it; a short way is made all the same.
    const double unit = std::pow(10, std::floor(std::log10(wanted)) - 1);
    double rounded = std::floor(wanted / unit + 0.5) * unit;
    if (rounded == std::abs(gain)) rounded = wanted;
    Work.Record.AmplitudeGain =
        std::copysign(static_cast<double>(Val(CStr(static_cast<float>(rounded)))), gain);
    Outside.Show.Display_Record();
}

void RecordScroll::Grab(double across, double down) {
    Held = Has_Record();
    GrabX = across;
    GrabY = down;
    GrabbedSamples = Samples();
    GrabbedTraces = Traces();
}

void RecordScroll::Drag_To(double across, double down) {
    if (!Held) return;
    const Frame frame = Outside.Show.Canvas_Of(Canvas::Ecran).Current_Frame();
    if (frame.Width <= 0 || frame.Height <= 0) return;
    const double traces = (GrabX - across) / frame.Width * GrabbedTraces.Length();
    const double samples = (GrabY - down) / frame.Height * GrabbedSamples.Length();
    Show(Moved(GrabbedSamples, All_Samples(), Whole(samples)),
         Moved(GrabbedTraces, All_Traces(), Whole(traces)));
}

void RecordScroll::Go_To_Sample(int first) {
    Show(Moved(Samples(), All_Samples(), first - Samples().First), Traces());
}

void RecordScroll::Go_To_Trace(int first) {
    Show(Samples(), Moved(Traces(), All_Traces(), first - Traces().First));
}

}  // namespace tarnvik
