#include "depth/quick_limits.h"

#include <algorithm>
#include <utility>

#include "core/text/number.h"
#include "traveltime/regression.h"

namespace tarnvik {

namespace {

constexpr double width = regression_width;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

}  // namespace

QuickPlace Quick_Place_Of(const Project& project, int shot) {
    const double place = Rounded(project.ShotDistance(shot));
    if (place == 0) return QuickPlace::AtStart;
    return place == Rounded(project.LineLength) ? QuickPlace::AtEnd : QuickPlace::Between;
}

void Place_Limits(const Project& project, int shot, int layers, QuickLimits& limits) {
    if (Quick_Place_Of(project, shot) != QuickPlace::Between) {
        for (int k = 1; k < layers; ++k)
            limits[1][At(k)] = limits[2][At(k)] = static_cast<double>(k) / layers * width;
        return;
    }
    if (project.LineLength == 0) return;
    const double shot_x = Rounded(width * Rounded(project.ShotDistance(shot)) / project.LineLength);
    if (shot_x < 1 || shot_x >= width + 1) return;
    for (int k = 1; k < layers; ++k) {
        limits[1][At(k)] = shot_x * k / layers;
        limits[2][At(k)] = shot_x + (width - shot_x) * k / layers;
    }
}

std::optional<HeldLimit> Limit_At(const QuickLimits& limits, int layers, double x) {
    for (int k = 1; k < layers; ++k) {
        for (const int side : {1, 2}) {
            if (Rounded(limits[At(side)][At(k)]) == Rounded(x)) return HeldLimit{side, k};
        }
    }
    return std::nullopt;
}

QuickLimits Limits_After_Move(QuickLimits limits, int layers, HeldLimit held, QuickPlace shot, double x) {
    const double place = std::clamp(Rounded(x), 0.0, width);
    for (const int side : {1, 2}) {
        if (side == held.Side || shot != QuickPlace::Between) limits[At(side)][At(held.Index)] = place;
        auto& row = limits[At(side)];
        for (int k = 1; k + 1 < layers; ++k) {
            if (row[At(k)] > row[At(k) + 1]) std::swap(row[At(k)], row[At(k) + 1]);
        }
    }
    return limits;
}

}  // namespace tarnvik
