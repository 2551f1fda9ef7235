#pragma once

#include <array>
#include <optional>
#include <string>

#include "records/header_words.h"

namespace tarnvik {

/// Value of a header word by its bytes.
double Word_From_Bytes(const char* bytes, WordType type);
constexpr int Size_Of_Word(WordType type) {
    return type == WordType::Int16 ? 2 : 4;
}

/// The bytes that a value takes in its word, rounded to the nearest whole number, halves to even; nothing
/// when it does not fit. Words 72 to 78 get the 32-bit integer form of the value, although they are read as
/// floats; users' files rely on it.
std::optional<std::string> Bytes_Of_Word(int word, double value);

/// The header of one trace as it stands in the file.
struct TraceHeader {
    std::array<char, header_length> Bytes{};

    double Word(int word) const;
    /// The word as text, a float with as many digits as it has.
    std::string Text(int word) const;
    /// As Bytes_Of_Word; a value that does not fit changes nothing and answers false.
    bool Set_Word(int word, double value);
    /// Takes a word over as it stands in another header, byte for byte.
    void Copy_Word(const TraceHeader& from, int word);
};

}  // namespace tarnvik
