#include "traveltime/regression.h"

#include <algorithm>
#include <cmath>

#include "core/fault.h"
#include "core/text/letters.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

constexpr double ms_per_second = 1000;
/// Where a shot at distance 0 is read: not quite on the edge of the picture.
constexpr double left_edge = 0.0001;
constexpr std::size_t correlation_characters = 5;

double Picture_X(const CurveStretch& stretch, double distance) {
    return distance * Divide(regression_width, stretch.LineLength);
}

/// Velocity of the fitted line. The floor is taken before the absolute value, so that a falling line rounds
/// up and a rising one down. Kept, so that a stretch gives the velocity that earlier interpretations
/// recorded.
double Fitted_Velocity(const CurveStretch& stretch, const StretchVelocity& line) {
    const auto length = static_cast<float>(
        (static_cast<double>(stretch.Last.Distance) - stretch.First.Distance) * ms_per_second);
    return std::abs(Int(Divide(length, line.T2 - line.T1)));
}

/// Abscissa at which the intercept is read. An offset shot is read at the near end of the line and not at its
/// own place. Kept, since recorded intercepts of offset shots were read there.
double Intercept_Abscissa(const CurveStretch& stretch) {
    const double shot = stretch.ShotDistance;
    if (shot <= 0) return left_edge;
    if (shot > stretch.LineLength) return regression_width;
    return Divide(regression_width, Divide(stretch.LineLength, shot));
}

}  // namespace

CurveStretch Stretch_Of_Shot(const Project& project, int shot, int first, int last,
                             std::span<const int> eliminated) {
    const auto pick = [&](int receiver) {
        return StretchPick{project.ReceiverData(ReceiverDistance, receiver),
                           project.ShotTimes(shot, receiver)};
    };
    CurveStretch stretch;
    stretch.ShotDistance = project.ShotDistance(shot);
    stretch.ShotDepth = project.ShotDepth(shot);
    stretch.LineLength = project.LineLength;
    stretch.First = pick(first);
    stretch.Last = pick(last);
    for (int receiver = first; receiver <= last; ++receiver) {
        if (std::find(eliminated.begin(), eliminated.end(), receiver) != eliminated.end()) continue;
        stretch.Picks.push_back(pick(receiver));
    }
    return stretch;
}

int Side_Of_Stretch(double shot_distance, double first_distance) {
    return shot_distance > first_distance ? 1 : 24;
}

double Cut_Correlation(double correlation) {
    return Val(Left(Str(correlation), correlation_characters));
}

bool Direct_Velocity(const CurveStretch& stretch, StretchVelocity& result) {
    const double first_time = stretch.First.Time;
    const double last_time = stretch.Last.Time > 0 ? stretch.Last.Time : first_time;
    if (first_time <= 0) return false;
    const auto velocity = [&](double distance, double time) {
        const double along = distance - stretch.ShotDistance;
        const double slant = std::sqrt(stretch.ShotDepth * stretch.ShotDepth + along * along);
        return Int(slant / (time / ms_per_second));
    };
    const double at_first = velocity(stretch.First.Distance, first_time);
    const double at_last = velocity(stretch.Last.Distance, last_time);
    result.Velocity = Int((at_first + at_last) / 2);
    result.Intercept = 0;
    return true;
}

bool Least_Squares_Velocity(const CurveStretch& stretch, StretchVelocity& result) {
    double sum_x = 0;
    double sum_t = 0;
    double sum_xx = 0;
    double sum_xt = 0;
    double count = 0;
    for (const StretchPick& pick : stretch.Picks) {
        const double x = Picture_X(stretch, pick.Distance);
        if (!(pick.Time > 0)) continue;
        sum_x += x;
        sum_t += pick.Time;
        sum_xx += x * x;
        sum_xt += pick.Time * x;
        ++count;
    }
    const double mean_x = count > 0 ? sum_x / count : 0;
    const double mean_t = count > 0 ? sum_t / count : 0;
    double spread_xt = 0;
    double spread_xx = 0;
    double spread_tt = 0;
    for (const StretchPick& pick : stretch.Picks) {
        if (!(pick.Time > 0)) continue;
        const double x = Picture_X(stretch, pick.Distance) - mean_x;
        const double t = pick.Time - mean_t;
        spread_xt += t * x;
        spread_xx += x * x;
        spread_tt += t * t;
    }
    if (spread_xx > 0 && spread_tt > 0)
        result.Correlation = std::abs(spread_xt / std::sqrt(spread_tt * spread_xx));
    result.Correlation = Cut_Correlation(result.Correlation);
    result.X1 = Picture_X(stretch, stretch.First.Distance);
    result.X2 = Picture_X(stretch, stretch.Last.Distance);
    if (count == 0) return false;

    const double slope = Divide(sum_xt - sum_x * sum_t / count, sum_xx - sum_x * sum_x / count);
    const double offset = sum_t / count - sum_x * slope / count;
    result.T1 = offset + result.X1 * slope;
    result.T2 = offset + result.X2 * slope;
    result.Velocity = Fitted_Velocity(stretch, result);
    result.Intercept = offset + Intercept_Abscissa(stretch) * slope;
    return true;
}

void Line_Through_Shot_Velocity(const CurveStretch& stretch, StretchVelocity& result) {
    const double shot_x = stretch.ShotDistance * Divide(regression_width, stretch.LineLength);
    double sum_tt = 0;
    double sum_uu = 0;
    double sum_ut = 0;
    double count = 0;
    for (const StretchPick& pick : stretch.Picks) {
        const double u = shot_x - Picture_X(stretch, pick.Distance);
        const double t = pick.Time;
        if (!(t > 0)) continue;
        sum_tt += t * t;
        sum_uu += u * u;
        sum_ut += u * t;
        ++count;
    }
    const double slope = Divide(sum_ut, sum_uu);
    // No correlation in the statistical sense: 99 less the mean square of the residuals. It is shown as such.
    result.Correlation = Cut_Correlation((100 - Divide(sum_tt - sum_uu * slope * slope, count)) - 1);
    result.X1 = Picture_X(stretch, stretch.First.Distance);
    result.X2 = Picture_X(stretch, stretch.Last.Distance);
    result.T1 = std::abs((shot_x - result.X1) * slope);
    result.T2 = std::abs((shot_x - result.X2) * slope);
    result.Velocity = Fitted_Velocity(stretch, result);
    result.Intercept = 0;
}

}  // namespace tarnvik
