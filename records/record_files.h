#pragma once

#include <optional>
#include <string>

#include "core/workspace.h"
#include "records/su_file.h"

namespace tarnvik {

/// The SU file on screen and its unfiltered twin, opened for one operation that changes the same header words
/// in both. Words reach the operating system with each call, so that nothing is lost with the program. What
/// could not be written is remembered until Tell_Faults.
class RecordFiles {
  public:
    /// Opens SuFile, for reading only when it cannot be written, and TwinSuFile when there is one. Takes
    /// SampleInterval over into the view, since another program may have changed the file.
    explicit RecordFiles(Workspace& workspace);

    bool Is_Open() const { return File->Is_Open(); }
    SuTraces& Traces() { return *File; }
    /// Last trace that is wholly or mostly in the file, 0 without any.
    int Last_Trace() const;

    /// Writes a word of a trace to both files. False when one of them missed it.
    bool Set_Word(std::int64_t trace, int word, double value);
    /// Writes the samples of a trace to SuFile alone: the twin holds others.
    bool Set_Samples(std::int64_t trace, std::span<const float> samples);

    bool Failed() const { return !Fault.empty(); }
    /// Shows what was not saved in the status field, where it stays; `subject` is the word it starts with
    /// ("Pick", "FB shift"). When all went well, takes away the text of an earlier failure of the same
    /// traces.
    void Tell_Faults(const std::string& subject);

  private:
    bool Note(std::int64_t trace, Stored stored, const std::string& path, const std::string& reason);
    Workspace& Work;
    std::string Opening;  ///< why SuFile cannot be written, empty when it can
    std::optional<SuTraces> File;
    std::optional<SuTraces> Twin;
    std::string Fault;
    std::string Traces_Told;
};

/// Picks of the headers of an SU file to the table Buildgrid, as ms; trace (shot - 1) * NbReceivers +
/// receiver. Cells whose trace the file lacks stay.
void Fill_Grid_From_Headers(Workspace& workspace, SuTraces& file);

/// Picks of the table Buildgrid to ShotTimes; where the table has no cell the time stays.
void Read_Times_From_Grid(Workspace& workspace);

/// Trace of the file under a place of the record picture; nothing while no record is shown or outside of
/// any trace number.
std::optional<int> Trace_At(const RecordView& record, double x);

/// Sample interval in ms; a Fault while it is 0.
double Sample_Ms(const RecordView& record);

}  // namespace tarnvik
