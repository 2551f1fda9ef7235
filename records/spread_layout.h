#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/pick_place.h"
#include "core/workspace.h"

namespace tarnvik {

class SuTraces;

/// Which trace of the SU file belongs to which shot and receiver: the one rule for all that picks, kills,
/// shifts, loads and stores.
///
/// Traces stand record after record, ChannelsPerRecord in each (the line's receivers where no count is
/// known). Without "Multi spead profile" record k is shot k; with it the shot is the station in `ep` of the
/// record's first trace. The first receiver of a record is the geophone station in `tracl` of its first
/// trace; where that is no receiver of the line (a file whose `tracl` runs on from record to record) it is 1.
/// Stations that the user typed for a record go before those of its header where they could not be stored
/// there. With "Recording direction
/// inverted" the channels of a record count from its last trace.
class SpreadLayout {
  public:
    /// The layout of the project's records as the headers and the options stand now.
    explicit SpreadLayout(const Workspace& workspace);
    /// The same of a file that is open already.
    SpreadLayout(const Workspace& workspace, SuTraces& file);
    /// The same, with the stations of the records of some traces alone: for the drawing.
    SpreadLayout(const Workspace& workspace, SuTraces& file, std::int64_t first_trace,
                 std::int64_t last_trace);

    int Channels() const { return ChannelsOfRecord; }
    int Records() const { return static_cast<int>(Stations.size()); }
    /// Record of a trace, from 1; also beyond the records of the file. 0 for a trace below 1.
    int Record_Of(std::int64_t trace) const;
    std::int64_t First_Trace(int record) const;
    std::int64_t Last_Trace(int record) const { return First_Trace(record + 1) - 1; }
    /// Shot that a record is of.
    int Shot_Of(int record) const;

    /// Shot and receiver of a trace, whether the project has them or not; nothing for a trace below 1.
    std::optional<PickPlace> Place_Of(std::int64_t trace) const;
    /// First trace of the file that belongs to a shot and receiver; nothing when none does.
    std::optional<std::int64_t> Trace_Of(PickPlace place) const;

  private:
    struct RecordStation {
        int Shot = 0;
        int FirstReceiver = 1;
    };
    void Read_Stations(const Workspace& workspace, SuTraces& file, std::int64_t first_trace,
                       std::int64_t last_trace);
    RecordStation Station(int record) const;

    int ChannelsOfRecord = 0;
    bool Inverted = false;
    std::vector<RecordStation> Stations;  ///< of record 1, 2 ...
};

}  // namespace tarnvik
