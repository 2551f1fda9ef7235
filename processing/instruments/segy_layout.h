#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "processing/instruments/byte_order.h"
#include "processing/instruments/field_file.h"
#include "processing/traces/byte_streams.h"

namespace tarnvik {

inline constexpr std::int64_t segy_text_bytes = 3200;
inline constexpr std::int64_t segy_heads_bytes = 3600;  ///< text and binary header

/// A sample format of SEG-Y that can be read.
struct SegyFormat {
    int Code;  ///< in the binary header
    int Bytes;
    const char* Name;
};
/// None for a code that is unknown or cannot be read.
const SegyFormat* Segy_Format(int code);

/// Where the traces of a SEG-Y file stand.
struct SegyLayout {
    ByteOrder Order = ByteOrder::Big;
    const SegyFormat* Format = nullptr;
    std::int64_t FirstTrace = segy_heads_bytes;
    std::int64_t HeaderBytes = 240;  ///< of a trace, with its further headers
    std::int64_t Samples = 0;
    std::int64_t Traces = 0;  ///< whole ones
    double Interval = 0;      ///< microseconds, 0 where it is not told

    std::int64_t Trace_Bytes() const {
        return HeaderBytes + Samples * (Format != nullptr ? Format->Bytes : 0);
    }
    std::int64_t Position(std::int64_t trace) const { return FirstTrace + (trace - 1) * Trace_Bytes(); }
};

/// True for a file that begins with a text header of 3200 bytes and a binary one that makes sense.
bool Looks_Like_Segy(ByteSource& source);
/// The same where the text header holds no text: by the binary header and the first trace alone.
bool May_Be_Segy_Without_Text(ByteSource& source);

/// Finds the traces: byte order, format, sample count, revision 0 to 2, text headers behind the first. What
/// was assumed and what is wrong goes into `told`, with the lines of the text header; where traces cannot be
/// found the format or their number is missing.
SegyLayout Look_At_Segy(ByteSource& source, FieldFile& told);

/// "EBCDIC" or "ASCII" by what most letters are; empty for bytes that are no text.
std::string Kind_Of_Text_Header(const std::string& bytes);
/// The lines of a text header (80 letters each), without empty ones.
std::vector<std::string> Lines_Of_Text_Header(const std::string& bytes, const std::string& kind);

}  // namespace tarnvik
