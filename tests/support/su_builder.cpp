#include "support/su_builder.h"

#include <cstring>
#include <fstream>
#include <iterator>

namespace tarnvik::test {

SuBuilder::SuBuilder(int traces, int samples, int interval_us)
    : Bytes(static_cast<std::size_t>(traces) * static_cast<std::size_t>(240 + samples * 4), '\0'),
      TraceLength(240 + samples * 4) {
    for (int trace = 1; trace <= traces; ++trace) {
        Put16(trace, 114, samples).Put16(trace, 116, interval_us).Put16(trace, 28, 1);
    }
}

std::size_t SuBuilder::At(int trace, int offset) const {
    return static_cast<std::size_t>(trace - 1) * static_cast<std::size_t>(TraceLength) +
           static_cast<std::size_t>(offset);
}

SuBuilder& SuBuilder::Put16(int trace, int offset, int value) {
    const auto word = static_cast<std::int16_t>(value);
    std::memcpy(&Bytes.at(At(trace, offset)), &word, sizeof word);
    return *this;
}

SuBuilder& SuBuilder::Put32(int trace, int offset, std::int32_t value) {
    std::memcpy(&Bytes.at(At(trace, offset)), &value, sizeof value);
    return *this;
}

SuBuilder& SuBuilder::Put_Float(int trace, int offset, float value) {
    std::memcpy(&Bytes.at(At(trace, offset)), &value, sizeof value);
    return *this;
}

SuBuilder& SuBuilder::Sample(int trace, int sample, float value) {
    return Put_Float(trace, 240 + (sample - 1) * 4, value);
}

SuBuilder& SuBuilder::Samples(int trace, const std::vector<float>& values) {
    for (std::size_t i = 0; i < values.size(); ++i)
        Sample(trace, static_cast<int>(i) + 1, values[i]);
    return *this;
}

SuBuilder& SuBuilder::Records(int channels) {
    const int traces = static_cast<int>(Bytes.size()) / TraceLength;
    for (int trace = 1; trace <= traces; ++trace) {
        const int record = (trace - 1) / channels + 1;
        const int channel = (trace - 1) % channels + 1;
        Put32(trace, 0, channel).Put32(trace, 8, record).Put32(trace, 12, channel).Put32(trace, 16, record);
    }
    return *this;
}

std::string SuBuilder::Write(const std::string& path) const {
    std::ofstream(path, std::ios::binary) << Bytes;
    return path;
}

std::string Content_Of(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::vector<std::int64_t> Changed_Bytes(const std::string& before, const std::string& after) {
    std::vector<std::int64_t> changed;
    for (std::size_t i = 0; i < before.size() && i < after.size(); ++i) {
        if (before[i] != after[i]) changed.push_back(static_cast<std::int64_t>(i));
    }
    return changed;
}

}  // namespace tarnvik::test
