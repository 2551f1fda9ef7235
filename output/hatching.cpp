#include "output/hatching.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tarnvik {

std::vector<HatchStroke> Hatch_Area(std::span<const HatchPoint> polygon, double angle, double spacing) {
    if (polygon.size() < 3 || !(spacing > 0)) return {};
    const double cosine = std::cos(angle * std::numbers::pi / 180);
    const double sine = std::sin(angle * std::numbers::pi / 180);
    // Turned so that the strokes are level.
    std::vector<HatchPoint> turned;
    double lowest = 0;
    double highest = 0;
    for (const HatchPoint& point : polygon) {
        turned.push_back({point.X * cosine + point.Y * sine, point.Y * cosine - point.X * sine});
        const double y = turned.back().Y;
        lowest = turned.size() == 1 ? y : std::min(lowest, y);
        highest = turned.size() == 1 ? y : std::max(highest, y);
    }
    std::vector<HatchStroke> strokes;
    std::vector<double> crossings;
    const auto back = [&](double x, double y) {
        return HatchPoint{x * cosine - y * sine, x * sine + y * cosine};
    };
    for (double y = std::ceil(lowest / spacing) * spacing; y <= highest; y += spacing) {
        crossings.clear();
        for (std::size_t i = 0; i < turned.size(); ++i) {
            const HatchPoint& a = turned[i];
            const HatchPoint& b = turned[(i + 1) % turned.size()];
            // A corner belongs to the edge that begins below it, so that it is counted once.
            if ((a.Y <= y) != (b.Y <= y)) crossings.push_back(a.X + (b.X - a.X) * (y - a.Y) / (b.Y - a.Y));
        }
        std::sort(crossings.begin(), crossings.end());
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
            if (crossings[i + 1] > crossings[i])
                strokes.push_back({back(crossings[i], y), back(crossings[i + 1], y)});
        }
    }
    return strokes;
}

}  // namespace tarnvik
