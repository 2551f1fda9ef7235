#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "processing/instruments/byte_order.h"

namespace tarnvik {

/// Bytes that end a string, and a line within one, as the file tells them; empty where it tells none.
struct Seg2Ends {
    std::string String;
    std::string Line;
};

/// The free strings of a descriptor block: a keyword and its value, and the lines of the notes.
struct Seg2Strings {
    std::vector<std::pair<std::string, std::string>> Words;  ///< keywords in capitals
    std::vector<std::string> Notes;

    /// Value of a keyword, the first where it stands twice; nothing where it does not stand.
    std::optional<std::string> Value(std::string_view keyword) const;
};

/// Reads a string block. Each string begins with its length, which counts these two bytes, and the block ends
/// with a length of 0 or its last byte. A length that leads beyond the block is taken as one to its end, one
/// that covers several strings is left at the first of them that ends.
Seg2Strings Read_Seg2_Strings(std::string_view block, ByteOrder order, const Seg2Ends& ends);

/// Finite number that a text starts with; a comma between figures is the decimal point.
std::optional<double> Leading_Number(std::string_view text);
/// The numbers of a text, separated by blanks, ";" or commas, as far as they are numbers. Commas between
/// figures are decimal ones where nothing in the text is separated by them ("0,5 1,5").
std::vector<double> Numbers_Of_Text(std::string_view text);

}  // namespace tarnvik
