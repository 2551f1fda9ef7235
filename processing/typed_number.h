#pragma once

#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include "core/text/letters.h"

namespace tarnvik {

/// The number that a text is as a whole, blanks around it aside; nothing where anything else stands in it.
/// For values that a whole file is changed by: "12O" is not 12 there.
inline std::optional<double> Typed_Number(const std::string& text) {
    const std::string trimmed = Trim(text);
    std::string_view typed = trimmed;
    if (typed.starts_with('+')) typed.remove_prefix(1);
    double value = 0;
    const auto [end, fault] =
        std::from_chars(typed.data(), typed.data() + typed.size(), value, std::chars_format::fixed);
    if (typed.empty() || fault != std::errc() || end != typed.data() + typed.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

}  // namespace tarnvik
