#include "processing/instruments/seg2_strings.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "core/text/letters.h"

namespace tarnvik {

namespace {

constexpr std::size_t length_bytes = 2;

/// A text for people: letters of the program, no control characters, no blanks around it.
std::string Cleaned(std::string_view bytes) {
    std::string text = From_Windows_1252(bytes);
    std::replace_if(
        text.begin(), text.end(), [](char letter) { return static_cast<unsigned char>(letter) < 32; }, ' ');
    return Trim(text);
}

/// Length of the string's text before its end.
std::size_t Text_Length(std::string_view text, const std::string& end) {
    std::size_t length = text.find('\0');
    if (!end.empty()) length = std::min(length, text.find(end));
    return std::min(length, text.size());
}

std::vector<std::string_view> Lines_Of(std::string_view text, const std::string& end) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        // Writers end the lines of a note otherwise than they tell.
        const std::size_t other = text.find_first_of("\r\n");
        const std::size_t told = end.empty() ? std::string_view::npos : text.find(end);
        const std::size_t at = std::min(other, told);
        lines.push_back(text.substr(0, at));
        if (at == std::string_view::npos) break;
        text.remove_prefix(at + (told < other ? end.size() : 1));
    }
    return lines;
}

void Take_String(std::string_view text, const Seg2Ends& ends, Seg2Strings& strings) {
    const auto start = text.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos) return;
    text.remove_prefix(start);
    const std::size_t key_end = std::min(text.find_first_of(" \t=\r\n"), text.size());
    const std::string keyword = UCase(Cleaned(text.substr(0, key_end)));
    std::string_view value = text.substr(key_end);
    if (keyword == "NOTE" || keyword == "COMMENT") {
        for (const std::string_view line : Lines_Of(value, ends.Line)) {
            if (std::string note = Cleaned(line); !note.empty()) strings.Notes.push_back(std::move(note));
        }
        return;
    }
    value.remove_prefix(std::min(value.find_first_not_of(" \t="), value.size()));
    if (!keyword.empty()) strings.Words.emplace_back(keyword, Cleaned(value));
}

/// True where a string may begin: a length that stays in the block, and a letter behind it.
bool String_May_Begin(std::string_view block, ByteOrder order) {
    if (block.size() <= length_bytes) return false;
    const std::size_t length = U16_At(block.data(), order);
    const char letter = block[length_bytes];
    return length > length_bytes && length <= block.size() &&
           ((letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z'));
}

/// "0,5" and "0,5 1,5", but not "0,5,1", "0, 5" or "0.5,1.5".
bool Commas_Are_Points(const std::string& text) {
    const auto commas = std::count(text.begin(), text.end(), ',');
    if (commas == 0 || text.find('.') != std::string::npos) return false;
    const auto figure = [&text](std::size_t at) {
        return at < text.size() && text[at] >= '0' && text[at] <= '9';
    };
    for (std::size_t at = text.find(','); at != std::string::npos; at = text.find(',', at + 1)) {
        if (at == 0 || !figure(at - 1) || !figure(at + 1)) return false;
    }
    return commas == 1 || text.find_first_of(" \t;") != std::string::npos;
}

}  // namespace

std::optional<std::string> Seg2Strings::Value(std::string_view keyword) const {
    for (const auto& [name, value] : Words) {
        if (name == keyword) return value;
    }
    return std::nullopt;
}

Seg2Strings Read_Seg2_Strings(std::string_view block, ByteOrder order, const Seg2Ends& ends) {
    Seg2Strings strings;
    while (block.size() > length_bytes) {
        const std::size_t length = U16_At(block.data(), order);
        if (length == 0) break;
        const std::size_t whole = std::min(std::max(length, length_bytes + 1), block.size());
        const std::string_view text = block.substr(length_bytes, whole - length_bytes);
        const std::size_t used = Text_Length(text, ends.String);
        Take_String(text.substr(0, used), ends, strings);
        std::size_t next = whole;
        const std::size_t behind = length_bytes + used + std::max<std::size_t>(ends.String.size(), 1);
        if (behind < whole && String_May_Begin(block.substr(behind), order)) next = behind;
        block.remove_prefix(next);
    }
    return strings;
}

std::optional<double> Leading_Number(std::string_view text) {
    const std::vector<double> numbers = Numbers_Of_Text(text);
    if (numbers.empty()) return std::nullopt;
    return numbers.front();
}

std::vector<double> Numbers_Of_Text(std::string_view text) {
    std::string plain(text);
    if (Commas_Are_Points(plain)) std::replace(plain.begin(), plain.end(), ',', '.');
    std::vector<double> numbers;
    const char* at = plain.data();
    const char* const end = plain.data() + plain.size();
    while (at < end) {
        if (*at == ' ' || *at == '\t' || *at == ',' || *at == ';' || *at == '+') {
            ++at;
            continue;
        }
        double value = 0;
        const auto [behind, failed] = std::from_chars(at, end, value);
        if (failed != std::errc() || !std::isfinite(value)) break;
        numbers.push_back(value);
        at = behind;
    }
    return numbers;
}

}  // namespace tarnvik
