#include "traveltime/droite_tmoins.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/fault.h"
#include "core/text/number.h"
#include "traveltime/regression.h"

namespace tarnvik {

namespace {

constexpr double ms_per_second = 1000;
constexpr double middle_of_curves = 50;
constexpr double middle_of_chart = 70;
constexpr double chart_factor = 1.77;  // ms per unit of the chart of GRM

double Place(const Project& project, int receiver) {
    return project.ReceiverData(ReceiverDistance, receiver) * Divide(regression_width, project.LineLength);
}

std::vector<HalfDifference> Points_Of(const Project& project, const DifferenceQuestion& question) {
    std::vector<HalfDifference> points;
    const std::vector<int>& out = question.Eliminated;
    for (int receiver = question.First; receiver <= question.Last; ++receiver) {
        if (std::find(out.begin(), out.end(), receiver) != out.end()) continue;
        const double a = project.ShotTimes(question.ShotA, receiver);
        const double b = project.ShotTimes(question.ShotB, receiver);
        if (!(a > 0) || !(b > 0)) continue;
        points.push_back({Place(project, receiver), (a - b) * 0.5});
    }
    return points;
}

void Take_Correlation(const std::vector<HalfDifference>& points, double mean_x, double mean_d,
                      double& correlation) {
    double xd = 0;
    double xx = 0;
    double dd = 0;
    for (const HalfDifference& point : points) {
        const double x = point.X - mean_x;
        const double d = 2 * point.Time - mean_d;
        xd += x * d;
        xx += x * x;
        dd += d * d;
    }
    if (xx > 0 && dd > 0) correlation = std::abs(xd / std::sqrt(dd * xx));
    correlation = Cut_Correlation(correlation);
}

}  // namespace

bool Droite_TMoins(const Project& project, DifferenceQuestion question, DifferenceLine& line) {
    if (question.ShotA > question.ShotB) std::swap(question.ShotA, question.ShotB);
    if (question.First > question.Last) std::swap(question.First, question.Last);
    if (question.ShotA < 1 || question.First < 1) throw Fault("no such shot or receiver");
    line.Points = Points_Of(project, question);
    if (line.Points.empty()) return false;

    double sum_x = 0;
    double sum_d = 0;
    double sum_xx = 0;
    double sum_xd = 0;
    for (const HalfDifference& point : line.Points) {
        const double d = 2 * point.Time;
        sum_x += point.X;
        sum_d += d;
        sum_xx += point.X * point.X;
        sum_xd += point.X * d;
    }
    const auto count = static_cast<double>(line.Points.size());
    Take_Correlation(line.Points, sum_x / count, sum_d / count, line.Correlation);

    const double slope = Divide(sum_xd - sum_d * sum_x / count, sum_xx - sum_x * sum_x / count);
    const double offset = sum_d / count - sum_x * slope / count;
    line.X1 = Place(project, question.First);
    line.X2 = Place(project, question.Last);
    line.T1 = offset + slope * line.X1;
    line.T2 = offset + slope * line.X2;
    const auto length =
        static_cast<float>((static_cast<double>(project.ReceiverData(ReceiverDistance, question.Last)) -
                            project.ReceiverData(ReceiverDistance, question.First)) *
                           ms_per_second);
    // The floor is taken before the doubling and before the sign goes, so the velocity is always even.
    // Kept, so that a pair of shots gives the velocity that earlier interpretations recorded.
    line.Velocity = std::abs(-2 * Int(Divide(length, line.T2 - line.T1)));
    return true;
}

double Height_Of_Half_Difference(DifferenceMode mode, double time, double time_factor) {
    return mode == DifferenceMode::GrmChart ? middle_of_chart + time / chart_factor
                                            : middle_of_curves + Divide(time, time_factor);
}

}  // namespace tarnvik
