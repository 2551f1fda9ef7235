#include "output/axis_ticks.h"

#include "core/text/number.h"
#include "records/axis_steps.h"

namespace tarnvik {

std::vector<double> Axis_Ticks(double low, double high, double pixels, double room) {
    if (!(high > low) || !(pixels > 0)) return {};
    const double step = Round_Step((high - low) / pixels * room);
    // A bound that is a multiple stays one in spite of rounding.
    const double hair = step * 1e-9;
    return Multiples(low - hair, high + hair, step);
}

std::string Tick_Text(double value) {
    constexpr double digits = 1e6;
    return CStr(Rounded(value * digits) / digits);
}

}  // namespace tarnvik
