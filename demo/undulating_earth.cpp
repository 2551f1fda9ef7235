#include "demo/undulating_earth.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace tarnvik {

namespace {

constexpr double node_spacing = 0.25;
constexpr double ms_per_second = 1000;

double Apart(SectionPoint from, SectionPoint to) {
    return std::hypot(to.X - from.X, to.Z - from.Z);
}

}  // namespace

UndulatingEarth::UndulatingEarth(double layer_velocity, double refractor_velocity,
                                 std::function<double(double)> depth, double from, double to)
    : LayerVelocity(layer_velocity), RefractorVelocity(refractor_velocity), DepthAt(std::move(depth)) {
    const int count = static_cast<int>(std::ceil((to - from) / node_spacing));
    for (int node = 0; node <= count; ++node) {
        const double x = from + node * node_spacing;
        Nodes.push_back({x, DepthAt(x)});
    }
}

double UndulatingEarth::Through_Layer(SectionPoint from, SectionPoint to) const {
    return Apart(from, to) * ms_per_second / LayerVelocity;
}

std::vector<double> UndulatingEarth::First_Arrivals(SectionPoint shot,
                                                    const std::vector<SectionPoint>& receivers) const {
    // Times at the refractor: each node is reached through the layer, or from a node that it sees through the
    // half space. Waves that run towards higher x and towards lower x never turn round.
    std::vector<double> times;
    for (const SectionPoint& node : Nodes)
        times.push_back(Through_Layer(shot, node));
    const auto run = [this, &times](int first, int end, int step) {
        for (int to = first; to != end; to += step) {
            const SectionPoint here = Nodes[static_cast<std::size_t>(to)];
            double deepest = -std::numeric_limits<double>::infinity();  // slope of the line that clears all
            for (int from = to - step; from != first - step; from -= step) {
                const SectionPoint there = Nodes[static_cast<std::size_t>(from)];
                const double slope = (there.Z - here.Z) / std::abs(there.X - here.X);
                if (slope < deepest) continue;  // the refractor between them is deeper than the line
                deepest = slope;
                const double time = times[static_cast<std::size_t>(from)] +
                                    Apart(there, here) * ms_per_second / RefractorVelocity;
                times[static_cast<std::size_t>(to)] = std::min(times[static_cast<std::size_t>(to)], time);
            }
        }
    };
    const int count = static_cast<int>(Nodes.size());
    run(0, count, 1);
    run(count - 1, -1, -1);

    std::vector<double> arrivals;
    for (const SectionPoint& receiver : receivers) {
        double first = Through_Layer(shot, receiver);
        for (std::size_t node = 0; node < Nodes.size(); ++node)
            first = std::min(first, times[node] + Through_Layer(Nodes[node], receiver));
        arrivals.push_back(first);
    }
    return arrivals;
}

}  // namespace tarnvik
