#include "processing/shift_traces.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "core/files.h"
#include "core/text/number.h"
#include "processing/fresh_file.h"
#include "processing/move_samples.h"
#include "records/su_file.h"
#include "records/su_loading.h"

namespace tarnvik {

namespace {

/// Moves the whole traces of a piece of the file that lie within first and last.
void Shift_Piece(std::string& piece, std::int64_t first_in_piece, std::int32_t samples, int count,
                 std::int64_t first, std::int64_t last, TraceShift& shift) {
    const std::int64_t length = Trace_Length(samples);
    std::vector<float> before(static_cast<std::size_t>(samples));
    std::vector<float> after(before.size());
    for (std::int64_t at = 0; at + length <= std::ssize(piece); at += length) {
        const std::int64_t trace = first_in_piece + at / length;
        if (trace < first || trace > last) continue;
        char* bytes = piece.data() + at + header_length;
        std::memcpy(before.data(), bytes, before.size() * sizeof(float));
        Move_Samples(before, count, after);
        std::memcpy(bytes, after.data(), after.size() * sizeof(float));
        ++shift.Traces;
        if (Pushes_Out_Signal(before, count)) ++shift.PushedOut;
    }
}

struct ShiftedRange {
    std::int64_t First = 0;
    std::int64_t Last = 0;
    std::string Name;
};

/// 1 the trace clicked last, 2 the traces shown, 3 all; nothing for another answer.
std::optional<ShiftedRange> Chosen_Range(const Workspace& workspace, int answer) {
    const RecordView& view = workspace.Record;
    switch (answer) {
        case 1:
            return ShiftedRange{view.PickedTrace, view.PickedTrace,
                                "Shift trace " + CStr(static_cast<double>(view.PickedTrace))};
        case 2:
            return ShiftedRange{view.FirstTrace, view.LastTrace, "Shift shot " + CStr(int{view.Shot})};
        case 3:
            return ShiftedRange{1, view.NbTraces, "Shift all traces"};
        default:
            return std::nullopt;
    }
}

void Tell_Shift(Workspace& workspace, Ports& ports, const TraceShift& shift, int samples) {
    workspace.Fields.Status = CStr(static_cast<double>(shift.Traces)) + " traces shifted by " +
                              CStr(samples) + " samples (" +
                              CStr(samples * workspace.Record.SampleInterval / 1000.0) + " ms)";
    if (shift.PushedOut > 0) {
        ports.Ask.Say(Pushed_Out_Text(shift), workspace.AppTitle, Icon::Warning);
    }
    ports.Show.Show_Fields();
}

}  // namespace

std::optional<int> Samples_To_Shift(double shift_ms, int interval_us) {
    if (interval_us == 0) return std::nullopt;
    const auto samples = CInt(shift_ms * 1000 / interval_us);
    return samples ? std::optional<int>(*samples) : std::nullopt;
}

std::string Pushed_Out_Text(const TraceShift& shift) {
    return "Samples with signal of " + CStr(static_cast<double>(shift.PushedOut)) +
           (shift.PushedOut == 1 ? " trace" : " traces") + " have been pushed out of the record";
}

TraceShift Shift_Trace_Samples(const std::string& source, const std::string& target, std::int64_t first,
                               std::int64_t last, int samples) {
    TraceShift shift;
    const std::int32_t in_trace = SuTraces(source).Nb_Samples();
    PositionedFile file(source, PositionedFile::Access::Read);
    if (!file.Is_Open() || in_trace < 1) {
        shift.Failure = file.Is_Open() ? source + " holds no trace" : source + ": " + file.Reason();
        return shift;
    }
    const std::int64_t length = Trace_Length(in_trace);
    const std::int64_t traces_at_once = std::max<std::int64_t>(1, (4 << 20) / length);
    shift.Failure = Replace_File_In_Pieces(target, [&](const PieceWriter& write) -> std::string {
        std::string piece;
        for (std::int64_t trace = 1; Trace_Position(trace, in_trace) < file.Length();
             trace += traces_at_once) {
            const std::int64_t at = Trace_Position(trace, in_trace);
            piece.resize(static_cast<std::size_t>(std::min(traces_at_once * length, file.Length() - at)));
            if (!file.Read(at, piece.data(), std::ssize(piece))) return file.Reason();
            Shift_Piece(piece, trace, in_trace, samples, first, last, shift);
            if (!write(piece)) return {};
        }
        return {};
    });
    return shift;
}

void Shift_Traces(Workspace& workspace, Ports& ports, double shift_ms) {
    if (shift_ms == 0) return;
    const std::string& title = workspace.AppTitle;
    const int answer =
        CInt(Val(ports.Ask.Input("Do you want to shift 1-Active trace 2-Active shot 3-All shots ", title,
                                 "2")))
            .value_or(0);
    auto range = Chosen_Range(workspace, answer);
    if (!range || !Locate_SU_File(workspace, ports)) return;
    Recherche_Nb_Trace(workspace.Record, Su_Path(workspace.Project));
    range = Chosen_Range(workspace, answer);
    const auto samples = Samples_To_Shift(shift_ms, workspace.Record.SampleInterval);
    std::string refusal;
    if (range->First < 1 || range->First > workspace.Record.NbTraces) {
        refusal = answer == 1 ? "No trace has been clicked yet" : "No record is shown";
    } else if (!samples) {
        refusal = "A shift of " + CStr(shift_ms) + " ms is no number of samples of " +
                  CStr(workspace.Record.SampleInterval / 1000.0) + " ms";
    }
    if (!refusal.empty()) {
        ports.Ask.Say(refusal, title, Icon::Critical);
        return;
    }
    if (*samples == 0) {
        workspace.Fields.Status = CStr(shift_ms) + " ms is less than half a sample: nothing is shifted";
        ports.Show.Show_Fields();
        return;
    }
    const std::string path = Su_Path(workspace.Project);
    FreshFile fresh(workspace.Edits, path);
    TraceShift shift = Shift_Trace_Samples(path, fresh.Name(), range->First, range->Last, *samples);
    if (shift.Failure.empty()) {
        EditScope edit(workspace, range->Name + " by " + CStr(shift_ms) + " ms");
        shift.Failure = fresh.Put();
        if (!shift.Failure.empty()) edit.Give_Up();
    }
    if (shift.Failure.empty()) {
        Tell_Shift(workspace, ports, shift, *samples);
    } else {
        ports.Ask.Say(path + " cannot be written: " + shift.Failure, title, Icon::Critical);
    }
}

}  // namespace tarnvik
