#include "processing/su_scan.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "core/positioned_file.h"
#include "core/text/number.h"
#include "records/header_words.h"
#include "records/su_check.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

/// The words looked at in each header lie from `tracf` to `dt`.
class ScannedHeader {
  public:
    bool Read(PositionedFile& file, std::int64_t trace, std::int64_t samples) {
        return file.Read(Trace_Position(trace, samples) + First, Bytes.data(), std::ssize(Bytes));
    }
    template <class T>
    T Word(int word) const {
        T value;
        std::memcpy(&value, Bytes.data() + (Header_Word(word).Offset - First), sizeof value);
        return value;
    }

  private:
    static constexpr int First = 12;
    std::array<char, 106> Bytes{};
};

/// Why a file is no little-endian SU file by its first bytes; empty when it is one or too strange to say.
std::string Foreign_Kind(PositionedFile& file, const std::string& path) {
    const auto head_alone = [&file](std::int64_t position, std::int64_t count) {
        std::string bytes;
        if (position > 0) return bytes;
        bytes.resize(static_cast<std::size_t>(count));
        bytes.resize(static_cast<std::size_t>(
            std::max<std::int64_t>(0, file.Read_Some(position, bytes.data(), count))));
        return bytes;
    };
    const SuCheck check = Check_Su(head_alone, file.Length());
    const bool foreign = check.Refused() && check.Is != SuCheck::Kind::Unusable;
    return foreign ? check.Message(path) : std::string();
}

}  // namespace

std::int32_t SuScan::Channels() const {
    return Records.empty() ? 0 : *std::max_element(Records.begin(), Records.end());
}

SuScan Scan_SU_File(const std::string& path) {
    SuScan scan;
    const auto refused = [&scan](std::string why) {
        scan = {};
        scan.Refusal = std::move(why);
        return scan;
    };
    PositionedFile file(path, PositionedFile::Access::Read);
    if (!file.Is_Open()) return refused(path + ": " + file.Reason());
    if (std::string foreign = Foreign_Kind(file, path); !foreign.empty()) return refused(std::move(foreign));
    ScannedHeader header;
    if (file.Length() < header_length || !header.Read(file, 1, 0)) return refused(path + " holds no trace");
    scan.Samples = header.Word<std::uint16_t>(words::ns);
    scan.Interval = header.Word<std::uint16_t>(words::dt);
    scan.Delay = header.Word<std::int16_t>(words::delrt);
    if (scan.Samples == 0)
        return refused(path + "\r\nns, the number of samples of a trace, is 0 in the first header");
    if (scan.Interval == 0) return refused(path + "\r\ndt, the sample interval, is 0 in the first header");
    const std::int64_t length = Trace_Length(scan.Samples);
    scan.Traces = file.Length() / length;
    scan.LeftOver = file.Length() % length;
    if (scan.Traces == 0) return refused(path + " is shorter than its first trace");

    std::int32_t before = 0;
    bool rises = false;
    for (std::int64_t trace = 1; trace <= scan.Traces; ++trace) {
        if (!header.Read(file, trace, scan.Samples)) return refused(path + ": " + file.Reason());
        if (header.Word<std::uint16_t>(words::ns) != scan.Samples)
            return refused("Number of Samples per trace must be constant !");
        if (header.Word<std::uint16_t>(words::dt) != scan.Interval)
            return refused("Sample rate must be constant !");
        const auto channel = header.Word<std::int32_t>(words::tracf);
        if (trace == 1) {
            scan.FirstChannel = scan.LastChannel = channel;
        } else {
            scan.FirstChannel = std::min(scan.FirstChannel, channel);
            scan.LastChannel = std::max(scan.LastChannel, channel);
            rises |= channel > before;
        }
        if (trace == 1 || channel <= before) scan.Records.push_back(0);
        ++scan.Records.back();
        before = channel;
    }
    if (!rises && scan.Traces > 1) scan.Records.clear();
    return scan;
}

std::int64_t Traces_Of_Channels(const std::string& path, const SuScan& scan, std::int32_t first,
                                std::int32_t last) {
    PositionedFile file(path, PositionedFile::Access::Read);
    ScannedHeader header;
    std::int64_t count = 0;
    for (std::int64_t trace = 1; trace <= scan.Traces && header.Read(file, trace, scan.Samples); ++trace) {
        const auto channel = header.Word<std::int32_t>(words::tracf);
        if (channel >= first && channel <= last) ++count;
    }
    return count;
}

}  // namespace tarnvik
