#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <vector>

#include "core/ports/picture.h"
#include "core/text/number.h"
#include "records/agc.h"
#include "records/axis_steps.h"
#include "records/record_display.h"
#include "records/record_geometry.h"
#include "records/record_styles.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

constexpr double half_pick_mark = 750;
constexpr Colour time_line = 0xDCDCDC;
constexpr double least_pixels_apart = 16;  ///< a trace: the marks' ends are then more than a pen apart

/// Largest of samples 1, 1 + step, ...; 0 when none is above it.
double Largest(const std::vector<float>& samples, int step) {
    double largest = 0;
    for (std::size_t i = 0; i < samples.size(); i += static_cast<std::size_t>(step)) {
        if (samples[i] > largest) largest = samples[i];
    }
    return largest;
}

/// Largest amplitude of either sign of the samples shown.
double Largest_In_Sight(const std::vector<float>& samples, const RecordView& view) {
    const auto count = static_cast<int>(samples.size());
    float largest = 0;
    const int last = std::min<int>(view.LastSample, count);
    for (int s = std::max<int>(view.FirstSample, 1); s <= last; ++s) {
        const float size = std::abs(samples[static_cast<std::size_t>(s - 1)]);
        if (size > largest && std::isfinite(size)) largest = size;
    }
    return largest;
}

int Agc_Samples(const RecordView& view) {
    if (!(view.AgcWindow > 0) || view.SampleInterval <= 0) return 0;
    return CLng(view.AgcWindow * 1000 / view.SampleInterval).value_or(0);
}

/// The part of a trace that the levelling of the samples shown takes; all of it where all of it is measured.
std::span<float> Needed(const RecordView& view, std::vector<float>& samples, int window) {
    const auto count = static_cast<int>(samples.size());
    if (!view.EqualiseTraces || !view.EqualiseInSight) return samples;
    const int half = std::min(window, count);
    const int begin = std::clamp(view.FirstSample - 1 - half, 0, count);
    const int end = std::clamp(view.LastSample + half, begin, count);
    return std::span(samples).subspan(static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin));
}

/// What is the same for all traces of one drawing.
struct Layout {
    double UnitsPerPixelX = 0;
    std::vector<int> Samples;  ///< sample numbers visited, from 1
    std::vector<int> Rows;     ///< PointY of each
};

Layout Lay_Out(const RecordView& view, const Frame& frame, int available) {
    Layout layout;
    if (frame.Width <= 0 || frame.Height <= 0) return layout;
    layout.UnitsPerPixelX = (double{view.ScaleRight} - view.ScaleLeft) / frame.Width;
    const double units_per_pixel_y = (view.LastSample - view.FirstSample) / frame.Height;
    if (units_per_pixel_y == 0) return layout;
    const int last = std::min<int>(view.LastSample, available);
    for (int s = std::max<int>(view.FirstSample, 1); s <= last; s += view.SampleStep) {
        const auto row = CLng((s - view.FirstSample) / units_per_pixel_y - 1);
        if (!row) continue;
        layout.Samples.push_back(s);
        layout.Rows.push_back(*row);
    }
    return layout;
}

void Draw_One(const std::vector<float>& samples, const Layout& layout, double axis, double gain, bool clip,
              bool dead, TracePoints& points, TracePainter& painter) {
    const auto axis_pixel = CLng(axis / layout.UnitsPerPixelX);
    if (!axis_pixel) return;
    points.Start(layout.Samples.size());
    // Nearest pixel, halves to even, as CLng gives it: adding this number leaves the whole part in the low
    // bits.
    constexpr double beyond_fractions = 6755399441055744.0;  // 1.5 * 2^52
    const double units = layout.UnitsPerPixelX;
    const double most = clip ? amplitude_reference : std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < layout.Samples.size(); ++i) {
        const double value = samples[static_cast<std::size_t>(layout.Samples[i] - 1)] * gain;
        const double limited = value > most ? most : value < -most ? -most : value;
        const double place = (axis + limited) / units;
        // A sample that is no number, or far too large, has no place on the picture.
        if (!(std::abs(place) < 2147483647.0)) continue;
        const auto x = static_cast<int>(std::bit_cast<std::int64_t>(place + beyond_fractions));
        points.Add(limited, x, layout.Rows[i]);
    }
    painter.Draw(points, *axis_pixel, dead);
}

