#pragma once

namespace tarnvik {

/// The field of the depth dialog that awaits a value from the travel-time picture.
struct AwaitedField {
    enum class Family { Velocity, Intercept, CriticalDistance };
    enum class Side { A, B };
    Family Of = Family::Velocity;
    int Row = 1;  ///< from 1: layer of a velocity, refractor of the others
    Side On = Side::A;

    AwaitedField Other_Side() const { return {Of, Row, On == Side::A ? Side::B : Side::A}; }
    bool operator==(const AwaitedField&) const = default;
};

}  // namespace tarnvik
