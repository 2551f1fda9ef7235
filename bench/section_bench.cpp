#include <benchmark/benchmark.h>

#include "largest_line.h"
#include "output/section_files.h"
#include "output/section_places.h"
#include "output/topo_rows.h"
#include "output/velocity_grid.h"

// Coloured section of the largest line, 72 shots and 120 receivers, at high quality: what a change of a
// choice costs, and its files.

namespace {

using namespace tarnvik;

SectionGrid Grid_Of(const Project& project, SectionLine line) {
    const GridLayout layout{240, Grid_Rows(110, 60), 110, 60, project.LineLength, line};
    return Grid_Of_Places(Places_Of_Shots(project, true), layout, trace_surface_topo(project, 240, 110));
}

void Grid_Of_Shots(benchmark::State& state) {
    const Workspace workspace = bench::Largest_Line();
    const auto line = static_cast<SectionLine>(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(Grid_Of(workspace.Project, line));
}
BENCHMARK(Grid_Of_Shots)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void Section_Files(benchmark::State& state) {
    const Workspace workspace = bench::Largest_Line();
    const SectionGrid grid = Grid_Of(workspace.Project, SectionLine::Linear);
    for (auto _ : state) {
        benchmark::DoNotOptimize(Section_Dat(grid, workspace.Project.LineLength));
        benchmark::DoNotOptimize(Section_Grd(grid, workspace.Project.LineLength));
    }
}
BENCHMARK(Section_Files)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
