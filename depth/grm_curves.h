#pragma once

#include <vector>

#include "core/workspace.h"

namespace tarnvik {

/// The two functions of the generalised reciprocal method.
enum class GrmFunction {
    Velocity,   ///< Tv = (Tay - Tbx + Tab) / 2
    TimeDepth,  ///< Tg = (Tay + Tbx - (Tab + XY / Vref)) / 2
};

/// The curves of several XY.
struct GrmCurves {
    std::vector<GrmCurve> Curves;  ///< one for each XY, also without points
    double Velocity = 0;           ///< reference velocity of the last pair of receivers
    bool Broken = false;           ///< a point could not be computed; the curves end there
};

/// Curves for XY from `least` to `most` receivers in steps of 2, from the times of GrmData and TotalTime
/// (ms). A receiver without one of its two times has no point. `velocity` counts until a pair of receivers
/// gives a reference velocity; one above 0 that is `given` counts for all of them.
GrmCurves Curves_Of_Grm(const Project& project, GrmFunction function, int least, int most, double velocity,
                        double given = 0);

/// Receivers on each side of the middle one: XY / 2, halves to even.
int Half_Of_XY(int xy);

/// The largest XY that a line of so many receivers is computed with.
int Largest_XY(int receivers);

}  // namespace tarnvik
