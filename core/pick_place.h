#pragma once

#include <compare>

namespace tarnvik {

/// Where a first break stands in the project: shot and receiver, from 1.
struct PickPlace {
    int Shot = 0;
    int Receiver = 0;
    bool operator==(const PickPlace&) const = default;
    auto operator<=>(const PickPlace&) const = default;
};

}  // namespace tarnvik
