#include "core/text/number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "core/fault.h"

namespace tarnvik {

namespace {

bool Is_Digit(char c) {
    return c >= '0' && c <= '9';
}

bool Is_Blank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

double Hexadecimal_Value(std::string_view digits) {
    std::uint64_t value = 0;
    int count = 0;
    for (const char c : digits) {
        int digit = 0;
        if (Is_Digit(c)) {
            digit = c - '0';
        } else if (c >= 'A' && c <= 'F') {
            digit = c - 'A' + 10;
        } else if (c >= 'a' && c <= 'f') {
            digit = c - 'a' + 10;
        } else {
            break;
        }
        if (++count > 8) return 0;  // more than 32 bits is no number of this form
        value = value * 16 + static_cast<std::uint64_t>(digit);
    }
    return static_cast<double>(static_cast<std::int32_t>(static_cast<std::uint32_t>(value)));
}

/// Significant decimal digits of a finite number without trailing zeros, and the power of ten of the first
/// one.
struct Decimal {
    bool Negative = false;
    std::string Digits = "0";
    int Exponent = 0;
};

template <class T>
Decimal To_Decimal(T value, int significant) {
    Decimal result;
    result.Negative = std::signbit(value) && value != 0;
    if (value == 0) return result;
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                   std::chars_format::scientific, significant - 1);
    const std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
    const auto mark = text.find('e');
    result.Digits.clear();
    for (const char c : text.substr(0, mark)) {
        if (Is_Digit(c)) result.Digits.push_back(c);
    }
    while (result.Digits.size() > 1 && result.Digits.back() == '0')
        result.Digits.pop_back();
    const char* first = text.data() + mark + 1;
    if (*first == '+') ++first;
    std::from_chars(first, text.data() + text.size(), result.Exponent);
    return result;
}

/// The number without a sign: plain as long as its digits in all places are not more than `significant`.
std::string Unsigned_Text(const Decimal& number, int significant, bool zero_before_point) {
    const int digits = static_cast<int>(number.Digits.size());
    const int places = digits - 1 - number.Exponent;  // behind the point, when positive
    const bool plain =
        number.Exponent >= 0 ? std::max(digits, number.Exponent + 1) <= significant : places <= significant;
    std::string text;
    if (!plain) {
        text = number.Digits.substr(0, 1);
        if (digits > 1) text += "." + number.Digits.substr(1);
        const int power = std::abs(number.Exponent);
        text += number.Exponent < 0 ? "E-" : "E+";
        if (power < 10) text += "0";
        return text + std::to_string(power);
    }
    if (number.Exponent < 0) {
        text = zero_before_point ? "0." : ".";
        text.append(static_cast<std::size_t>(-number.Exponent - 1), '0');
        return text + number.Digits;
    }
    if (places <= 0) {
        text = number.Digits;
        text.append(static_cast<std::size_t>(-places), '0');
        return text;
    }
    const auto whole = static_cast<std::size_t>(number.Exponent) + 1;
    return number.Digits.substr(0, whole) + "." + number.Digits.substr(whole);
}

template <class T>
std::string Not_Finite(T value) {
    if (std::isnan(value)) return "0";
    return value < 0 ? "-1E+308" : "1E+308";
}

template <class T>
std::string Signed_Text(T value, int significant, bool zero_before_point, std::string_view plus) {
    if (!std::isfinite(value)) return std::string(value < 0 ? "" : plus) + Not_Finite(value);
    const Decimal number = To_Decimal(value, significant);
    return std::string(number.Negative ? "-" : plus) + Unsigned_Text(number, significant, zero_before_point);
}

constexpr int double_digits = 15;
constexpr int float_digits = 7;

}  // namespace

std::optional<double> Number_In(std::string_view text) {
    std::size_t start = 0;
    while (start < text.size() && Is_Blank(text[start]))
        ++start;
    text.remove_prefix(start);
    if (text.size() >= 2 && text[0] == '&' && (text[1] == 'H' || text[1] == 'h')) {
        return Hexadecimal_Value(text.substr(2));
    }
    std::string number;
    std::size_t i = 0;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
        if (text[i] == '-') number.push_back('-');
        ++i;
    }
    std::size_t digits = 0;
    bool point = false;
    for (; i < text.size(); ++i) {
        if (Is_Digit(text[i])) {
            ++digits;
        } else if (text[i] == '.' && !point) {
            point = true;
        } else {
            break;
        }
        number.push_back(text[i]);
    }
    if (digits == 0) return 0;
    constexpr std::string_view exponent_marks = "EeDd";
    if (i < text.size() && exponent_marks.find(text[i]) != std::string_view::npos) {
        std::size_t j = i + 1;
        std::string exponent = "e";
        if (j < text.size() && (text[j] == '+' || text[j] == '-')) exponent.push_back(text[j++]);
        const std::size_t first = j;
        while (j < text.size() && Is_Digit(text[j]))
            exponent.push_back(text[j++]);
        if (j > first) {
            if (exponent[1] == '+') exponent.erase(1, 1);
            number += exponent;
        }
    }
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc()) return value;
    // Out of range: too small is 0, too large is no number that a variable could take.
    if (number.find("e-") != std::string::npos) return 0;
    return std::nullopt;
}

