#pragma once

#include <optional>
#include <string>

#include "core/workspace.h"
#include "records/su_file.h"

namespace tarnvik {

/// The project's SU file and its unfiltered twin, opened for one operation: all that the user changes in
/// headers and samples goes through here, the same words into both. Words reach the operating system with
/// each call, so that nothing is lost with the program, and stand in the edit on hand. What could not be
/// written is remembered until Tell_Faults.
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
    /// Writes `fldr` and `tracf` of a trace to both files.
    bool Set_Record_And_Channel(std::int64_t trace, std::int32_t record, std::int32_t channel);
    /// Writes the samples of a trace to SuFile alone: the twin holds others.
    bool Set_Samples(std::int64_t trace, std::span<const float> samples);

    bool Failed() const { return !Fault.empty(); }
    /// What could not be written first, with its file and the reason; empty while all went well.
    const std::string& First_Fault() const { return Fault; }
    /// Shows what was not saved in the status field, where it stays; `subject` is the word it starts with
    /// ("Pick", "FB shift"). When all went well, takes away the text of an earlier failure of the same
    /// traces.
    void Tell_Faults(const std::string& subject);

  private:
    bool Note(std::int64_t trace, Stored stored, const std::string& path, const std::string& reason);
    template <class Write>
    bool Write_Both(std::int64_t trace, Write write);
    Workspace& Work;
    std::string Opening;  ///< why SuFile cannot be written, empty when it can
    std::optional<SuWriter> File;
    std::optional<SuWriter> Twin;
    std::string Fault;
    std::string Traces_Told;
};

/// World units of one trace on the record picture: trace t stands from t * trace_width on.
inline constexpr double trace_width = 2000;

/// Trace of the file under a place of the record picture; nothing while no record is shown or outside of
/// any trace number.
std::optional<int> Trace_At(const RecordView& record, double x);

/// Sample interval in ms; a Fault while it is 0.
double Sample_Ms(const RecordView& record);

}  // namespace tarnvik
