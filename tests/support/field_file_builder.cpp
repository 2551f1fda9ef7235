#include "support/field_file_builder.h"

#include <bit>
#include <cmath>

namespace tarnvik::test {

ByteRow& ByteRow::Add(std::uint64_t value, int size) {
    const std::size_t at = Bytes.size();
    Bytes.resize(at + static_cast<std::size_t>(size));
    return Put(at, value, size);
}

ByteRow& ByteRow::Put(std::size_t at, std::uint64_t value, int size) {
    for (int i = 0; i < size; ++i)
        Bytes[at + static_cast<std::size_t>(Big ? size - 1 - i : i)] = static_cast<char>(value >> (8 * i));
    return *this;
}

ByteRow& ByteRow::Real32(float value) {
    return Add(std::bit_cast<std::uint32_t>(value), 4);
}

ByteRow& ByteRow::Real64(double value) {
    return Add(std::bit_cast<std::uint64_t>(value), 8);
}

ByteRow& ByteRow::Text(const std::string& text) {
    Bytes += text;
    return *this;
}

ByteRow& ByteRow::Up_To(std::size_t length) {
    if (Bytes.size() < length) Bytes.resize(length);
    return *this;
}

Seg2Builder& Seg2Builder::Add(std::vector<std::string> strings, const std::vector<float>& samples) {
    ByteRow data(Big);
    for (const float sample : samples)
        data.Real32(sample);
    Traces.push_back({std::move(strings), 4, data.Bytes, static_cast<std::uint32_t>(samples.size()), 0});
    return *this;
}

Seg2Builder& Seg2Builder::Add(int code, const std::vector<std::pair<double, int>>& samples) {
    ByteRow data(Big);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const auto [value, exponent] = samples[i];
        const auto whole = static_cast<std::uint64_t>(static_cast<std::int64_t>(value));
        if (code == 1) data.U16(whole);
        if (code == 2) data.U32(whole);
        if (code == 4) data.Real32(static_cast<float>(value));
        if (code == 5) data.Real64(value);
        if (code != 3) continue;
        if (i % 4 == 0) {
            std::uint64_t exponents = 0;
            for (std::size_t k = 0; k < 4 && i + k < samples.size(); ++k)
                exponents |= static_cast<std::uint64_t>(samples[i + k].second) << (4 * k);
            data.U16(exponents);
        }
        data.U16(value < 0 ? whole - 1 : whole);  // one's complement
        if (i + 1 == samples.size()) data.Up_To((samples.size() + 3) / 4 * 10);
    }
    Traces.push_back(
        {{"SAMPLE_INTERVAL 0.001"}, code, data.Bytes, static_cast<std::uint32_t>(samples.size()), 0});
    return *this;
}

std::string Seg2Builder::Block_Of_Strings(const std::vector<std::string>& strings) const {
    ByteRow block(Big);
    for (const std::string& text : strings)
        block.U16(text.size() + StringEnd.size() + 2).Text(text).Text(StringEnd);
    if (LastEnd) block.U16(0);
    return block.Up_To(block.Bytes.size() + static_cast<std::size_t>(Padding)).Bytes;
}

std::string Seg2Builder::Bytes() const {
    constexpr std::size_t head = 32;
    ByteRow file(Big);
    file.U16(0x3A55).U16(1).U16(4 * Traces.size()).U16(Traces.size() + static_cast<std::size_t>(MoreTraces));
    file.Text(std::string(1, static_cast<char>(StringEnd.size()))).Text(StringEnd).Up_To(11);
    file.Text(std::string(1, static_cast<char>(LineEnd.size()))).Text(LineEnd).Up_To(head);
    const std::size_t pointers = file.Bytes.size();
    file.Up_To(pointers + 4 * Traces.size()).Text(Block_Of_Strings(Strings));
    for (std::size_t i = 0; i < Traces.size(); ++i) {
        const Trace& trace = Traces[i];
        file.Put(pointers + 4 * i, file.Bytes.size(), 4);
        const std::string strings = Block_Of_Strings(trace.Strings);
        const std::size_t start = file.Bytes.size();
        file.U16(0x4422).U16(head + strings.size());
        file.U32(trace.Data.size() + static_cast<std::size_t>(trace.LyingBytes)).U32(trace.Samples);
        file.Text(std::string(1, static_cast<char>(trace.Code))).Up_To(start + head);
        file.Text(strings).Text(trace.Data);
    }
    return file.Bytes;
}

std::string SegyBuilder::To_Ebcdic(const std::string& ascii) {
    std::string text = ascii;
    for (char& letter : text) {
        const int code = letter;
        int other = 0x40;
        if (code >= 'A' && code <= 'I') other = 0xC1 + code - 'A';
        if (code >= 'J' && code <= 'R') other = 0xD1 + code - 'J';
        if (code >= 'S' && code <= 'Z') other = 0xE2 + code - 'S';
        if (code >= 'a' && code <= 'i') other = 0x81 + code - 'a';
        if (code >= 'j' && code <= 'r') other = 0x91 + code - 'j';
        if (code >= 's' && code <= 'z') other = 0xA2 + code - 's';
        if (code >= '0' && code <= '9') other = 0xF0 + code - '0';
        if (code == '(') other = 0x4D;
        if (code == ')') other = 0x5D;
        if (code == ':') other = 0x7A;
        letter = static_cast<char>(other);
    }
    return text;
}

std::string SegyBuilder::Bytes() const {
    const auto text_header = [this](const std::string& first_line) {
        std::string text = first_line;
        text.resize(3200, ' ');
        return Ebcdic ? To_Ebcdic(text) : text;
    };
    ByteRow file(Big);
    file.Text(text_header("C 1 CLIENT NOBODY  LINE 7")).Up_To(3600);
    file.Put(3216, static_cast<std::uint64_t>(Interval), 2).Put(3220, static_cast<std::uint64_t>(Samples), 2);
    file.Put(3224, static_cast<std::uint64_t>(Format), 2);
    file.Bytes[3500] = static_cast<char>(Revision);
    file.Put(3504, static_cast<std::uint64_t>(FurtherTextsTold), 2);
    for (const std::string& text : FurtherTexts)
        file.Text(text_header(text));
    for (const auto& [data, words_of_trace] : Traces) {
        const std::size_t start = file.Bytes.size();
        file.Up_To(start + 240);
        file.Put(start + 114, static_cast<std::uint64_t>(TraceSamples), 2);
        file.Put(start + 116, static_cast<std::uint64_t>(TraceInterval), 2);
        for (const Word& word : words_of_trace)
            file.Put(start + word.Offset, static_cast<std::uint64_t>(word.Value), word.Size);
        file.Text(data);
    }
    return file.Bytes;
}

std::uint32_t Ibm_Float(double value) {
    if (value == 0) return 0;
    // A fraction of 24 bits between 1/16 and 1 times a power of 16, which is kept with 64 added.
    int exponent = 0;
    double fraction = std::abs(value);
    for (; fraction >= 1; fraction /= 16)
        ++exponent;
    for (; fraction < 1.0 / 16; fraction *= 16)
        --exponent;
    const auto bits = static_cast<std::uint32_t>(std::lround(fraction * (1 << 24)));
    return (value < 0 ? 0x80000000U : 0U) | static_cast<std::uint32_t>(exponent + 64) << 24 | bits;
}

}  // namespace tarnvik::test
