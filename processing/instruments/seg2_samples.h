#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "processing/instruments/byte_order.h"

namespace tarnvik {

/// How samples are kept: the data format codes of SEG-2.
enum class Seg2Code { Int16 = 1, Int32 = 2, Int20 = 3, Float32 = 4, Float64 = 5 };

/// Nothing where the code is none.
std::optional<Seg2Code> Seg2_Code(int code);
/// "int16" and so on.
const char* Name_Of_Code(Seg2Code code);

/// Bytes of so many samples; those of 20 bits stand in whole groups of four.
std::int64_t Bytes_Of_Samples(Seg2Code code, std::int64_t samples);
/// Most samples that stand in so many bytes.
std::int64_t Samples_In_Bytes(Seg2Code code, std::int64_t bytes);

/// Decodes as many samples as the target has; `bytes` holds them all.
void Decode_Seg2(std::string_view bytes, Seg2Code code, ByteOrder order, std::span<double> samples);

}  // namespace tarnvik
