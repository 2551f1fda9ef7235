#include "core/text/natural_order.h"

#include <algorithm>
#include <cctype>

namespace tarnvik {

namespace {

bool Is_Digit(char letter) {
    return letter >= '0' && letter <= '9';
}

/// Takes the figures that a text begins with, without leading zeros.
std::string_view Take_Number(std::string_view& text) {
    std::size_t count = 0;
    while (count < text.size() && Is_Digit(text[count]))
        ++count;
    std::string_view figures = text.substr(0, count);
    text.remove_prefix(count);
    figures.remove_prefix(std::min(figures.find_first_not_of('0'), figures.size()));
    return figures;
}

int Small(char letter) {
    return std::tolower(static_cast<unsigned char>(letter));
}

}  // namespace

bool Comes_Before(std::string_view one, std::string_view other) {
    std::string_view left = one;
    std::string_view right = other;
    while (!left.empty() && !right.empty()) {
        if (Is_Digit(left.front()) && Is_Digit(right.front())) {
            const std::string_view a = Take_Number(left);
            const std::string_view b = Take_Number(right);
            if (a.size() != b.size()) return a.size() < b.size();
            if (a != b) return a < b;
            continue;
        }
        const int a = Small(left.front());
        const int b = Small(right.front());
        if (a != b) return a < b;
        left.remove_prefix(1);
        right.remove_prefix(1);
    }
    if (left.empty() != right.empty()) return left.empty();
    return one < other;
}

}  // namespace tarnvik
