#pragma once

#include <optional>

#include "core/pick_place.h"
#include "core/workspace.h"
#include "records/record_files.h"
#include "records/spread_layout.h"

namespace tarnvik {

/// How a pick stands in ShotTimes: to the hundredth of a ms that the table shows, or as the single-precision
/// number that the curves' pointer gives.
enum class PickDigits { Hundredths, All };

/// The one routine that writes a first break: header word 86 (tenths of a ms) of its trace in the SU file and
/// its twin, ShotTimes, and the cell of Buildgrid. 0 takes the pick away.
class PickSetter {
  public:
    /// Opens the project's records for one operation. A project without any has its picks in ShotTimes alone.
    /// What is set gets this origin, or keeps the one it has.
    explicit PickSetter(Workspace& workspace, std::optional<PickOrigin> origin = PickOrigin::Hand);

    /// The pick of a trace. False when a file missed it; where the project has no such shot and receiver, the
    /// status field tells that it went to the file alone.
    bool Set_Trace(std::int64_t trace, double ms, PickDigits digits = PickDigits::Hundredths);
    /// The pick of a shot and receiver, in the first trace of the file that belongs to it.
    bool Set_Place(PickPlace place, double ms, PickDigits digits = PickDigits::Hundredths);
    /// The pick in ShotTimes and Buildgrid alone, for words that the file has already.
    void Set_Time(PickPlace place, double ms, PickDigits digits = PickDigits::Hundredths);

    /// The same from header word 86. A pick that stood for that word already keeps its origin.
    void Take_Word(PickPlace place, double word);

    /// True where the project has a pick that no automatic picking made.
    bool By_Hand(PickPlace place) const;

    const SpreadLayout& Layout() const { return Spread; }
    RecordFiles& Files() { return Records; }
    /// Tells in the status field what could not be written; see RecordFiles.
    void Tell_Faults(const std::string& subject) { Records.Tell_Faults(subject); }

  private:
    Workspace& Work;
    std::optional<PickOrigin> Origin;
    RecordFiles Records;
    SpreadLayout Spread;
};

/// One pick as an edit of its own.
void Set_Pick(Workspace& workspace, PickPlace place, double ms, PickDigits digits = PickDigits::Hundredths,
              PickOrigin origin = PickOrigin::Hand);

/// How the table shows a time: two decimals, and red below 0, which is no pick.
void Show_Time(TextGrid::Cell& cell, float time);

/// "Pick shot 3, receiver 7", the name of such an edit.
std::string Pick_Name(PickPlace place);

/// "Kill shot 3, receiver 7", the name of an edit of one trace; "Kill trace 9" where the trace has no place.
std::string Trace_Edit_Name(const std::string& what, const SpreadLayout& spread, std::int64_t trace);

/// ShotTimes and Buildgrid take the picks of all headers of the file, zeros too, each at the place of its
/// trace. Places whose trace the file lacks keep theirs, and a pick that has that time already its origin.
/// With `keep_hand` picks made by hand stay as the project has them.
void Take_Header_Picks(PickSetter& picks, bool keep_hand = false);

}  // namespace tarnvik
