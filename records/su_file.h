#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "core/positioned_file.h"
#include "core/workspace.h"
#include "records/header_words.h"
#include "records/trace_header.h"

namespace tarnvik {

/// What became of a value that was to be written into an SU file.
enum class Stored {
    Yes,
    DoesNotFit,  ///< too large for its word, which keeps what it held
    No,          ///< the file cannot be written or has no such trace; SuTraces::Reason tells why
};

/// Bytes of a trace of `samples` samples, and byte at which trace `trace` (from 1) begins. A negative count
/// gives the negative length that it stands for.
constexpr std::int64_t Trace_Length(std::int64_t samples) {
    return samples * 4 + header_length;
}
constexpr std::int64_t Trace_Position(std::int64_t trace, std::int64_t samples) {
    return (trace - 1) * Trace_Length(samples);
}

/// The traces of an SU file, opened for one operation and closed with it, so that a file changed by another
/// program is seen at once. Traces and samples count from 1. Sample count and interval are those of the first
/// trace and hold for all. Nothing is ever written beyond the end of the file.
class SuTraces {
  public:
    using Access = PositionedFile::Access;
    explicit SuTraces(const std::string& path, Access access = Access::Read);

    bool Is_Open() const { return File.Is_Open(); }
    const std::string& Reason() const { return File.Reason(); }
    std::int64_t Length() const { return File.Length(); }
    /// `ns` and `dt` (microseconds) of the first trace; 0 in a file too short to hold them.
    std::int16_t Samples_Word() const { return Word_Of_Samples; }
    std::int16_t Sample_Interval() const { return Interval; }
    std::int32_t Nb_Samples() const { return Word_Of_Samples; }
    /// Number of traces by the file's length, nearest, halves to even; nothing when the length of a trace is
    /// 0 or the number is too large. Negative where `ns` is.
    std::optional<std::int32_t> Nb_Traces() const;

    /// A header word; nothing beyond the end of the file.
    std::optional<double> Word(std::int64_t trace, int word);
    /// The same, and 0 beyond the end.
    double Word_Or_Zero(std::int64_t trace, int word) { return Word(trace, word).value_or(0); }
    /// The whole header of a trace in one read. False beyond the end of the file.
    bool Read_Header(std::int64_t trace, TraceHeader& header);
    /// The low 16 bits of `tracf`; nothing beyond the end.
    std::optional<std::int16_t> Channel(std::int64_t trace);

    /// First-break pick in ms, in tenths; 0 means none, also beyond the end of the file.
    double Pick_Ms(std::int64_t trace) { return Word_Or_Zero(trace, words::First_Breaks) / 10.0; }

    /// One sample; nothing beyond the trace or the file.
    std::optional<float> Sample(std::int64_t trace, std::int32_t sample);

    /// Samples 1 to `target.size()` of a trace, at most Nb_Samples; tells how many were read. The others keep
    /// what the target held.
    std::int32_t Samples(std::int64_t trace, std::span<float> target);

    /// Header and samples of a trace in one read, for drawing: the words are those of Word, the samples as in
    /// Samples.
    struct Trace {
        std::int16_t Identification = 0;  ///< `trid`
        double PickMs = 0;
        std::int32_t SamplesRead = 0;
    };
    Trace Read_Trace(std::int64_t trace, std::span<float> samples);

  protected:
    PositionedFile File;

  private:
    std::int16_t Word_Of_Samples = 0;
    std::int16_t Interval = 0;
};

/// The one way into an SU file: writes header words and samples, exactly the bytes meant, and tells the
/// recorder what stood there before. A file of the user has the project's Edits as its recorder; without one
/// nobody is told, which suits copies that this program made for itself.
class SuWriter : public SuTraces {
  public:
    SuWriter(const std::string& path, FileRecorder* recorder, Access access = Access::Write)
        : SuTraces(path, access), Path(path), Recorder(recorder) {}

    /// Writes a header word, rounded to the nearest whole number, halves to even. A value beyond 16 bits
    /// leaves a 16-bit word as it was. Words 72 to 78 get the 32-bit integer form of the value, although they
    /// are read as floats; users' files rely on it.
    Stored Set_Word(std::int64_t trace, int word, double value);
    /// Writes the bytes in which a header differs from the one that Read_Header has just given.
    Stored Set_Header(std::int64_t trace, const TraceHeader& before, const TraceHeader& after);
    /// Writes `fldr` and `tracf`, which stand side by side.
    Stored Set_Record_And_Channel(std::int64_t trace, std::int32_t record, std::int32_t channel);
    /// Writes samples 1 to `source.size()`, at most Nb_Samples.
    Stored Set_Samples(std::int64_t trace, std::span<const float> source);

  private:
    Stored Put(std::int64_t position, const void* source, std::int64_t count);
    std::string Path;
    FileRecorder* Recorder;
    std::string Former;  ///< bytes before a write; kept for its memory
};

/// The project's SuFile as it can be opened: a full path as it stands, any other name from the folder of the
/// project file, never from the folder that the program runs in. The name in the project stays as it is.
std::string Su_Path(const Project& project);
/// File of the same name beside the project file, where SuFile names another one by a full path; empty when
/// there is none.
std::string Su_File_Beside(const Project& project);

/// Reads number of traces, sample count and interval of a file into the view. What cannot be read keeps its
/// value. False when the file cannot be opened.
bool Recherche_Nb_Trace(RecordView& view, const std::string& path);

}  // namespace tarnvik
