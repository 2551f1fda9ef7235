#pragma once

#include <algorithm>
#include <cmath>
#include <optional>
#include <random>
#include <vector>

#include "demo/layered_earth.h"

namespace tarnvik::test {

/// A line over plane layers: 24 to 48 receivers, 7 to 9 shots, 2 to 4 layers, velocity ratios 1.6 to 3, dips
/// to 10 degrees; every layer comes first at four receivers or more from both end shots.
struct RandomLine {
    LayeredEarth Earth{std::vector<EarthLayer>{}};
    std::vector<double> Receivers;
    std::vector<double> Shots;
    std::vector<std::vector<double>> Exact;  ///< by shot and receiver, ms
    std::vector<std::vector<int>> Layers;    ///< whose wave comes first
};

inline std::optional<RandomLine> Draw_Line(std::mt19937& random) {
    const auto between = [&random](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    constexpr double degree = 3.14159265358979323846 / 180;
    RandomLine line;
    const int receivers = std::uniform_int_distribution<int>(24, 48)(random);
    const double spacing = between(2, 5);
    for (int i = 0; i < receivers; ++i)
        line.Receivers.push_back(i * spacing);
    const double length = line.Receivers.back();
    const int layers = std::uniform_int_distribution<int>(2, 4)(random);
    std::vector<EarthLayer> earth;
    double velocity = between(300, 800);
    double depth = 0;
    for (int i = 0; i < layers; ++i) {
        depth += between(0.02, 0.12) * length;
        earth.push_back({velocity, depth, between(-10, 10) * degree});
        velocity *= between(1.6, 3);
    }
    line.Earth = LayeredEarth(earth);
    for (const double x : {-0.5 * length, 0.0, length, 1.5 * length}) {
        for (int layer = 1; layer < layers; ++layer) {
            const double above = layer > 1 ? line.Earth.Boundary_Depth(layer - 1, x) : 0;
            if (line.Earth.Boundary_Depth(layer, x) - above < 0.01 * length) return std::nullopt;
        }
    }
    line.Shots = {-0.3 * length,         0,      length / 4 + 0.01, length / 2 + 0.01,
                  3 * length / 4 + 0.01, length, 1.3 * length};
    const int more = std::uniform_int_distribution<int>(0, 2)(random);
    if (more > 0) line.Shots.push_back(-0.15 * length);
    if (more > 1) line.Shots.push_back(1.15 * length);
    std::sort(line.Shots.begin(), line.Shots.end());
    for (const double shot : line.Shots) {
        std::vector<double>& times = line.Exact.emplace_back();
        std::vector<int>& first = line.Layers.emplace_back();
        for (const double receiver : line.Receivers)
            times.push_back(line.Earth.First_Arrival({shot, 0}, {receiver, 0}, &first.emplace_back()));
        if (shot != 0 && shot != length) continue;
        for (int layer = 1; layer <= layers; ++layer) {
            if (std::count(first.begin(), first.end(), layer) < 4) return std::nullopt;
        }
    }
    return line;
}

}  // namespace tarnvik::test
