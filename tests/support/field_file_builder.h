#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tarnvik::test {

/// Numbers as bytes in one of the two orders.
class ByteRow {
  public:
    explicit ByteRow(bool big = false) : Big(big) {}
    ByteRow& U16(std::uint64_t value) { return Add(value, 2); }
    ByteRow& U32(std::uint64_t value) { return Add(value, 4); }
    ByteRow& Real32(float value);
    ByteRow& Real64(double value);
    ByteRow& Text(const std::string& text);
    /// Zeros up to this length.
    ByteRow& Up_To(std::size_t length);
    /// Puts a number over what stands there.
    ByteRow& Put(std::size_t at, std::uint64_t value, int size);
    std::string Bytes;

  private:
    ByteRow& Add(std::uint64_t value, int size);
    bool Big;
};

/// A SEG-2 file as the standard of 1990 lays it out, with the freedoms that instruments take.
struct Seg2Builder {
    struct Trace {
        std::vector<std::string> Strings;
        int Code = 4;
        std::string Data;
        std::uint32_t Samples = 0;
        int LyingBytes = 0;  ///< added to the length of the data block that is told
    };
    bool Big = false;
    std::string StringEnd = std::string(1, '\0');
    std::string LineEnd = "\n";
    int Padding = 0;      ///< bytes behind the strings of each block, to lengths that are no multiple of 4
    bool LastEnd = true;  ///< the strings of a block are ended by a length of 0
    int MoreTraces = 0;   ///< added to the number of traces that is told
    std::vector<std::string> Strings;
    std::vector<Trace> Traces;

    /// A trace of 32-bit floats.
    Seg2Builder& Add(std::vector<std::string> strings, const std::vector<float>& samples);
    /// Samples of one of the five formats; those of 20 bits by mantissa and exponent.
    Seg2Builder& Add(int code, const std::vector<std::pair<double, int>>& samples);
    std::string Bytes() const;

  private:
    std::string Block_Of_Strings(const std::vector<std::string>& strings) const;
};

/// A SEG-Y file; what is 0 or empty is left out of it.
struct SegyBuilder {
    bool Big = true;
    bool Ebcdic = true;
    int Revision = 0;
    int Format = 1;
    int Samples = 0;       ///< in the binary header
    int Interval = 0;      ///< in the binary header
    int TraceSamples = 0;  ///< in the trace headers
    int TraceInterval = 0;
    std::vector<std::string> FurtherTexts;
    int FurtherTextsTold = 0;
    /// Data of each trace and 16- or 32-bit words of its header: offset, size, value.
    struct Word {
        std::size_t Offset;
        int Size;
        std::int64_t Value;
    };
    std::vector<std::pair<std::string, std::vector<Word>>> Traces;
    std::string Bytes() const;
    /// Text of one letter set in the other.
    static std::string To_Ebcdic(const std::string& ascii);
};

/// A number as an IBM machine of 1970 kept it in 32 bits.
std::uint32_t Ibm_Float(double value);

}  // namespace tarnvik::test