PickOrigin Origin_Of(const Project& project, const SpreadLayout& spread, std::int64_t trace) {
    const auto place = spread.Place_Of(trace);
    if (!place || place->Shot < 1 || place->Receiver < 1) return PickOrigin::Hand;
    if (!project.PickOrigins.Has(place->Shot, place->Receiver)) return PickOrigin::Hand;
    return project.PickOrigins(place->Shot, place->Receiver);
}

void Mark_Pick(const RecordView& view, Picture& ecran, std::int64_t trace, double pick_ms, Colour colour) {
    if (!(pick_ms > 0) || view.SampleInterval == 0) return;
    const auto sample = CInt(pick_ms / (view.SampleInterval / 1000.0));
    if (!sample) return;
    const double axis = static_cast<double>(trace) * trace_width + 1001;
    ecran.Line(axis - half_pick_mark, *sample, axis + half_pick_mark, *sample, colour);
}

/// Vertical line where the shot stands between the receivers.
void Mark_Shots(const Workspace& workspace, Picture& ecran, const SpreadLayout& spread, std::int64_t first,
                std::int64_t last) {
    const RecordView& view = workspace.Record;
    for (const ShotMark& mark : RecordGeometry(workspace, spread).Shots(first, last)) {
        if (mark.Beyond == 0) ecran.Line(mark.X, view.FirstSample, mark.X, view.LastSample, colours::Black);
    }
}

/// Faint lines at the times that the scale beside the record names.
void Draw_Time_Lines(const RecordView& view, Picture& ecran) {
    ecran.Set_Font_Size(scale_font);
    for (const TimeTick& tick : TimeTicks(view, ecran).Named)
        ecran.Line(view.ScaleLeft, tick.Sample, view.ScaleRight, tick.Sample, time_line);
}

/// Picks and travel times of the record on ecran, on the background that its traces are.
class Overlay {
  public:
    Overlay(const Workspace& workspace, Picture& ecran, SuTraces& file, const SpreadLayout& spread)
        : Work(workspace), Ecran(ecran), File(file), Spread(spread) {}

    /// Picks of traces first to last; ms, in their order.
    void Mark(std::int64_t first, const std::vector<double>& picks) {
        Ecran.Set_Draw_Width(2);
        for (std::size_t i = 0; i < picks.size(); ++i) {
            const std::int64_t trace = first + static_cast<std::int64_t>(i);
            Mark_Pick(Work.Record, Ecran, trace, picks[i],
                      Pick_Colour(Origin_Of(Work.Project, Spread, trace)));
        }
    }
    void Mark(std::int64_t first, std::int64_t last) {
        std::vector<double> picks;
        for (std::int64_t trace = first; trace <= last; ++trace)
            picks.push_back(File.Pick_Ms(trace));
        Mark(first, picks);
    }
    void Travel_Times(const ShotColour& shot_colour) {
        Ecran.Set_Draw_Width(1);
        if (Work.Record.ShowTravelTimes) Draw_TT_On_Record(Work, Ecran, Spread, shot_colour);
    }

  private:
    const Workspace& Work;
    Picture& Ecran;
    SuTraces& File;
    const SpreadLayout& Spread;
};

/// Scale of the amplitudes of one trace. Without equalisation the first trace sets it for the whole record.
/// When that is all zeros the scale of the record before stays; when there was none, the next trace with
/// samples sets it.
void Take_Scale(RecordView& view, const std::vector<float>& samples, bool first) {
    if (view.EqualiseTraces) {
        const double largest =
            view.EqualiseInSight ? Largest_In_Sight(samples, view) : Largest(samples, view.SampleStep);
        view.TraceScale = largest == 0 ? 1 : amplitude_reference / largest;
    } else if (first || view.TraceScale == 0) {
        const double largest = Largest(samples, view.SampleStep);
        if (largest != 0) view.TraceScale = amplitude_reference / largest + 0.00001;
    }
}

}  // namespace

Colour Pick_Colour(PickOrigin origin) {
    constexpr Colour automatic = 0xE65A00;  // blue
    constexpr Colour moved = 0x2D9100;      // green
    return origin == PickOrigin::Automatic ? automatic : origin == PickOrigin::Moved ? moved : colours::Red;
}

