#include "processing/instruments/seg2_samples.h"

#include <cmath>

namespace tarnvik {

namespace {

constexpr int group_samples = 4;
constexpr int group_bytes = 10;

int Bytes_Of_One(Seg2Code code) {
    switch (code) {
        case Seg2Code::Int16:
            return 2;
        case Seg2Code::Int32:
        case Seg2Code::Float32:
            return 4;
        case Seg2Code::Float64:
            return 8;
        case Seg2Code::Int20:
            break;
    }
    return 0;
}

/// Four exponents of 4 bits in the first word, that of the first sample in its lowest bits, then four
/// mantissas in one's complement.
double Sample_Of_Group(const char* group, int index, ByteOrder order) {
    const int exponent = U16_At(group, order) >> (4 * index) & 0xF;
    const int mantissa = I16_At(group + 2 + 2 * index, order);
    return std::ldexp(mantissa < 0 ? mantissa + 1 : mantissa, exponent);
}

template <typename Number>
void Fill(std::span<double> samples, const char* bytes, int step, Number number) {
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = number(bytes + i * static_cast<std::size_t>(step));
}

}  // namespace

std::optional<Seg2Code> Seg2_Code(int code) {
    if (code < static_cast<int>(Seg2Code::Int16) || code > static_cast<int>(Seg2Code::Float64))
        return std::nullopt;
    return static_cast<Seg2Code>(code);
}

const char* Name_Of_Code(Seg2Code code) {
    switch (code) {
        case Seg2Code::Int16:
            return "int16";
        case Seg2Code::Int32:
            return "int32";
        case Seg2Code::Int20:
            return "int20";
        case Seg2Code::Float32:
            return "float32";
        case Seg2Code::Float64:
            return "float64";
    }
    return "";
}

std::int64_t Bytes_Of_Samples(Seg2Code code, std::int64_t samples) {
    if (code == Seg2Code::Int20) return (samples + group_samples - 1) / group_samples * group_bytes;
    return samples * Bytes_Of_One(code);
}

std::int64_t Samples_In_Bytes(Seg2Code code, std::int64_t bytes) {
    if (code == Seg2Code::Int20) return bytes / group_bytes * group_samples;
    return bytes / Bytes_Of_One(code);
}

void Decode_Seg2(std::string_view bytes, Seg2Code code, ByteOrder order, std::span<double> samples) {
    const char* const data = bytes.data();
    switch (code) {
        case Seg2Code::Int16:
            return Fill(samples, data, 2, [order](const char* at) { return I16_At(at, order); });
        case Seg2Code::Int32:
            return Fill(samples, data, 4, [order](const char* at) { return I32_At(at, order); });
        case Seg2Code::Float32:
            return Fill(samples, data, 4, [order](const char* at) { return Float_At(at, order); });
        case Seg2Code::Float64:
            return Fill(samples, data, 8, [order](const char* at) { return Double_At(at, order); });
        case Seg2Code::Int20:
            for (std::size_t i = 0; i < samples.size(); ++i) {
                samples[i] = Sample_Of_Group(data + i / group_samples * group_bytes,
                                             static_cast<int>(i % group_samples), order);
            }
    }
}

}  // namespace tarnvik
