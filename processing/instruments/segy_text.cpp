#include <algorithm>
#include <string_view>

#include "core/text/letters.h"
#include "processing/instruments/segy_layout.h"

namespace tarnvik {

namespace {

// Code page 37 from 40 (hexadecimal) on, "." for what has no letter in ASCII.
constexpr std::string_view ebcdic_letters =
    " ...........<(+|&.........!$*);.-/.........,%_>?.........`:#@'=\""
    ".abcdefghi.......jklmnopqr.......~stuvwxyz......^.........[]...."
    "{ABCDEFGHI......}JKLMNOPQR......\\.STUVWXYZ......0123456789......";
constexpr unsigned first_letter = 0x40;

char Of_Ebcdic(char letter) {
    const auto code = static_cast<unsigned char>(letter);
    return code < first_letter ? ' ' : ebcdic_letters[code - first_letter];
}

bool Is_Ascii(unsigned char code) {
    return (code >= 32 && code < 127) || code == '\r' || code == '\n' || code == '\t';
}

}  // namespace

std::string Kind_Of_Text_Header(const std::string& bytes) {
    std::size_t ebcdic = 0;
    std::size_t ascii = 0;
    std::size_t letters = 0;
    for (const char letter : bytes) {
        const auto code = static_cast<unsigned char>(letter);
        if (code == 0) continue;  // some writers leave the rest empty
        ++letters;
        if (Is_Ascii(code)) ++ascii;
        if (code >= first_letter && (code == first_letter || Of_Ebcdic(letter) != '.')) ++ebcdic;
    }
    constexpr std::size_t least = 40;  // of a header with a line of text
    if (letters < least || std::max(ebcdic, ascii) * 10 < letters * 9) return {};
    return ebcdic > ascii ? "EBCDIC" : "ASCII";
}

std::vector<std::string> Lines_Of_Text_Header(const std::string& bytes, const std::string& kind) {
    constexpr std::size_t line_letters = 80;
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < bytes.size() && !kind.empty(); at += line_letters) {
        std::string line = bytes.substr(at, line_letters);
        for (char& letter : line) {
            if (kind == "EBCDIC") letter = Of_Ebcdic(letter);
            if (static_cast<unsigned char>(letter) < 32) letter = ' ';
        }
        line = Trim(From_Windows_1252(line));
        // An empty line of the usual header is its number alone.
        if (line.size() > 3) lines.push_back(std::move(line));
    }
    return lines;
}

}  // namespace tarnvik
