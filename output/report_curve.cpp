#include "output/report_curve.h"

#include <algorithm>

namespace tarnvik {

namespace {

double Between(const ReportPoint& a, const ReportPoint& b, double x) {
    return b.X == a.X ? b.Z : a.Z + (b.Z - a.Z) * (x - a.X) / (b.X - a.X);
}

}  // namespace

std::optional<double> Curve_At(const ReportCurve& curve, double x) {
    if (curve.empty() || x < curve.front().X || x > curve.back().X) return std::nullopt;
    const auto behind = std::upper_bound(curve.begin(), curve.end(), x,
                                         [](double at, const ReportPoint& point) { return at < point.X; });
    if (behind == curve.end()) return curve.back().Z;
    return Between(*(behind - 1), *behind, x);
}

ReportCurve Part_Of_Curve(const ReportCurve& curve, double from, double to) {
    ReportCurve part;
    for (const ReportPoint& point : With_Points_At(curve, {from, to})) {
        if (point.X >= from && point.X <= to) part.push_back(point);
    }
    return part;
}

ReportCurve With_Points_At(const ReportCurve& curve, const std::vector<double>& distances) {
    ReportCurve all = curve;
    for (const double x : distances) {
        const auto z = Curve_At(curve, x);
        const bool there =
            std::any_of(curve.begin(), curve.end(), [x](const ReportPoint& point) { return point.X == x; });
        if (z && !there) all.push_back({x, *z});
    }
    std::stable_sort(all.begin(), all.end(),
                     [](const ReportPoint& a, const ReportPoint& b) { return a.X < b.X; });
    return all;
}

ReportCurve Held_Below(const ReportCurve& curve, const ReportCurve& ceiling) {
    std::vector<double> corners;
    for (const ReportPoint& point : ceiling)
        corners.push_back(point.X);
    const ReportCurve fine = With_Points_At(curve, corners);
    ReportCurve held;
    double height_before = 0;  // above the ceiling at the point before
    for (std::size_t i = 0; i < fine.size(); ++i) {
        const auto roof = Curve_At(ceiling, fine[i].X);
        const double height = roof ? fine[i].Z - *roof : 0;
        if (i > 0 && fine[i].X > fine[i - 1].X && height * height_before < 0) {
            const double share = height_before / (height_before - height);
            const double x = fine[i - 1].X + share * (fine[i].X - fine[i - 1].X);
            held.push_back({x, Between(fine[i - 1], fine[i], x)});
        }
        held.push_back({fine[i].X, height > 0 ? *roof : fine[i].Z});
        height_before = height;
    }
    return held;
}

}  // namespace tarnvik
