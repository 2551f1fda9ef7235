#include "records/record_choice.h"

#include <algorithm>
#include <optional>

#include "core/text/letters.h"
#include "core/text/number.h"
#include "records/record_files.h"
#include "records/spread_layout.h"

namespace tarnvik {

namespace {

void Take_Shot(Workspace& workspace, double shot) {
    if (Store_If_It_Fits(workspace.Record.Shot, shot)) workspace.Velocity.CurrentShot = workspace.Record.Shot;
}

/// Stations of a record into the headers of both files; without a value the word stays. Where they cannot be
/// stored they count all the same, and the user is told.
void Store_Stations(Workspace& workspace, Ports& ports, int record, std::optional<double> shot,
                    std::optional<double> geophone) {
    RecordView& view = workspace.Record;
    std::string reason;
    {
        RecordFiles files(workspace);
        const std::int64_t first = SpreadLayout(workspace, files.Traces()).First_Trace(record);
        const EditScope edit(workspace, "Stations of record " + CStr(record));
        const auto store = [&](int word, std::optional<double> station) {
            const double former = files.Traces().Word_Or_Zero(first, word);
            if (!station || former == Rounded(*station)) return former;
            files.Set_Word(first, word, *station);
            return *station;
        };
        RecordStations stations;
        stations.Shot = store(words::ep, shot);
        stations.FirstGeophone = store(words::tracl, geophone);
        stations.InHeader = !files.Failed();
        view.StationsTyped[record] = stations;
        if (files.Failed()) reason = "Stations" + files.First_Fault();
    }
    if (!reason.empty()) ports.Ask.Say(reason, workspace.AppTitle, Icon::Critical);
}

}  // namespace

void Select_Record(Workspace& workspace, int record) {
    RecordView& view = workspace.Record;
    view.Record = std::clamp(record, 1, std::max(1, int{view.NbRecords}));
    Take_Shot(workspace, view.Record);
    if (view.ChannelsPerRecord < 1) return;
    view.WholeLast = view.LastTrace = view.Record * view.ChannelsPerRecord;
    view.WholeFirst = view.FirstTrace = view.LastTrace - view.ChannelsPerRecord + 1;
}

void Go_To_Record(Workspace& workspace, Ports& ports, int record) {
    Select_Record(workspace, record);
    Ask_Stations(workspace, ports);
    ports.Show.Display_Record();
    ports.Show.Show_Fields();
}

bool Has_Neighbour(const Workspace& workspace, int step) {
    const RecordView& view = workspace.Record;
    const int wanted = view.Record + step;
    const int shots = workspace.Project.NbShots > 0 ? workspace.Project.NbShots : view.NbRecords;
    return wanted >= 1 && wanted <= std::min<int>(shots, view.NbRecords);
}

void Go_To_Neighbour(Workspace& workspace, Ports& ports, int step) {
    if (!Has_Neighbour(workspace, step)) return;
    RecordView& view = workspace.Record;
    const int wanted = view.Record + step;
    const std::int32_t traces = step * view.ChannelsPerRecord;
    view.Record = wanted;
    view.FirstTrace += traces;
    view.LastTrace += traces;
    view.WholeFirst += traces;
    view.WholeLast += traces;
    Take_Shot(workspace, wanted);
    Ask_Stations(workspace, ports);
    ports.Show.Display_Record();
    ports.Show.Show_Fields();
}

void Take_Typed_Range(Workspace& workspace) {
    RecordView& view = workspace.Record;
    const double traces = double{1} + view.LastTrace - view.FirstTrace;
    if (traces != 0) Take_Shot(workspace, view.LastTrace / traces);
    // A part of the record is an enlargement of it; any other range is taken for the whole.
    const std::int64_t last = std::int64_t{view.Record} * view.ChannelsPerRecord;
    const std::int64_t first = last - view.ChannelsPerRecord + 1;
    const bool part = view.ChannelsPerRecord > 0 && view.FirstTrace >= first && view.LastTrace <= last;
    view.WholeFirst = part ? static_cast<std::int32_t>(first) : view.FirstTrace;
    view.WholeLast = part ? static_cast<std::int32_t>(last) : view.LastTrace;
}

void Ask_Stations(Workspace& workspace, Ports& ports) {
    RecordView& view = workspace.Record;
    if (!view.SeveralSpreads || view.NbTraces < 1 || view.StationsTyped.contains(view.Record)) return;
    const auto ask = [&](const char* prompt, double initial) -> std::optional<double> {
        const std::string typed = ports.Ask.Input(prompt, workspace.AppTitle, CStr(initial));
        if (Trim(typed).empty()) return std::nullopt;  // a box that was closed leaves the header as it is
        return Val(typed);
    };
    const RecordStations offered = view.LastStations.value_or(RecordStations{double(view.Record), 1, false});
    const auto shot = ask("Enter shot station: ", offered.Shot);
    const auto geophone = ask("Enter 1st geophone number: ", offered.FirstGeophone);
    if (shot || geophone)
        view.LastStations = {shot.value_or(offered.Shot), geophone.value_or(offered.FirstGeophone), false};
    Store_Stations(workspace, ports, view.Record, shot, geophone);
}

void Take_Typed_Stations(Workspace& workspace, Ports& ports) {
    const RecordView& view = workspace.Record;
    const SpreadLayout spread(workspace);
    const int record = spread.Record_Of(view.FirstTrace);
    if (record < 1) return;
    const auto behind = static_cast<double>(view.FirstTrace - spread.First_Trace(record));
    Store_Stations(workspace, ports, record, view.ShotStation, view.FirstGeophone - behind);
}

}  // namespace tarnvik
