#include <charconv>
#include <cmath>

#include "core/text/number.h"
#include "output/imports/imported_line.h"

namespace tarnvik {

bool FieldLines::Next() {
    while (!Left.empty()) {
        const std::size_t end = Left.find('\n');
        const std::string_view line = Left.substr(0, end);
        Left = end == std::string_view::npos ? std::string_view() : Left.substr(end + 1);
        ++LineNumber;
        Cut.clear();
        bool inside = false;
        for (const char letter : line) {
            const bool between = letter == ' ' || letter == '\t' || letter == '\r' ||
                                 Separators.find(letter) != std::string_view::npos;
            if (!between && !inside) Cut.emplace_back();
            if (!between) Cut.back() += letter;
            inside = !between;
        }
        if (!Cut.empty()) return true;
    }
    Cut.clear();
    return false;
}

std::optional<double> FieldLines::Number(int field) const {
    if (field < 0 || field >= Count()) return std::nullopt;
    const std::string& text = Cut[static_cast<std::size_t>(field)];
    const char* begin = text.data() + (text.starts_with('+') ? 1 : 0);
    const char* end = text.data() + text.size();
    double value = 0;
    const auto [stopped, fault] = std::from_chars(begin, end, value);
    if (fault != std::errc() || stopped != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

std::string FieldLines::Place() const {
    return "Line " + CStr(LineNumber);
}

}  // namespace tarnvik
