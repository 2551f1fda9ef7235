#include "depth/reference_velocity.h"

#include <cmath>

#include "core/text/number.h"

namespace tarnvik {

namespace {
constexpr double ms_per_second = 1000;
}

double Receiver_Distance(const Project& project, int first, int second) {
    return static_cast<double>(project.ReceiverData(ReceiverDistance, first)) -
           static_cast<double>(project.ReceiverData(ReceiverDistance, second));
}

double Reference_Velocity(const Project& project, int first, int second, double before) {
    const Array2<double>& times = project.GrmData;
    const double left = times(1, first) - times(1, second);
    const double right = times(2, first) - times(2, second);
    const double seconds = (left - right) / 2 / ms_per_second;
    return seconds == 0 ? before : std::abs(Int(Receiver_Distance(project, first, second) / seconds));
}

}  // namespace tarnvik
