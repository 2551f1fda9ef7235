#pragma once

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "processing/traces/trace_tools.h"
#include "processing/traces/trace_words.h"

namespace tarnvik::test {

/// A source as a pipe is one: of unknown length, and never more than a few bytes at once.
class Trickle : public ByteSource {
  public:
    explicit Trickle(std::string_view bytes) : Bytes(bytes) {}
    std::size_t Read(char* target, std::size_t count) override {
        const std::size_t got = std::min<std::size_t>({count, Bytes.size() - At, 997});
        Bytes.copy(target, got, At);
        At += got;
        return got;
    }
    std::optional<std::int64_t> Length() const override { return std::nullopt; }
    void Read_At(std::int64_t, char*, std::size_t) override { throw Fault("a pipe has no places"); }

  private:
    std::string_view Bytes;
    std::size_t At = 0;
};

struct Outcome {
    TraceResult Result;
    std::string Bytes;
};

inline Outcome Run_Traces(std::string_view tool, const std::vector<std::string>& arguments,
                          ByteSource& source) {
    MemorySink sink;
    for (const TraceTool& one : Trace_Tools()) {
        if (one.Name == tool) {
            const TraceResult result = one.Run(arguments, source, sink);
            return {result, sink.Bytes};
        }
    }
    return {};
}

inline Outcome Run_Traces(std::string_view tool, const std::vector<std::string>& arguments,
                          std::string_view bytes) {
    MemorySource source(bytes);
    return Run_Traces(tool, arguments, source);
}

/// Traces of a content by their first header's `ns`.
inline std::vector<std::string> Traces_Of(const std::string& bytes) {
    std::vector<std::string> traces;
    if (bytes.empty()) return traces;
    const auto samples = static_cast<std::size_t>(TraceWord(words::ns).Value(bytes.data()));
    const std::size_t length = header_length + 4 * samples;
    for (std::size_t at = 0; at < bytes.size(); at += length)
        traces.push_back(bytes.substr(at, length));
    return traces;
}

inline std::vector<double> Values_Of(const std::string& bytes, std::string_view word) {
    std::vector<double> values;
    for (const std::string& trace : Traces_Of(bytes))
        values.push_back(TraceWord::Named(word)->Value(trace.data()));
    return values;
}

/// Samples of a trace, counted from 0 as the traces are.
inline std::vector<float> Samples_Of(const std::string& bytes, std::size_t trace) {
    const std::string record = Traces_Of(bytes).at(trace);
    std::vector<float> samples((record.size() - header_length) / 4);
    std::memcpy(samples.data(), record.data() + header_length, samples.size() * 4);
    return samples;
}

}  // namespace tarnvik::test