void Draw_Traces(Workspace& workspace, Picture& ecran, const std::string& path, const ShotColour& shot_colour,
                 bool with_picks) {
    RecordView& view = workspace.Record;
    if (!view.Overdraw) ecran.Clear();
    // Records that are drawn over one another lie trace upon trace; the scale follows the one drawn last, so
    // that its marks and the pointer mean its traces.
    ecran.Scale(view.ScaleLeft, view.FirstSample, view.ScaleRight, view.LastSample);
    ecran.Set_Draw_Width(1);
    if (!view.Overdraw) Draw_Time_Lines(view, ecran);
    view.TracesDrawn.clear();

    SuTraces file(path);
    const int count = std::max(0, file.Nb_Samples());
    const Layout layout = Lay_Out(view, ecran.Current_Frame(), count);
    if (!file.Is_Open() || layout.UnitsPerPixelX <= 0) return;
    std::vector<float> samples(static_cast<std::size_t>(count));
    std::vector<double> picks;
    TracePainter painter(view.Style, ecran);
    TracePoints points;
    const std::int64_t first = std::max(1, view.FirstTrace);
    const std::int64_t last = std::min<std::int64_t>(view.LastTrace, file.Nb_Traces().value_or(0));
    const SpreadLayout spread(workspace, file, first, last);
    const int levelled = Agc_Samples(view);
    for (std::int64_t trace = first; trace <= last; ++trace) {
        const std::int64_t row = trace - view.FirstTrace;
        double size = workspace.Grids.size_grid.Value(static_cast<int>(row), 0);
        if (size == 0) size = 1;
        const SuTraces::Trace read = file.Read_Trace(trace, samples);
        std::fill(samples.begin() + read.SamplesRead, samples.end(), 0.0F);
        Level_Amplitudes(Needed(view, samples, levelled), levelled);
        Take_Scale(view, samples, row == 0);
        const double gain = size * view.DisplayPolarity * view.AmplitudeGain * view.TraceScale;
        const double axis = static_cast<double>(row) * trace_width + amplitude_reference;
        Draw_One(samples, layout, axis, gain, view.ClipAmplitude, read.Identification == dead_trace, points,
                 painter);
        view.TracesDrawn.push_back(read.Identification);
        picks.push_back(read.PickMs);
    }
    Mark_Shots(workspace, ecran, spread, first, last);
    ecran.Keep_Background();
    Overlay overlay(workspace, ecran, file, spread);
    if (with_picks) overlay.Mark(first, picks);
    overlay.Travel_Times(shot_colour);
}

void Show_Picks_On_Record(Workspace& workspace, Ports& ports, std::int64_t first_trace,
                          std::int64_t last_trace, const ShotColour& shot_colour) {
    const RecordView& view = workspace.Record;
    if (view.RecordWidth <= 0) return;
    SuTraces file(Su_Path(workspace.Project));
    const std::int64_t start = std::max(1, view.FirstTrace);
    const std::int64_t end = start + std::ssize(view.TracesDrawn) - 1;
    const std::int64_t first = std::max(first_trace, start);
    const std::int64_t last = std::min(last_trace, end);
    if (first > last && !view.TracesDrawn.empty()) return;  // none of them is in sight

    Picture& ecran = ports.Show.Canvas_Of(Canvas::Ecran);
    const Frame frame = ecran.Current_Frame();
    bool as_drawn = file.Is_Open() && !view.TracesDrawn.empty() && frame.Left == view.ScaleLeft &&
                    frame.Right == view.ScaleRight && frame.Top == view.FirstSample &&
                    frame.Bottom == view.LastSample && (!view.ShowTravelTimes || shot_colour);
    for (std::int64_t trace = first; as_drawn && trace <= last; ++trace) {
        const double life = file.Word_Or_Zero(trace, words::trid);
        as_drawn = life == view.TracesDrawn[static_cast<std::size_t>(trace - start)];
    }
    // Where the marks stand close they are shown anew all together: each wipes its neighbour's ends.
    const bool apart = frame.Width / (view.RecordWidth / trace_width) >= least_pixels_apart;
    const bool alone = apart && !view.ShowTravelTimes;
    const auto left = alone ? static_cast<double>(first) * trace_width + 1 : double{view.ScaleLeft};
    const auto right = alone ? static_cast<double>(last + 1) * trace_width + 1 : double{view.ScaleRight};
    if (!as_drawn || !ecran.Bring_Back(left, view.FirstSample, right, view.LastSample)) {
        ports.Show.Display_Record();
        return;
    }
    const SpreadLayout spread(workspace, file, start, end);
    Overlay overlay(workspace, ecran, file, spread);
    overlay.Mark(alone ? first : start, alone ? last : end);
    overlay.Travel_Times(shot_colour);
    ecran.Set_Draw_Width(2);
}

}  // namespace tarnvik
