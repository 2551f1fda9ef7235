#include "core/text/letters.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tarnvik {

namespace {

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

char Upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// Unicode numbers of the bytes 0x80 to 0x9F, from the code page's public table.
constexpr std::array<std::uint32_t, 32> code_page = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

void Append_Utf8(std::string& text, std::uint32_t letter) {
    if (letter < 0x80) {
        text.push_back(static_cast<char>(letter));
    } else if (letter < 0x800) {
        text.push_back(static_cast<char>(0xC0 | (letter >> 6)));
        text.push_back(static_cast<char>(0x80 | (letter & 0x3F)));
    } else {
        text.push_back(static_cast<char>(0xE0 | (letter >> 12)));
        text.push_back(static_cast<char>(0x80 | ((letter >> 6) & 0x3F)));
        text.push_back(static_cast<char>(0x80 | (letter & 0x3F)));
    }
}

/// Takes one letter off the front; a broken sequence gives the letter "?" and takes one byte.
std::uint32_t Take_Letter(std::string_view& utf8) {
    const auto lead = static_cast<unsigned char>(utf8[0]);
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
    if (length == 1) {
        utf8.remove_prefix(1);
        return lead;
    }
    if (length == 0 || utf8.size() < length) {
        utf8.remove_prefix(1);
        return '?';
    }
    std::uint32_t letter = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(utf8[i]);
        if ((next & 0xC0) != 0x80) {
            utf8.remove_prefix(1);
            return '?';
        }
        letter = (letter << 6) | (next & 0x3FU);
    }
    utf8.remove_prefix(length);
    return letter;
}

}  // namespace

std::string LCase(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), Lower);
    return result;
}

std::string UCase(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), Upper);
    return result;
}

std::string Trim(std::string_view text) {
    constexpr std::string_view blanks = " \t";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

std::string_view Right(std::string_view text, std::size_t count) {
    return count >= text.size() ? text : text.substr(text.size() - count);
}

std::string_view Left(std::string_view text, std::size_t count) {
    return text.substr(0, count);
}

std::string One_Line(std::string_view text) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return line;
}

std::string Replace_First(std::string_view text, std::string_view found, std::string_view replacement) {
    std::string result(text);
    const auto place = LCase(text).find(LCase(found));
    if (!found.empty() && place != std::string::npos) result.replace(place, found.size(), replacement);
    return result;
}

std::string From_Windows_1252(std::string_view bytes) {
    std::string result;
    result.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        Append_Utf8(result, byte >= 0x80 && byte < 0xA0 ? code_page[byte - 0x80U] : byte);
    }
    return result;
}

std::string To_Windows_1252(std::string_view utf8) {
    std::string result;
    result.reserve(utf8.size());
    while (!utf8.empty()) {
        const std::uint32_t letter = Take_Letter(utf8);
        const auto place = std::find(code_page.begin(), code_page.end(), letter);
        if (place != code_page.end()) {
            result.push_back(static_cast<char>(0x80 + (place - code_page.begin())));
        } else if (letter < 0x80 || (letter >= 0xA0 && letter < 0x100)) {
            result.push_back(static_cast<char>(letter));
        } else {
            result.push_back('?');
        }
    }
    return result;
}

}  // namespace tarnvik
