#include "core/text/item_reader.h"

#include <algorithm>

#include "core/text/number.h"

namespace tarnvik {

namespace {
constexpr std::string_view blanks = " \t";
constexpr std::string_view line_ends = "\r\n";
constexpr std::string_view separators = " \t,\r\n";
constexpr std::string_view text_ends = ",\r\n";

/// Digits with an optional sign and point in front, or the mark of a hexadecimal number.
bool Begins_A_Number(std::string_view item) {
    if (item.starts_with('+') || item.starts_with('-')) item.remove_prefix(1);
    if (item.starts_with('.')) item.remove_prefix(1);
    return !item.empty() &&
           ((item.front() >= '0' && item.front() <= '9') || item.starts_with("&H") || item.starts_with("&h"));
}
}  // namespace

bool ItemReader::Number(double& target) {
    Skip(separators);
    if (At_End()) {
        RanOut = true;
        return false;
    }
    const std::string_view item = Take_Until(separators);
    MetWord = MetWord || !Begins_A_Number(item);
    const auto number = Number_In(item);
    Skip(blanks);
    if (!At_End() && Left.front() == ',') Left.remove_prefix(1);
    if (number) target = *number;
    return number.has_value();
}

bool ItemReader::Line(std::string& target) {
    Pass_Line_End();
    if (At_End()) {
        RanOut = true;
        return false;
    }
    target = Take_Until(line_ends);
    Pass_Line_End();
    return true;
}

bool ItemReader::Text(std::string& target) {
    Skip(blanks);
    if (At_End()) return false;
    target = Take_Until(text_ends);
    if (!At_End() && Left.front() == ',') {
        Left.remove_prefix(1);
    } else {
        Pass_Line_End();
    }
    return true;
}

void ItemReader::Skip(std::string_view letters) {
    Left.remove_prefix(std::min(Left.find_first_not_of(letters), Left.size()));
}

std::string_view ItemReader::Take_Until(std::string_view letters) {
    const std::string_view taken = Left.substr(0, Left.find_first_of(letters));
    Left.remove_prefix(taken.size());
    return taken;
}

void ItemReader::Pass_Line_End() {
    if (Left.starts_with("\r\n")) {
        Left.remove_prefix(2);
    } else if (Left.starts_with('\r') || Left.starts_with('\n')) {
        Left.remove_prefix(1);
    }
}

}  // namespace tarnvik
