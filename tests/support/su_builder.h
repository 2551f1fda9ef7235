#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarnvik::test {

/// Small SU files for tests: traces of equal length, header words by byte offset, samples by number.
class SuBuilder {
  public:
    explicit SuBuilder(int traces, int samples, int interval_us = 1000);

    SuBuilder& Put16(int trace, int offset, int value);
    SuBuilder& Put32(int trace, int offset, std::int32_t value);
    SuBuilder& Put_Float(int trace, int offset, float value);
    /// Sample `sample` (from 1) of a trace.
    SuBuilder& Sample(int trace, int sample, float value);
    SuBuilder& Samples(int trace, const std::vector<float>& values);
    /// Records of `channels` traces: fldr, ep, tracf, tracl and trid as a tidy recorder writes them.
    SuBuilder& Records(int channels);

    /// Writes the file and answers its path.
    std::string Write(const std::string& path) const;

    std::string Bytes;

  private:
    std::size_t At(int trace, int offset) const;
    int TraceLength;
};

/// Whole content of a file.
std::string Content_Of(const std::string& path);
/// Bytes at which two contents of equal length differ.
std::vector<std::int64_t> Changed_Bytes(const std::string& before, const std::string& after);

}  // namespace tarnvik::test
