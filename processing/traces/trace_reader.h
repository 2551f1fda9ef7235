#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "processing/traces/byte_streams.h"

namespace tarnvik {

/// Traces that lie one behind the other in memory, to be looked at or changed there. Good until the next
/// block is read.
class TraceBlock {
  public:
    TraceBlock(float* bytes, std::size_t count, int samples, std::int64_t first)
        : Start(bytes), Traces(count), Samples(samples), First(first) {}

    std::size_t Count() const { return Traces; }
    /// Number of a trace of the block in the stream, from 1; `index` counts from 0, here and below.
    std::int64_t Number(std::size_t index) const { return First + static_cast<std::int64_t>(index); }
    /// The whole record, header first.
    char* Header(std::size_t index) const { return reinterpret_cast<char*>(Start + index * Numbers()); }
    std::span<float> Values(std::size_t index) const {
        return {Start + (index + 1) * Numbers() - static_cast<std::size_t>(Samples),
                static_cast<std::size_t>(Samples)};
    }

  private:
    std::size_t Numbers() const;  ///< length of a record in units of a sample
    float* Start;
    std::size_t Traces;
    int Samples;
    std::int64_t First;
};

/// Little-endian SU traces from a stream, many at once. All traces have the sample count of the first; one
/// that tells another is a Fault, as are an empty stream, one of another kind or byte order, and a last trace
/// that is cut short. Where the length is known before, a cut file is refused before its first trace is
/// handed out.
class TraceReader {
  public:
    explicit TraceReader(ByteSource& source);

    int Samples() const { return SampleCount; }
    /// Bytes of a trace.
    std::size_t Trace_Bytes() const { return RecordBytes; }
    /// Header of the first trace, as it came.
    const char* First_Header() const { return FirstHeader.data(); }
    /// Traces handed out so far.
    std::int64_t Traces_Read() const { return Handed; }

    /// The next traces, none at the end.
    TraceBlock Next_Block();

  private:
    void Fill(std::size_t wanted);
    void Look_At_Start();
    void Check_Length() const;
    [[noreturn]] void Refuse_Cut_Trace(std::int64_t traces, std::int64_t left) const;

    ByteSource& Source;
    std::vector<char> FirstHeader;
    int SampleCount = 0;
    std::size_t RecordBytes = 0;
    std::size_t BlockBytes = 0;  ///< whole traces
    std::unique_ptr<float[]> Buffer;
    std::size_t Filled = 0;  ///< bytes in the buffer
    bool Ended = false;
    std::int64_t Handed = 0;
};

}  // namespace tarnvik
