// The table of a full line, rebuilt after every redraw of the curves, and read back before a save.

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

void Read(benchmark::State& state) {
    Workspace workspace = bench::Largest_Line();
    Fill_Grid(workspace);
    for (auto _ : state)
        Read_Grid(workspace);
}
BENCHMARK(Read)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
