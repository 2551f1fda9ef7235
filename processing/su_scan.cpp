#include "processing/su_scan.h"

#include <algorithm>

#include "core/positioned_file.h"
#include "core/text/number.h"
#include "records/su_check.h"
#include "records/su_file.h"
#include "records/trace_header.h"

namespace tarnvik {

namespace {

bool Read(PositionedFile& file, std::int64_t trace, std::int64_t samples, TraceHeader& header) {
    return file.Read(Trace_Position(trace, samples), header.Bytes.data(), header_length);
}

/// A 16-bit word without its sign.
int Unsigned(const TraceHeader& header, int word) {
    return static_cast<std::uint16_t>(static_cast<std::int16_t>(header.Word(word)));
}

std::int32_t Channel(const TraceHeader& header) {
    return static_cast<std::int32_t>(header.Word(words::tracf));
}

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
    TraceHeader header;
    if (file.Length() < header_length || !Read(file, 1, 0, header)) return refused(path + " holds no trace");
    scan.Samples = Unsigned(header, words::ns);
    scan.Interval = Unsigned(header, words::dt);
    scan.Delay = static_cast<int>(header.Word(words::delrt));
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
        if (!Read(file, trace, scan.Samples, header)) return refused(path + ": " + file.Reason());
        if (Unsigned(header, words::ns) != scan.Samples)
            return refused("Number of Samples per trace must be constant !");
        if (Unsigned(header, words::dt) != scan.Interval) return refused("Sample rate must be constant !");
        const std::int32_t channel = Channel(header);
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
    TraceHeader header;
    std::int64_t count = 0;
    for (std::int64_t trace = 1; trace <= scan.Traces && Read(file, trace, scan.Samples, header); ++trace) {
        const std::int32_t channel = Channel(header);
        if (channel >= first && channel <= last) ++count;
    }
    return count;
}

}  // namespace tarnvik
