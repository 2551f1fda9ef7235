#include "records/spread_layout.h"

#include <algorithm>
#include <limits>

#include "core/text/number.h"
#include "records/su_file.h"

namespace tarnvik {

SpreadLayout::SpreadLayout(const Workspace& workspace) {
    SuTraces file(Su_Path(workspace.Project));
    Read_Stations(workspace, file, 1, std::numeric_limits<std::int64_t>::max());
}

SpreadLayout::SpreadLayout(const Workspace& workspace, SuTraces& file) {
    Read_Stations(workspace, file, 1, std::numeric_limits<std::int64_t>::max());
}

SpreadLayout::SpreadLayout(const Workspace& workspace, SuTraces& file, std::int64_t first_trace,
                           std::int64_t last_trace) {
    Read_Stations(workspace, file, first_trace, last_trace);
}

void SpreadLayout::Read_Stations(const Workspace& workspace, SuTraces& file, std::int64_t first_trace,
                                 std::int64_t last_trace) {
    const RecordView& view = workspace.Record;
    const int receivers = workspace.Project.NbReceivers;
    ChannelsOfRecord = view.ChannelsPerRecord > 0 ? view.ChannelsPerRecord : std::max(receivers, 0);
    Inverted = view.DirectionInverted;
    if (ChannelsOfRecord < 1 || !file.Is_Open()) return;
    const bool several_spreads = view.SeveralSpreads;
    const std::int64_t traces = std::max(file.Nb_Traces().value_or(0), 0);
    const std::int64_t records = (traces + ChannelsOfRecord - 1) / ChannelsOfRecord;
    for (int record = 1; record <= records; ++record) {
        const std::int64_t first = First_Trace(record);
        RecordStation station{record, 1};
        if (Last_Trace(record) < first_trace || first > last_trace) {
            Stations.push_back(station);
            continue;
        }
        double shot = record;
        double receiver = 0;
        const auto typed = view.StationsTyped.find(record);
        if (typed != view.StationsTyped.end() && !typed->second.InHeader) {
            shot = typed->second.Shot;
            receiver = typed->second.FirstGeophone;
        } else {
            if (several_spreads) shot = file.Word_Or_Zero(first, words::ep);
            receiver = file.Word_Or_Zero(first, words::tracl);
        }
        if (several_spreads) station.Shot = static_cast<int>(std::clamp(shot, -1e9, 1e9));
        if (receiver >= 1 && receiver <= receivers) station.FirstReceiver = static_cast<int>(receiver);
        Stations.push_back(station);
    }
}

SpreadLayout::RecordStation SpreadLayout::Station(int record) const {
    if (record >= 1 && record <= Records()) return Stations[static_cast<std::size_t>(record) - 1];
    return {record, 1};
}

int SpreadLayout::Record_Of(std::int64_t trace) const {
    if (trace < 1 || ChannelsOfRecord < 1) return 0;
    return static_cast<int>((trace - 1) / ChannelsOfRecord + 1);
}

std::int64_t SpreadLayout::First_Trace(int record) const {
    return (std::int64_t{record} - 1) * ChannelsOfRecord + 1;
}

int SpreadLayout::Shot_Of(int record) const {
    return Station(record).Shot;
}

std::optional<PickPlace> SpreadLayout::Place_Of(std::int64_t trace) const {
    const int record = Record_Of(trace);
    if (record < 1) return std::nullopt;
    const RecordStation station = Station(record);
    const auto channel = static_cast<int>(trace - First_Trace(record) + 1);
    const int field_channel = Inverted ? ChannelsOfRecord - channel + 1 : channel;
    return PickPlace{station.Shot, station.FirstReceiver + field_channel - 1};
}

std::optional<std::int64_t> SpreadLayout::Trace_Of(PickPlace place) const {
    for (int record = 1; record <= Records(); ++record) {
        const RecordStation station = Station(record);
        const int field_channel = place.Receiver - station.FirstReceiver + 1;
        if (station.Shot != place.Shot || field_channel < 1 || field_channel > ChannelsOfRecord) continue;
        return First_Trace(record) + (Inverted ? ChannelsOfRecord - field_channel : field_channel - 1);
    }
    return std::nullopt;
}

}  // namespace tarnvik
