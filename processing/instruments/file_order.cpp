#include <algorithm>
#include <limits>
#include <numeric>
#include <string_view>

#include "core/files.h"
#include "core/text/letters.h"
#include "processing/instruments/conversion.h"

namespace tarnvik {

namespace {

bool Is_Figure(char letter) {
    return letter >= '0' && letter <= '9';
}

/// Takes the figures at the beginning off, without leading zeros.
std::string_view Take_Number(std::string_view& text) {
    std::size_t length = 0;
    while (length < text.size() && Is_Figure(text[length]))
        ++length;
    std::string_view number = text.substr(0, length);
    text.remove_prefix(length);
    number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
    return number;
}

/// Below 0 where the first name stands before: figures by their value, letters whatever their case.
int Compare_Names(std::string_view a, std::string_view b) {
    while (!a.empty() && !b.empty()) {
        if (Is_Figure(a.front()) && Is_Figure(b.front())) {
            const std::string_view one = Take_Number(a);
            const std::string_view other = Take_Number(b);
            if (one.size() != other.size()) return one.size() < other.size() ? -1 : 1;
            if (const int order = one.compare(other); order != 0) return order;
            continue;
        }
        if (a.front() != b.front())
            return static_cast<unsigned char>(a.front()) < static_cast<unsigned char>(b.front()) ? -1 : 1;
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
    return a.empty() ? (b.empty() ? 0 : -1) : 1;
}

}  // namespace

std::vector<std::size_t> Conversion_Order(const std::vector<FieldFile>& files, FileOrder order) {
    std::vector<std::size_t> places(files.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    const auto shot = [&](std::size_t place) {
        constexpr std::int64_t none = std::numeric_limits<std::int64_t>::max();
        return order == FileOrder::Shot ? files[place].Shot.value_or(none) : 0;
    };
    std::stable_sort(places.begin(), places.end(), [&](std::size_t a, std::size_t b) {
        if (shot(a) != shot(b)) return shot(a) < shot(b);
        const int by_name = Compare_Names(LCase(Name_Of(files[a].File)), LCase(Name_Of(files[b].File)));
        return by_name != 0 ? by_name < 0 : Compare_Names(files[a].File, files[b].File) < 0;
    });
    return places;
}

}  // namespace tarnvik
