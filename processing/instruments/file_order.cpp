#include <algorithm>
#include <limits>
#include <numeric>
#include <string>

#include "core/files.h"
#include "core/text/natural_order.h"
#include "processing/instruments/conversion.h"

namespace tarnvik {

std::vector<std::size_t> Conversion_Order(const std::vector<FieldFile>& files, FileOrder order) {
    std::vector<std::size_t> places(files.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    const auto shot = [&](std::size_t place) {
        constexpr std::int64_t none = std::numeric_limits<std::int64_t>::max();
        return order == FileOrder::Shot ? files[place].Shot.value_or(none) : 0;
    };
    std::stable_sort(places.begin(), places.end(), [&](std::size_t a, std::size_t b) {
        if (shot(a) != shot(b)) return shot(a) < shot(b);
        const std::string one = Name_Of(files[a].File);
        const std::string other = Name_Of(files[b].File);
        return one != other ? Comes_Before(one, other) : Comes_Before(files[a].File, files[b].File);
    });
    return places;
}

}  // namespace tarnvik
