#include "records/su_replace.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "core/files.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

constexpr std::int64_t block = 4 << 20;  ///< bytes that are copied at once

/// Bytes of a part of the file, as they were and as they become.
struct Part {
    bool OfHeader = false;
    std::int64_t Position = 0;
    std::string Before;
    std::string After;
};

/// Copies a file from the front to the end, some of its traces changed on the way.
class Copying {
  public:
    Copying(PositionedFile& file, std::int32_t samples, const PieceWriter& write)
        : File(file), Samples(samples), Write(write) {}

    /// False when the file could not be read or the piece was refused.
    bool Up_To(std::int64_t end) {
        std::string bytes;
        while (Done < end) {
            bytes.resize(static_cast<std::size_t>(std::min(block, end - Done)));
            if (!File.Read(Done, bytes.data(), std::ssize(bytes)) || !Write(bytes)) return false;
            Done += std::ssize(bytes);
        }
        return true;
    }
    bool Change(std::int64_t trace, const std::function<void(std::int64_t, TraceInHand&)>& change) {
        TraceInHand hand;
        hand.Samples.resize(static_cast<std::size_t>(Samples));
        const std::int64_t bytes = Trace_Length(Samples) - header_length;
        if (!File.Read(Done, hand.Header.data(), header_length) ||
            !File.Read(Done + header_length, hand.Samples.data(), bytes)) {
            return false;
        }
        Part header{true, Done, Header_Of(hand), {}};
        Part samples{false, Done + header_length, Samples_Of(hand), {}};
        change(trace, hand);
        header.After = Header_Of(hand);
        samples.After = Samples_Of(hand);
        if (!Write(header.After) || !Write(samples.After)) return false;
        Done += Trace_Length(Samples);
        for (Part* part : {&header, &samples}) {
            if (part->Before != part->After) Changed.push_back(std::move(*part));
        }
        return true;
    }
    const std::vector<Part>& Parts() const { return Changed; }

  private:
    static std::string Header_Of(const TraceInHand& hand) { return {hand.Header.data(), header_length}; }
    static std::string Samples_Of(const TraceInHand& hand) {
        return {reinterpret_cast<const char*>(hand.Samples.data()), hand.Samples.size() * sizeof(float)};
    }

    PositionedFile& File;
    std::int32_t Samples;
    const PieceWriter& Write;
    std::int64_t Done = 0;
    std::vector<Part> Changed;
};

/// The new file takes the name by the rights of the folder; the file's own must be asked for.
std::string Why_Read_Only(const std::string& path) {
    const PositionedFile file(path, PositionedFile::Access::Write);
    if (!file.Is_Open()) return file.Reason();
    std::error_code failed;
    const auto rights = std::filesystem::status(path, failed).permissions();
    const bool writable = (rights & std::filesystem::perms::owner_write) != std::filesystem::perms::none;
    return writable ? std::string() : "the file is marked read-only";
}

void Tell(FileRecorder& recorder, const std::string& path, const Part& part) {
    if (!part.OfHeader) {
        recorder.Note_File_Change(path, part.Position, part.Before, part.After);
        return;
    }
    // Of a header the words that changed.
    const ByteChanges words = ByteChanges::Between(part.Before, part.After);
    for (const ByteChanges::Run& run : words.All())
        recorder.Note_File_Change(path, part.Position + run.Position, run.Before, run.After);
}

}  // namespace

void TraceInHand::Set_Word(int word, std::int16_t value) {
    std::memcpy(Header.data() + Header_Word(word).Offset, &value, sizeof value);
}

std::string Replace_Traces(const std::string& path, FileRecorder* recorder, std::vector<std::int64_t> traces,
                           const std::function<void(std::int64_t trace, TraceInHand&)>& change) {
    std::sort(traces.begin(), traces.end());
    traces.erase(std::unique(traces.begin(), traces.end()), traces.end());
    if (std::string reason = Why_Read_Only(path); !reason.empty()) return reason;
    const std::int32_t samples = SuTraces(path).Nb_Samples();
    PositionedFile file(path, PositionedFile::Access::Read);
    if (samples < 0 || (!traces.empty() &&
                        (traces.front() < 1 || Trace_Position(traces.back() + 1, samples) > file.Length()))) {
        return "beyond the end of the file";
    }
    std::vector<Part> changed;
    std::string reason = Replace_File_In_Pieces(path, [&](const PieceWriter& write) -> std::string {
        Copying copy(file, samples, write);
        bool whole = true;
        for (const std::int64_t trace : traces)
            whole = whole && copy.Up_To(Trace_Position(trace, samples)) && copy.Change(trace, change);
        whole = whole && copy.Up_To(file.Length());
        changed = copy.Parts();
        // A piece that was refused tells its own reason.
        return whole || !file.Reason().empty() ? file.Reason() : "not copied";
    });
    if (!reason.empty()) return reason;
    for (const Part& part : changed) {
        if (recorder != nullptr) Tell(*recorder, path, part);
    }
    return {};
}

}  // namespace tarnvik
