#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "processing/traces/byte_streams.h"
#include "processing/traces/trace_reader.h"

namespace tarnvik {

/// Traces into a sink, small pieces gathered to large ones. Finish() must be called behind the last trace:
/// what is not flushed by then is lost.
class TraceWriter {
  public:
    explicit TraceWriter(ByteSink& sink);

    /// Traces `first` to `first + count - 1` (from 0) of a block, as they stand there.
    void Put(const TraceBlock& block, std::size_t first, std::size_t count);
    /// One trace. The header must tell the number of the samples.
    void Put(const char* header, std::span<const float> samples);
    /// A trace of which only a part has samples: `before` zeros, the samples, `after` zeros.
    void Put(const char* header, std::size_t before, std::span<const float> samples, std::size_t after);
    /// Whole traces as bytes.
    void Put_Bytes(const char* bytes, std::size_t count, std::int64_t traces);
    void Finish();

    std::int64_t Traces_Written() const { return Written; }

  private:
    void Gather(const char* bytes, std::size_t count);
    void Gather_Zeros(std::size_t count);
    void Flush();
    ByteSink& Sink;
    std::vector<char> Gathered;
    std::int64_t Written = 0;
};

}  // namespace tarnvik
