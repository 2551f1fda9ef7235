// First arrivals of 72 shots at 120 receivers through three layers, over 1,200 x 160 squares: below 3 s on
// two cores.

#include <benchmark/benchmark.h>

#include "interpretation/forward_times.h"

namespace tarnvik {
namespace {

void Forward_Times(benchmark::State& state) {
    constexpr double length = 240;
    ForwardRequest request;
    request.Nodes = 1200 * 160;
    request.Section.Ground = LineValues({{0, 0}, {length / 2, 3}, {length, 0}});
    request.Section.Interfaces = {LineValues({{0, -5}, {length, -8}}), LineValues({{0, -15}, {length, -20}})};
    request.Section.Velocities = {LineValues({{0, 500}}), LineValues({{0, 1500}}), LineValues({{0, 3500}})};
    for (int shot = 0; shot < 72; ++shot) {
        const double x = shot * length / 71;
        request.Shots.push_back({x, request.Section.Ground.At(x)});
    }
    for (int receiver = 0; receiver < 120; ++receiver) {
        const double x = receiver * length / 119;
        request.Receivers.push_back({x, request.Section.Ground.At(x)});
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(First_Arrivals(request));
}
BENCHMARK(Forward_Times)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace tarnvik

BENCHMARK_MAIN();
