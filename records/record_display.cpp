#include "records/record_display.h"

#include <algorithm>

#include "core/files.h"
#include "core/ports/picture.h"
#include "core/text/number.h"
#include "records/su_file.h"
#include "records/su_loading.h"

namespace tarnvik {

namespace {

constexpr std::int64_t shortest_file = 1000;      // bytes
constexpr std::int64_t most_size_rows = 100'000;  // a range typed in error must not fill the memory

/// The counts as the file has them now: another program may have changed it. A zoom stays; the whole record
/// stays the whole record.
void Read_Counts_Again(RecordView& view, const std::string& path) {
    const bool whole = view.FirstSample <= 1 && view.LastSample == view.NbSamples;
    Recherche_Nb_Trace(view, path);
    if (view.NbSamples > 0 && (whole || view.LastSample > view.NbSamples)) {
        Store_If_It_Fits(view.LastSample, view.NbSamples);
    }
}

void Store_Trace_Number(std::int32_t& target, const std::string& text) {
    if (const auto trace = CLng(Val(text))) target = *trace;
}

/// Asks for the stations of the record, once for each, and writes the answers into the file, where the record
/// shows them from.
void Ask_Stations(Workspace& workspace, Ports& ports, const std::string& path) {
    RecordView& view = workspace.Record;
    MainFields& fields = workspace.Fields;
    if (view.StationsAskedFor == view.FirstTrace) return;
    view.StationsAskedFor = view.FirstTrace;
    fields.Text13 = ports.Ask.Input("Enter shot station: ", workspace.AppTitle, fields.Text13);
    fields.Text18 = ports.Ask.Input("Enter 1st geophone number: ", workspace.AppTitle, "1");
    Store_Stations(workspace, ports, path);
}

void Show_Identity(Workspace& workspace, const std::string& path) {
    MainFields& fields = workspace.Fields;
    SuTraces file(path);
    const std::int64_t trace = workspace.Record.FirstTrace;
    fields.Text12 =
        CStr(int{workspace.Velocity.CurrentShot}) + "/ FLDR " + CStr(file.Word_Or_Zero(trace, words::fldr));
    fields.Text13 = CStr(file.Word_Or_Zero(trace, words::ep));
    fields.Text18 = CStr(file.Word_Or_Zero(trace, words::tracl));
}

}  // namespace

void Display_Record(Workspace& workspace, Ports& ports, const std::string& path,
                    const ShotColour& shot_colour) {
    RecordView& view = workspace.Record;
    MainFields& fields = workspace.Fields;
    view.ReferenceTrace = 0;
    if (!File_Exists(path)) return;
    if (const SuTraces file(path); !file.Is_Open() || file.Length() < shortest_file) return;
    if (view.SamplesWord == 0) Scan_Channels(workspace, path);
    Read_Counts_Again(view, path);
    Store_Trace_Number(view.FirstTrace, fields.Text9);
    Store_Trace_Number(view.LastTrace, fields.Text10);
    if (view.LastTrace == 0) return;

    Picture& ecran = ports.Show.Canvas_Of(Canvas::Ecran);
    ecran.Set_Pointer(PointerShape::Hourglass);
    Store_If_It_Fits(workspace.Velocity.CurrentShot, fields.HScroll2.Value);
    fields.Text13 = CStr(fields.HScroll2.Value);
    if (fields.Check2) {
        Ask_Stations(workspace, ports, path);
    } else {
        view.StationsAskedFor = 0;
    }
    if (view.LastSample == 0) Store_If_It_Fits(view.LastSample, view.NbSamples);
    if (view.FirstSample == 0) view.FirstSample = 1;
    const double height = ecran.Current_Frame().Height;
    if (height > 0) Store_If_It_Fits(view.SampleStep, Int((view.LastSample - view.FirstSample) / height));
    if (view.SampleStep < 1) view.SampleStep = 1;
    if (view.AmplitudeGain == 0) view.AmplitudeGain = 1;
    if (view.DisplayPolarity == 0) view.DisplayPolarity = 1;
    Show_Identity(workspace, path);

    Fill_Size_Grid(workspace);
    Draw_Traces(workspace, ecran, path, shot_colour);
    Draw_Time_Scale(view, ports.Show.Canvas_Of(Canvas::Echelle3));
    ecran.Set_Pointer(PointerShape::Cross);
    ecran.Set_Draw_Width(2);
    fields.Label16 = path;
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

void Select_Record(Workspace& workspace, int record) {
    const RecordView& view = workspace.Record;
    ScrollBar& bar = workspace.Fields.HScroll2;
    bar.Value = std::clamp(record, 1, std::max(1, bar.Max));
    if (view.ChannelsPerRecord < 1) return;
    const std::int64_t last = std::int64_t{bar.Value} * view.ChannelsPerRecord;
    workspace.Fields.Text9 = CStr(static_cast<double>(last - view.ChannelsPerRecord + 1));
    workspace.Fields.Text10 = CStr(static_cast<double>(last));
}

void Take_Typed_Range(Workspace& workspace) {
    const double first = Val(workspace.Fields.Text9);
    const double last = Val(workspace.Fields.Text10);
    if (last - first + 1 == 0) return;
    ScrollBar& bar = workspace.Fields.HScroll2;
    const auto record = CInt(last / (last - first + 1));
    if (record) bar.Value = std::clamp<int>(*record, 1, std::max(1, bar.Max));
}

void Store_Stations(Workspace& workspace, Ports& ports, const std::string& path) {
    const MainFields& fields = workspace.Fields;
    const std::int64_t trace = workspace.Record.FirstTrace;
    std::string reason;
    const EditScope edit(workspace, "Stations of record " + CStr(fields.HScroll2.Value));
    const auto store = [&](int word, const std::string& text) {
        if (text.empty()) return;  // the box was cancelled, the field wiped
        const double station = Val(text);
        if (SuTraces(path).Word(trace, word) == Rounded(station)) return;
        SuWriter file(path, &workspace.Edits);
        const Stored stored = file.Is_Open() ? file.Set_Word(trace, word, station) : Stored::No;
        if (stored == Stored::No) reason = file.Reason();
    };
    store(words::ep, fields.Text13);
    store(words::tracl, fields.Text18);
    if (!reason.empty()) {
        ports.Ask.Say(path + " cannot be written: " + reason, workspace.AppTitle, Icon::Critical);
    }
}

}  // namespace tarnvik
