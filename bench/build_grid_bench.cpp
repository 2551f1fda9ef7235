// The table of a full line, filled whole after a change of geometry, and one cell after a change of a pick.

#include <benchmark/benchmark.h>

#include "largest_line.h"
#include "setup/build_grid.h"

namespace {

using namespace tarnvik;

void Fill(benchmark::State& state) {
    Workspace workspace = bench::Largest_Line();
    for (auto _ : state)
        Fill_Grid(workspace);
}
BENCHMARK(Fill)->Unit(benchmark::kMillisecond);

void One_Cell(benchmark::State& state) {
    Workspace workspace = bench::Largest_Line();
    Fill_Grid(workspace);
    for (auto _ : state)
        Fill_Grid_Cell(workspace, PickPlace{1, 1});
}
BENCHMARK(One_Cell)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
