#pragma once

#include <vector>

#include "core/project.h"

namespace tarnvik {

/// Where the straight line through the time differences of two shots is drawn.
enum class DifferenceMode {
    Curves = 0,     ///< on the travel-time curves
    GrmCurves = 1,  ///< on the curves of GRM, by their factor
    GrmChart = 2,   ///< on the chart of GRM, by its own scale
};

/// Two shots and the receivers whose time differences are fitted. Shots and receivers may stand in either
/// order.
struct DifferenceQuestion {
    int ShotA = 0;
    int ShotB = 0;
    int First = 0;
    int Last = 0;
    std::vector<int> Eliminated;  ///< receivers left out of the fit
};

/// A receiver at which both shots have a pick.
struct HalfDifference {
    double X = 0;     ///< picture units across the line
    double Time = 0;  ///< half of first shot less second one, ms
};

/// The line through the differences. What a fit does not reach keeps what the caller had put there.
struct DifferenceLine {
    std::vector<HalfDifference> Points;
    double Correlation = 0;
    double Velocity = 0;  ///< of the refractor, distance units per second
    double X1 = 0;        ///< ends of the line, picture units across the line
    double T1 = 0;        ///< and ms of the whole difference
    double X2 = 0;
    double T2 = 0;
};

/// The true velocity of a refractor from two reversed shots: the difference of their times at a receiver
/// changes along the line by twice the slowness of the refractor, whatever its dip does to each of the two
/// (L. V. Hawkins, "The reciprocal method of routine shallow seismic refraction investigations", 1961).
/// False when no receiver has a pick of both shots. One such receiver alone, differences that do not change
/// along the line, and a shot or receiver that does not exist are a Fault.
bool Droite_TMoins(const Project& project, DifferenceQuestion question, DifferenceLine& line);

/// Height of half a difference (ms) on a picture, where 0 lies in the middle of its curves. `time_factor`
/// is in ms per unit of the picture; the chart of GRM has its own.
double Height_Of_Half_Difference(DifferenceMode mode, double time, double time_factor);

}  // namespace tarnvik
