#include "processing/traces/trace_reader.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "core/fault.h"
#include "processing/traces/trace_words.h"
#include "records/su_check.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

// What is read at once stays in the processor's cache on its way out again.
constexpr std::size_t block_bytes = 256 * 1024;
// Enough for the heads that tell other kinds of files. Never more than a block, which is at least half of the
// above.
constexpr std::size_t looked_at = 4096;
static_assert(looked_at <= block_bytes / 2);

}  // namespace

std::size_t TraceBlock::Numbers() const {
    return static_cast<std::size_t>(Trace_Length(Samples)) / sizeof(float);
}

TraceReader::TraceReader(ByteSource& source) : Source(source) {
    Buffer.reset(new float[looked_at / sizeof(float)]);
    Fill(looked_at);
    Look_At_Start();
    RecordBytes = static_cast<std::size_t>(Trace_Length(SampleCount));
    BlockBytes = std::max<std::size_t>(block_bytes / RecordBytes, 1) * RecordBytes;
    Check_Length();
    // Not cleared: the bytes are read into it before any is looked at.
    std::unique_ptr<float[]> buffer(new float[BlockBytes / sizeof(float)]);
    std::memcpy(buffer.get(), Buffer.get(), Filled);
    Buffer = std::move(buffer);
}

void TraceReader::Fill(std::size_t wanted) {
    char* bytes = reinterpret_cast<char*>(Buffer.get());
    while (!Ended && Filled < wanted) {
        const std::size_t got = Source.Read(bytes + Filled, wanted - Filled);
        Ended = got == 0;
        Filled += got;
    }
}

void TraceReader::Look_At_Start() {
    if (Filled == 0) throw Fault("the input is empty");
    const std::string head(reinterpret_cast<const char*>(Buffer.get()), Filled);
    const BytesAt bytes = [&head](std::int64_t position, std::int64_t count) {
        return position < static_cast<std::int64_t>(head.size())
                   ? head.substr(static_cast<std::size_t>(position), static_cast<std::size_t>(count))
                   : std::string();
    };
    const SuCheck check = Check_Su(bytes, Source.Length().value_or(static_cast<std::int64_t>(Filled)));
    // Whether the traces can be used is told below, without the limits that records on the screen have.
    if (check.Refused() && check.Is != SuCheck::Kind::Unusable) throw Fault(check.Wrong.front());
    if (Filled < header_length) {
        throw Fault("the input has " + std::to_string(Filled) +
                    " bytes, less than the header of one trace (" + std::to_string(header_length) + ")");
    }
    FirstHeader.assign(head.begin(), head.begin() + header_length);
    SampleCount = static_cast<int>(TraceWord(words::ns).Value(FirstHeader.data()));
    if (SampleCount == 0) throw Fault("trace 1: ns, the number of samples, is 0");
}

void TraceReader::Refuse_Cut_Trace(std::int64_t traces, std::int64_t left) const {
    throw Fault("trace " + std::to_string(traces + 1) + " is cut short: " + std::to_string(left) +
                " bytes instead of " + std::to_string(RecordBytes) + " (ns = " + std::to_string(SampleCount) +
                ")");
}

void TraceReader::Check_Length() const {
    const auto length = Source.Length();
    if (!length) return;
    const auto record = static_cast<std::int64_t>(RecordBytes);
    if (*length % record != 0) Refuse_Cut_Trace(*length / record, *length % record);
}

TraceBlock TraceReader::Next_Block() {
    // The bytes that were looked at for the first header are the beginning of the first block.
    if (Handed > 0) Filled = 0;
    Fill(BlockBytes);
    const std::size_t whole = Filled / RecordBytes;
    const std::size_t left = Filled % RecordBytes;
    if (left > 0)
        Refuse_Cut_Trace(Handed + static_cast<std::int64_t>(whole), static_cast<std::int64_t>(left));
    const TraceBlock block(Buffer.get(), whole, SampleCount, Handed + 1);
    const TraceWord ns(words::ns);
    for (std::size_t i = 0; i < whole; ++i) {
        const auto its = static_cast<int>(ns.Value(block.Header(i)));
        if (its == SampleCount) continue;
        throw Fault("trace " + std::to_string(block.Number(i)) + ": ns = " + std::to_string(its) +
                    ", the traces before have " + std::to_string(SampleCount));
    }
    Handed += static_cast<std::int64_t>(whole);
    return block;
}

}  // namespace tarnvik
