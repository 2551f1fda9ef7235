#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/project.h"

namespace tarnvik {

/// Velocities and intercept times of the shots, handed on to the receivers between them. Element 0 is unused.
struct AbcShots {
    static constexpr int last_shot = 15;  ///< the tables have no room for more
    using PerShot = std::array<double, last_shot + 1>;

    PerShot V1{};  ///< distance units per second
    PerShot V2{};
    PerShot V3{};
    PerShot V4{};
    PerShot IT1{};  ///< ms
    PerShot IT2{};
};

/// What the depths below the receivers are computed from, elements 1 and on.
struct AbcReceivers {
    using Row = std::vector<float>;
    Row Delay;  ///< ms
    Row V1;
    Row V2;
    Row V3;
    Row V4;
    Row IT1;  ///< ms
    Row IT2;
};

/// The rows of the project, and the way back; the delay is not stored.
AbcReceivers Receivers_Of(const Project& project);
void Store_Receivers(Project& project, const AbcReceivers& receivers);

/// Takes the velocities of layers 1 to `layers` and the intercept times of shots `first` to `last` into the
/// tables, the second intercept time with four layers only; all else keeps what the tables hold. A shot that
/// the project does not have, or beyond the tables, is a Fault.
void Take_Shots(const Project& project, int layers, int first, int last, AbcShots& shots);

/// What the user is told about values that do not grow with depth, the first fault met; empty when all do.
/// Equal ones pass.
std::string Order_Fault(const AbcShots& shots, int layers, int first, int last);

/// Values of the shots along the receivers between them, linear from shot to shot: whole velocities, times to
/// a tenth. The receivers of an interval are counted by its length over the mean spacing, LineLength /
/// NbReceivers; the first receiver of all lies half a spacing behind its shot, for the velocities. Receivers
/// behind the last interval keep what they hold, but the last of all, where it has no intercept time, gets
/// that reached last. A line of length 0 is a Fault.
void Interpolate_Shots(const Project& project, const AbcShots& shots, int first, int last,
                       AbcReceivers& receivers);

}  // namespace tarnvik
