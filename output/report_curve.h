#pragma once

#include <optional>
#include <vector>

namespace tarnvik {

/// A place of a section: distance along the line and elevation, in length units.
struct ReportPoint {
    double X = 0;
    double Z = 0;
    bool operator==(const ReportPoint&) const = default;
};

/// Points in rising distance, straight from one to the next.
using ReportCurve = std::vector<ReportPoint>;

/// Elevation of a curve at a distance; nothing before its first point and behind its last one. Where two
/// points stand at one distance the later one counts.
std::optional<double> Curve_At(const ReportCurve& curve, double x);

/// The part of a curve between two distances, with a point at either end that it reaches.
ReportCurve Part_Of_Curve(const ReportCurve& curve, double from, double to);

/// The curve with the further distances as points of it; those that it does not reach are left out.
ReportCurve With_Points_At(const ReportCurve& curve, const std::vector<double>& distances);

/// The curve held below a ceiling: a point above it comes down to it, and where the two cross there is a
/// point. Where the ceiling does not reach the curve stays.
ReportCurve Held_Below(const ReportCurve& curve, const ReportCurve& ceiling);

}  // namespace tarnvik
