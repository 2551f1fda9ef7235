#include "processing/traces/trace_writer.h"

#include "records/header_words.h"

namespace tarnvik {

namespace {

constexpr std::size_t gathered_at_most = 256 * 1024;
// Pieces from here on are handed to the sink where they stand instead of being copied once more.
constexpr std::size_t large_piece = 64 * 1024;

}  // namespace

TraceWriter::TraceWriter(ByteSink& sink) : Sink(sink) {
    Gathered.reserve(gathered_at_most);
}

void TraceWriter::Put(const TraceBlock& block, std::size_t first, std::size_t count) {
    if (count == 0) return;
    const std::size_t bytes = header_length + block.Values(first).size_bytes();
    Put_Bytes(block.Header(first), bytes * count, static_cast<std::int64_t>(count));
}

void TraceWriter::Put(const char* header, std::span<const float> samples) {
    Put(header, 0, samples, 0);
}

void TraceWriter::Put(const char* header, std::size_t before, std::span<const float> samples,
                      std::size_t after) {
    Gather(header, header_length);
    Gather_Zeros(before * sizeof(float));
    Gather(reinterpret_cast<const char*>(samples.data()), samples.size_bytes());
    Gather_Zeros(after * sizeof(float));
    ++Written;
}

void TraceWriter::Put_Bytes(const char* bytes, std::size_t count, std::int64_t traces) {
    Gather(bytes, count);
    Written += traces;
}

void TraceWriter::Gather(const char* bytes, std::size_t count) {
    if (Gathered.size() + count > gathered_at_most) Flush();
    if (count >= large_piece) {
        Flush();
        Sink.Write(bytes, count);
    } else {
        Gathered.insert(Gathered.end(), bytes, bytes + count);
    }
}

void TraceWriter::Gather_Zeros(std::size_t count) {
    if (Gathered.size() + count > gathered_at_most) Flush();
    Gathered.resize(Gathered.size() + count);
}

void TraceWriter::Flush() {
    if (!Gathered.empty()) Sink.Write(Gathered.data(), Gathered.size());
    Gathered.clear();
}

void TraceWriter::Finish() {
    Flush();
}

}  // namespace tarnvik
