#pragma once

#include <span>
#include <vector>

#include "core/project.h"

namespace tarnvik {

/// Width of the travel-time picture: the regression runs in its units, 96 across the line.
inline constexpr double regression_width = 96;

/// One receiver of a stretch: its position along the line and its first break in ms, 0 or below for no pick.
struct StretchPick {
    float Distance = 0;
    float Time = 0;
};

/// A stretch of one shot's travel-time curve. `Picks` are the receivers that take part; the ends count for
/// the velocity even when they are left out of the fit.
struct CurveStretch {
    std::vector<StretchPick> Picks;
    StretchPick First;
    StretchPick Last;
    double ShotDistance = 0;
    double ShotDepth = 0;
    double LineLength = 0;
};

/// What a regression gives. A method changes the members in the order in which it finds them: when it ends in
/// a Fault, those found before stay new and the others keep what the caller had put there.
struct StretchVelocity {
    double Velocity = 0;     ///< distance units per second
    double Intercept = 0;    ///< ms
    double Correlation = 0;  ///< a method that finds none keeps the former one
    double X1 = 0;           ///< ends of the fitted line, picture units across the line
    double T1 = 0;           ///< and ms
    double X2 = 0;
    double T2 = 0;
};

/// Stretch of a shot between two receivers (first <= last), without the receivers eliminated. A shot or
/// receiver that does not exist is a Fault.
CurveStretch Stretch_Of_Shot(const Project& project, int shot, int first, int last,
                             std::span<const int> eliminated = {});

/// Side of the shot that a stretch from `first_distance` on belongs to: 1 (A) when the shot lies beyond it,
/// else 24 (B).
int Side_Of_Stretch(double shot_distance, double first_distance);

/// Velocity of layer 1 from slant distance over time at both ends of a stretch that holds the shot, or that
/// is one receiver; what lies between is ignored, the correlation stays. False when the first end has no
/// pick; a second end without one takes the time of the first.
bool Direct_Velocity(const CurveStretch& stretch, StretchVelocity& result);

/// Line of least squares through the picks. False when there is none. One pick alone, or all at one place, is
/// a Fault, and so is a line without a slope.
bool Least_Squares_Velocity(const CurveStretch& stretch, StretchVelocity& result);

/// Line of least squares forced through time 0 at the shot (layer 1). No pick at all is a Fault.
void Line_Through_Shot_Velocity(const CurveStretch& stretch, StretchVelocity& result);

/// The first five characters of a correlation's text form, as a number again: " .9731" counts as 0.973.
double Cut_Correlation(double correlation);

}  // namespace tarnvik
