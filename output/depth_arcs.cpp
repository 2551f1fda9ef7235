#include "output/depth_arcs.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <utility>

namespace tarnvik {

namespace {

constexpr int steps_of_envelope = 600;
constexpr double degrees_a_step = 2;

/// A straight line that touches two arcs from below, from one point of contact to the other.
struct Tangent {
    ReportPoint From;
    ReportPoint To;
};

/// Nothing where one circle lies in the other, and where the line would be upright.
std::optional<Tangent> Tangent_Of(const DepthArc& a, const DepthArc& b) {
    const double dx = b.Centre.X - a.Centre.X;
    const double dz = b.Centre.Z - a.Centre.Z;
    const double distance = std::hypot(dx, dz);
    if (!(distance > std::abs(a.Radius - b.Radius))) return std::nullopt;
    // The unit vector at right angles to the line: its part along the centres takes up the difference of the
    // radii, the rest points downwards.
    const double along = (a.Radius - b.Radius) / distance;
    const double across = std::sqrt(1 - along * along);
    const double nx = (dx * along + dz * across) / distance;
    const double nz = (dz * along - dx * across) / distance;
    const Tangent line = {{a.Centre.X + a.Radius * nx, a.Centre.Z + a.Radius * nz},
                          {b.Centre.X + b.Radius * nx, b.Centre.Z + b.Radius * nz}};
    return line.To.X > line.From.X ? std::optional(line) : std::nullopt;
}

double Depth_Of_Arc(const DepthArc& arc, double x) {
    const double across = x - arc.Centre.X;
    return std::sqrt(std::max(0.0, arc.Radius * arc.Radius - across * across));
}

}  // namespace

ReportCurve Points_Of_Arc(const DepthArc& arc, double half_angle) {
    const int pieces = std::max(2, static_cast<int>(std::ceil(2 * half_angle / degrees_a_step)));
    ReportCurve points;
    for (int piece = 0; piece <= pieces; ++piece) {
        const double angle = (2.0 * piece / pieces - 1) * half_angle * std::numbers::pi / 180;
        points.push_back(
            {arc.Centre.X + arc.Radius * std::sin(angle), arc.Centre.Z - arc.Radius * std::cos(angle)});
    }
    return points;
}

ReportCurve Envelope_Of_Arcs(const std::vector<DepthArc>& arcs) {
    if (arcs.empty()) return {};
    std::vector<Tangent> lines;
    for (std::size_t i = 0; i + 1 < arcs.size(); ++i) {
        if (const auto line = Tangent_Of(arcs[i], arcs[i + 1])) lines.push_back(*line);
    }
    double from = arcs.front().Centre.X;
    double to = arcs.back().Centre.X;
    std::vector<double> places;
    for (const DepthArc& arc : arcs)
        places.push_back(arc.Centre.X);
    for (const Tangent& line : lines) {
        from = std::min(from, line.From.X);
        to = std::max(to, line.To.X);
        places.push_back(line.From.X);
        places.push_back(line.To.X);
    }
    for (int step = 0; step <= steps_of_envelope; ++step)
        places.push_back(from + (to - from) * step / steps_of_envelope);
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());

    ReportCurve envelope;
    for (const double x : places) {
        std::optional<double> deepest;
        const auto reach = [&deepest](double z) { deepest = std::min(deepest.value_or(z), z); };
        for (const DepthArc& arc : arcs) {
            if (std::abs(x - arc.Centre.X) <= arc.Radius) reach(arc.Centre.Z - Depth_Of_Arc(arc, x));
        }
        for (const Tangent& line : lines) {
            if (x < line.From.X || x > line.To.X) continue;
            const double share = (x - line.From.X) / (line.To.X - line.From.X);
            reach(line.From.Z + share * (line.To.Z - line.From.Z));
        }
        if (deepest) envelope.push_back({x, *deepest});
    }
    return envelope;
}

}  // namespace tarnvik
