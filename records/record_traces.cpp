#include <algorithm>
#include <optional>
#include <vector>

#include "core/ports/picture.h"
#include "core/text/number.h"
#include "records/record_display.h"
#include "records/record_styles.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

constexpr double half_pick_mark = 750;
constexpr double shot_marker_shift = 3000;

/// Largest of samples 1, 1 + step, ...; 0 when none is above it.
double Largest(const std::vector<float>& samples, int step) {
    double largest = 0;
    for (std::size_t i = 0; i < samples.size(); i += static_cast<std::size_t>(step)) {
        if (samples[i] > largest) largest = samples[i];
    }
    return largest;
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
              bool dead, TracePainter& painter) {
    const auto axis_pixel = CLng(axis / layout.UnitsPerPixelX);
    if (!axis_pixel) return;
    painter.Begin(*axis_pixel, dead);
    for (std::size_t i = 0; i < layout.Samples.size(); ++i) {
        double value = samples[static_cast<std::size_t>(layout.Samples[i] - 1)] * gain;
        if (clip) value = std::clamp(value, -amplitude_reference, amplitude_reference);
        // A sample that is no number, or far too large, has no place on the picture.
        if (const auto x = CLng((axis + value) / layout.UnitsPerPixelX)) {
            painter.Sample(value, *x, layout.Rows[i]);
        }
    }
    painter.End();
}

void Mark_Pick(const RecordView& view, Picture& ecran, double axis_world, double pick_ms) {
    if (!(pick_ms > 0) || view.SampleInterval == 0) return;
    const auto sample = CInt(pick_ms / (view.SampleInterval / 1000.0));
    if (!sample) return;
    ecran.Line(axis_world - half_pick_mark, *sample, axis_world + half_pick_mark, *sample, colours::Red);
}

/// Vertical line beside the two receivers that the shot lies between, from the tables of the spread.
void Mark_Shot(const Workspace& workspace, Picture& ecran, double axis_world, std::int64_t receiver) {
    const Project& project = workspace.Project;
    if (receiver < 1 || receiver > project.NbReceivers) return;
    const TextGrid& grid = workspace.Grids.Buildgrid;
    const int row = static_cast<int>(receiver);
    const int distances = project.NbShots + 1;
    const double shot = grid.Value(project.NbReceivers + 1, workspace.Velocity.CurrentShot);
    if (shot < grid.Value(row, distances) || shot >= grid.Value(row + 1, distances)) return;
    const double x = axis_world + shot_marker_shift;
    ecran.Line(x, workspace.Record.FirstSample, x, workspace.Record.LastSample, colours::Black);
}

void Prepare_Scale(RecordView& view) {
    if (view.LastSample == 0) Store_If_It_Fits(view.LastSample, view.NbSamples);
    if (view.FirstSample == 0) view.FirstSample = 1;
    view.RecordWidth = (double{1} + view.LastTrace - view.FirstTrace) * trace_width;
    view.ScaleLeft = static_cast<float>(view.FirstTrace * trace_width);
    view.ScaleRight = static_cast<float>((view.LastTrace + 1.0) * trace_width);
    if (view.SampleStep < 1) view.SampleStep = 1;
}

}  // namespace

void Draw_Traces(Workspace& workspace, Picture& ecran, const std::string& path,
                 const ShotColour& shot_colour) {
    RecordView& view = workspace.Record;
    const MainFields& fields = workspace.Fields;
    Prepare_Scale(view);
    if (!fields.Check7) ecran.Clear();
    // Records that are drawn over one another lie trace upon trace; the scale follows the one drawn last, so
    // that its marks and the pointer mean its traces.
    ecran.Scale(view.ScaleLeft, view.FirstSample, view.ScaleRight, view.LastSample);
    ecran.Set_Draw_Width(1);

    SuTraces file(path);
    const int count = std::max(0, file.Nb_Samples());
    const Layout layout = Lay_Out(view, ecran.Current_Frame(), count);
    if (!file.Is_Open() || layout.UnitsPerPixelX <= 0) return;
    std::vector<float> samples(static_cast<std::size_t>(count));
    TracePainter painter(fields.Combo1, ecran);
    const std::int64_t last = std::min<std::int64_t>(view.LastTrace, file.Nb_Traces().value_or(0));
    const int first_receiver = First_Receiver_Shown(workspace);
    for (std::int64_t trace = std::max(1, view.FirstTrace); trace <= last; ++trace) {
        const std::int64_t row = trace - view.FirstTrace;
        double size = workspace.Grids.size_grid.Value(static_cast<int>(row), 0);
        if (size == 0) size = 1;
        const SuTraces::Trace read = file.Read_Trace(trace, samples);
        std::fill(samples.begin() + read.SamplesRead, samples.end(), 0.0F);

        // Without equalisation the first trace sets the scale of the whole record. When it is all zeros the
        // scale of the record before stays; when there was none, the next trace with samples sets it.
        if (fields.Check3) {
            const double largest = Largest(samples, view.SampleStep);
            view.TraceScale = largest == 0 ? 1 : amplitude_reference / largest;
        } else if (row == 0 || view.TraceScale == 0) {
            const double largest = Largest(samples, view.SampleStep);
            if (largest != 0) view.TraceScale = amplitude_reference / largest + 0.00001;
        }
        const double gain = size * view.DisplayPolarity * view.AmplitudeGain * view.TraceScale;
        const double axis = static_cast<double>(row) * trace_width + amplitude_reference;
        Draw_One(samples, layout, axis, gain, fields.clip, read.Identification == dead_trace, painter);

        const double axis_world = static_cast<double>(trace) * trace_width + 1001;
        ecran.Set_Draw_Width(2);
        Mark_Pick(view, ecran, axis_world, read.PickMs);
        ecran.Set_Draw_Width(1);
        Mark_Shot(workspace, ecran, axis_world, first_receiver + row);
    }
    if (fields.Check6) Draw_TT_On_Record(workspace, ecran, shot_colour);
}

}  // namespace tarnvik
