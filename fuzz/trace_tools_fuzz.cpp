#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "processing/traces/trace_tools.h"
#include "processing/traces/trace_words.h"

// Trace tools: the first byte chooses the tool and whether the length of the stream is known, the text up to
// the first zero are its arguments, a blank between them, the rest are the traces. What a tool calls a whole
// stream must be one.

namespace {

using namespace tarnvik;

/// The bytes without telling how many they are.
class Pipe : public MemorySource {
  public:
    using MemorySource::MemorySource;
    std::optional<std::int64_t> Length() const override { return std::nullopt; }
};

std::vector<std::string> Words_Of(std::string_view text) {
    std::vector<std::string> list;
    while (!text.empty()) {
        const std::size_t blank = text.find(' ');
        list.emplace_back(text.substr(0, blank));
        text.remove_prefix(blank == std::string_view::npos ? text.size() : blank + 1);
    }
    return list;
}

/// Number of whole traces of equal `ns` in the bytes, -1 where they are none. Read without the reader, which
/// also looks at words that the tools may set to anything.
std::int64_t Traces_In(const std::string& bytes) {
    const TraceWord ns(words::ns);
    std::size_t at = 0;
    std::int64_t traces = 0;
    for (; at + header_length <= bytes.size(); ++traces)
        at += header_length + 4 * static_cast<std::size_t>(ns.Value(bytes.data() + at));
    return at == bytes.size() ? traces : -1;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    const std::string_view input(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::size_t zero = std::min(input.find('\0'), input.size());
    const std::string_view traces = input.substr(std::min(zero + 1, input.size()));
    const TraceTool& tool = Trace_Tools()[data[0] % Trace_Tools().size()];
    MemorySink sink;
    TraceResult result;
    if ((data[0] & 128) != 0) {
        Pipe source(traces);
        result = tool.Run(Words_Of(input.substr(0, zero)), source, sink);
    } else {
        MemorySource source(traces);
        result = tool.Run(Words_Of(input.substr(0, zero)), source, sink);
    }
    if (result.Went_Well() && Traces_In(sink.Bytes) != result.Written) std::abort();
    return 0;
}
