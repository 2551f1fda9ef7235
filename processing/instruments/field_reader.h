#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "processing/instruments/field_file.h"
#include "processing/traces/byte_streams.h"
#include "records/trace_header.h"

namespace tarnvik {

/// Most samples of a trace and longest interval that the words `ns` and `dt` hold.
inline constexpr int most_samples = 32767;
inline constexpr int longest_interval = 32767;  ///< microseconds

/// The header that a trace gets in the SU file. Places that have a value stand in no word yet: in which steps
/// they are written is known when all files are.
struct FieldHeader {
    TraceHeader Words;
    TracePlaces Places;
};

/// Traces of an instrument's file as those of an SU file, one at a time. Traces count from 1.
class FieldReader {
  public:
    virtual ~FieldReader() = default;
    FieldReader() = default;
    FieldReader(const FieldReader&) = delete;
    FieldReader& operator=(const FieldReader&) = delete;

    /// What the file holds. Only a usable one has traces to be read.
    const FieldFile& File() const { return Told; }
    /// `ns` and `dt` stand in the words, `ns` of the whole file. What cannot be read is a Fault.
    virtual FieldHeader Header(std::int64_t trace) = 0;
    /// All samples, `File().Samples` of them, zeros behind the trace's own.
    virtual void Samples(std::int64_t trace, std::vector<float>& samples) = 0;
    /// What was found to be wrong since the file was opened, after all headers were read.
    virtual std::vector<std::string> Late_Faults() const { return {}; }

  protected:
    FieldFile Told;
};

/// A reader by what the file is, never none: one that cannot be used tells why. The source must have a known
/// length and outlive the reader.
std::unique_ptr<FieldReader> Open_Field_File(ByteSource& source, const std::string& path);

// The readers of each kind, for a file that looks like it.
std::unique_ptr<FieldReader> Open_Seg2_File(ByteSource& source);
std::unique_ptr<FieldReader> Open_Segy_File(ByteSource& source);
std::unique_ptr<FieldReader> Open_Su_File(ByteSource& source);

/// `count` bytes from a place, fewer at the end of the source.
std::string Bytes_Of_Source(ByteSource& source, std::int64_t position, std::int64_t count);

/// Places that the words of an SU header hold, the scale words counted in.
TracePlaces Places_In_Words(const TraceHeader& header);

}  // namespace tarnvik
