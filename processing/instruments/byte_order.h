#pragma once

#include <bit>
#include <cstdint>

namespace tarnvik {

/// Order of the bytes of a number in a file.
enum class ByteOrder { Little, Big };

inline const char* Name_Of_Order(ByteOrder order) {
    return order == ByteOrder::Little ? "little" : "big";
}

/// Unsigned number of 1 to 8 bytes; the caller has looked that they are there.
template <int size>
std::uint64_t Unsigned_At(const char* bytes, ByteOrder order) {
    std::uint64_t number = 0;
    for (int i = 0; i < size; ++i)
        number = number << 8 | static_cast<unsigned char>(bytes[order == ByteOrder::Big ? i : size - 1 - i]);
    return number;
}

inline std::uint16_t U16_At(const char* bytes, ByteOrder order) {
    return static_cast<std::uint16_t>(Unsigned_At<2>(bytes, order));
}
inline std::uint32_t U32_At(const char* bytes, ByteOrder order) {
    return static_cast<std::uint32_t>(Unsigned_At<4>(bytes, order));
}
inline std::int16_t I16_At(const char* bytes, ByteOrder order) {
    return static_cast<std::int16_t>(U16_At(bytes, order));
}
inline std::int32_t I32_At(const char* bytes, ByteOrder order) {
    return static_cast<std::int32_t>(U32_At(bytes, order));
}
inline float Float_At(const char* bytes, ByteOrder order) {
    return std::bit_cast<float>(U32_At(bytes, order));
}
inline double Double_At(const char* bytes, ByteOrder order) {
    return std::bit_cast<double>(Unsigned_At<8>(bytes, order));
}

}  // namespace tarnvik
