#include "records/trace_header.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "core/text/number.h"

namespace tarnvik {

namespace {

template <class T>
T Value_At(const char* bytes) {
    T value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

template <class T>
std::string Bytes_Of(T value) {
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}

}  // namespace

double Word_From_Bytes(const char* bytes, WordType type) {
    switch (type) {
        case WordType::Int16:
            return Value_At<std::int16_t>(bytes);
        case WordType::Int32:
            return Value_At<std::int32_t>(bytes);
        case WordType::Float32:
            return Value_At<float>(bytes);
    }
    return 0;
}

std::optional<std::string> Bytes_Of_Word(int word, double value) {
    if (Header_Word(word).Type == WordType::Int16) {
        const auto whole = CInt(value);
        return whole ? std::optional(Bytes_Of(*whole)) : std::nullopt;
    }
    const auto whole = CLng(value);
    return whole ? std::optional(Bytes_Of(*whole)) : std::nullopt;
}

double TraceHeader::Word(int word) const {
    const HeaderWord& entry = Header_Word(word);
    return Word_From_Bytes(Bytes.data() + entry.Offset, entry.Type);
}

std::string TraceHeader::Text(int word) const {
    const double value = Word(word);
    return Header_Word(word).Type == WordType::Float32 ? CStr(static_cast<float>(value)) : CStr(value);
}

bool TraceHeader::Set_Word(int word, double value) {
    const auto bytes = Bytes_Of_Word(word, value);
    if (bytes) std::copy(bytes->begin(), bytes->end(), Bytes.begin() + Header_Word(word).Offset);
    return bytes.has_value();
}

void TraceHeader::Copy_Word(const TraceHeader& from, int word) {
    const HeaderWord& entry = Header_Word(word);
    std::copy_n(from.Bytes.begin() + entry.Offset, Size_Of_Word(entry.Type), Bytes.begin() + entry.Offset);
}

}  // namespace tarnvik
