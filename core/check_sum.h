#pragma once

#include <cstdint>
#include <string_view>

namespace tarnvik {

/// A sum over bytes, the same for two different rows once in four thousand million (FNV-1a, public domain).
inline std::uint32_t Check_Sum(std::string_view bytes) {
    std::uint32_t sum = 2166136261U;
    for (const char byte : bytes)
        sum = (sum ^ static_cast<unsigned char>(byte)) * 16777619U;
    return sum;
}

}  // namespace tarnvik
