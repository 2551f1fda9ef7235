#include "records/record_display.h"

#include <algorithm>

#include "core/files.h"
#include "core/ports/picture.h"
#include "core/text/number.h"
#include "records/record_header.h"
#include "records/su_file.h"
#include "records/su_loading.h"
#include "records/trace_range.h"

namespace tarnvik {

namespace {

constexpr std::int64_t shortest_file = 1000;  // bytes

/// Stations of the record that the first trace shown is of. They stand in the header of the record's first
/// trace; a trace behind it counts on from there.
void Read_Identity(Workspace& workspace, const std::string& path) {
    RecordView& view = workspace.Record;
    SuTraces file(path);
    const std::int64_t shown = view.FirstTrace;
    const std::int64_t channels = std::max<std::int64_t>(view.ChannelsPerRecord, 1);
    const std::int64_t record = shown < 1 ? 1 : (shown - 1) / channels + 1;
    const std::int64_t first = view.ChannelsPerRecord > 0 ? (record - 1) * channels + 1 : shown;
    view.FieldRecord = file.Word_Or_Zero(shown, words::fldr);
    view.ShotStation = file.Word_Or_Zero(first, words::ep);
    view.FirstGeophone = file.Word_Or_Zero(first, words::tracl);
    const auto typed = view.StationsTyped.find(static_cast<int>(record));
    if (typed != view.StationsTyped.end() && !typed->second.InHeader) {
        view.ShotStation = typed->second.Shot;
        view.FirstGeophone = typed->second.FirstGeophone;
    }
    if (view.FirstGeophone == 0) {
        view.FirstGeophone = file.Word_Or_Zero(shown, words::tracl);
    } else {
        view.FirstGeophone += static_cast<double>(shown - first);
    }
}

}  // namespace

bool Open_Record(Workspace& workspace, const std::string& path) {
    RecordView& view = workspace.Record;
    if (!File_Exists(path)) return false;
    if (const SuTraces file(path); !file.Is_Open() || file.Length() < shortest_file) return false;
    if (view.SamplesWord == 0) Scan_Channels(workspace, path);
    // An enlargement stays; the whole record stays the whole record.
    const bool whole = view.FirstSample <= 1 && view.LastSample == view.NbSamples;
    Recherche_Nb_Trace(view, path);
    if (view.NbSamples > 0 && (whole || view.LastSample > view.NbSamples)) {
        Store_If_It_Fits(view.LastSample, view.NbSamples);
    }
    return view.LastTrace != 0;
}

void Measure_Record(Workspace& workspace, const Frame& frame, const std::string& path) {
    RecordView& view = workspace.Record;
    if (view.LastSample == 0) Store_If_It_Fits(view.LastSample, view.NbSamples);
    if (view.FirstSample == 0) view.FirstSample = 1;
    if (frame.Height > 0)
        Store_If_It_Fits(view.SampleStep, Int((view.LastSample - view.FirstSample) / frame.Height));
    if (view.SampleStep < 1) view.SampleStep = 1;
    if (view.AmplitudeGain == 0) view.AmplitudeGain = 1;
    if (view.DisplayPolarity == 0) view.DisplayPolarity = 1;
    view.RecordWidth = (double{1} + view.LastTrace - view.FirstTrace) * trace_width;
    view.ScaleLeft = static_cast<float>(view.FirstTrace * trace_width);
    view.ScaleRight = static_cast<float>((view.LastTrace + 1.0) * trace_width);
    Read_Identity(workspace, path);
}

void Display_Record(Workspace& workspace, Ports& ports, const std::string& path,
                    const ShotColour& shot_colour) {
    workspace.Record.ReferenceTrace = 0;
    if (!Open_Record(workspace, path)) return;
    Picture& ecran = ports.Show.Canvas_Of(Canvas::Ecran);
    ecran.Set_Pointer(PointerShape::Hourglass);
    Measure_Record(workspace, ecran.Current_Frame(), path);
    Fill_Size_Grid(workspace);
    Draw_Traces(workspace, ecran, path, shot_colour);
    Draw_Record_Header(workspace, ports.Show.Canvas_Of(Canvas::RecordHeader), path);
    Draw_Time_Scale(workspace.Record, ports.Show.Canvas_Of(Canvas::Echelle3));
    ecran.Set_Pointer(PointerShape::Cross);
    ecran.Set_Draw_Width(2);
    workspace.Fields.Label16 = path;
    ports.Show.Show_Fields();
}

void Fill_Size_Grid(Workspace& workspace) {
    const RecordView& view = workspace.Record;
    TextGrid& grid = workspace.Grids.size_grid;
    const std::int64_t traces = std::int64_t{view.LastTrace} - view.FirstTrace + 1;
    const auto rows = static_cast<int>(std::clamp<std::int64_t>(traces, 0, most_size_rows));
    grid.FixedRows = 0;
    grid.FixedColumns = 0;
    if (grid.Rows() != rows || grid.Columns() != 1) grid.Resize(rows, 1);
    for (int row = 0; row < rows; ++row) {
        TextGrid::Cell& cell = grid.At(row, 0);
        if (Val(cell.Text) == 0) cell.Text = "1";
        cell.Align = TextGrid::Alignment::Centre;
    }
}

std::string Record_Identity(const RecordView& view) {
    return CStr(int{view.Shot}) + "/ FLDR " + CStr(view.FieldRecord);
}

}  // namespace tarnvik