double Val(std::string_view text) {
    return Number_In(text).value_or(0);
}

double Int(double value) {
    return std::floor(value);
}

double Rounded(double value) {
    return std::nearbyint(value);
}

std::optional<std::int16_t> CInt(double value) {
    const double nearest = std::nearbyint(value);
    if (!(nearest >= std::numeric_limits<std::int16_t>::min() &&
          nearest <= std::numeric_limits<std::int16_t>::max())) {
        return std::nullopt;
    }
    return static_cast<std::int16_t>(nearest);
}

std::optional<std::int32_t> CLng(double value) {
    const double nearest = std::nearbyint(value);
    if (!(nearest >= std::numeric_limits<std::int32_t>::min() &&
          nearest <= std::numeric_limits<std::int32_t>::max())) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(nearest);
}

std::int16_t CInt_Or_Fault(double value) {
    const auto whole = CInt(value);
    if (!whole) throw Fault("value does not fit 16 bits");
    return *whole;
}

std::int32_t CLng_Or_Fault(double value) {
    const auto whole = CLng(value);
    if (!whole) throw Fault("value does not fit 32 bits");
    return *whole;
}

bool Store_If_It_Fits(std::int16_t& target, double value) {
    const auto whole = CInt(value);
    if (whole) target = *whole;
    return whole.has_value();
}

std::string CStr(double value) {
    return Signed_Text(value, double_digits, true, "");
}

std::string CStr(float value) {
    return Signed_Text(value, float_digits, true, "");
}

std::string CStr(int value) {
    return std::to_string(value);
}

std::vector<std::string> Numbers_Up_To(int last) {
    std::vector<std::string> entries;
    for (int number = 1; number <= last; ++number)
        entries.push_back(CStr(number));
    return entries;
}

std::string Str(double value) {
    return Signed_Text(value, double_digits, false, " ");
}

std::string Print_Number(double value) {
    return Signed_Text(value, double_digits, true, " ") + " ";
}

std::string Print_Number(float value) {
    return Signed_Text(value, float_digits, true, " ") + " ";
}

std::string Print_Number(int value) {
    return (value < 0 ? "" : " ") + std::to_string(value) + " ";
}

std::string Format(double value, std::string_view pattern) {
    const auto point = pattern.find('.');
    const std::string_view whole_pattern = pattern.substr(0, point);
    const std::string_view place_pattern =
        point == std::string_view::npos ? std::string_view() : pattern.substr(point + 1);
    if (!std::isfinite(value)) value = 0;

    // The decimal digits as one string with `places` digits behind the point, rounded by hand so that 0.125
    // becomes 0.13 and not what the binary form happens to lie nearest to.
    const std::size_t places = place_pattern.size();
    const Decimal number = To_Decimal(value, double_digits);
    std::string digits = number.Digits;
    int whole_count = number.Exponent + 1;
    if (whole_count < 0) {
        digits.insert(0, static_cast<std::size_t>(-whole_count), '0');
        whole_count = 0;
    }
    const auto wanted = static_cast<std::size_t>(whole_count) + places;
    const bool round_up = digits.size() > wanted && digits[wanted] >= '5';
    digits.resize(wanted, '0');
    if (round_up) {
        std::size_t i = wanted;
        while (i > 0 && digits[i - 1] == '9')
            digits[--i] = '0';
        if (i > 0) {
            ++digits[i - 1];
        } else {
            digits.insert(0, 1, '1');
            ++whole_count;
        }
    }
    std::string whole = digits.substr(0, static_cast<std::size_t>(whole_count));
    std::string fraction = digits.substr(static_cast<std::size_t>(whole_count));
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));

    const auto needed = static_cast<std::size_t>(std::count(whole_pattern.begin(), whole_pattern.end(), '0'));
    if (whole.size() < needed) whole.insert(0, needed - whole.size(), '0');
    for (std::size_t i = fraction.size(); i > 0 && place_pattern[i - 1] == '#' && fraction[i - 1] == '0';
         --i) {
        fraction.pop_back();
    }
    const bool zero = digits.find_first_not_of('0') == std::string::npos;
    std::string text = number.Negative && !zero ? "-" : "";
    text += whole;
    if (point != std::string_view::npos) text += "." + fraction;
    return text;
}

}  // namespace tarnvik
