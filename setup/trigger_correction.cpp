#include "setup/trigger_correction.h"

#include <algorithm>

#include "core/text/number.h"

namespace tarnvik {

double Corrected_Time(double time, double shift) {
    return time > 0 ? time - shift : 0;
}

std::optional<int> Samples_Of_Shift(double shift, int interval) {
    if (interval == 0) return std::nullopt;
    const auto samples = CInt(-1 * (shift * 1000 / interval));
    return samples ? std::optional<int>(*samples) : std::nullopt;
}

std::optional<double> Common_Shift(std::span<const double> project, std::span<const double> record) {
    constexpr double rounding = 0.11;  ///< of two words in tenths and two times in hundredths of a ms
    double least = 0;
    double most = 0;
    double sum = 0;
    int compared = 0;
    for (std::size_t place = 0; place < std::min(project.size(), record.size()); ++place) {
        if (!(project[place] > 0) || record[place] == 0) continue;
        const double shift = project[place] - record[place];
        least = compared == 0 ? shift : std::min(least, shift);
        most = compared == 0 ? shift : std::max(most, shift);
        sum += shift;
        ++compared;
    }
    if (compared == 0 || most - least > rounding) return std::nullopt;
    return sum / compared;
}

}  // namespace tarnvik
