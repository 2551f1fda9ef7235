#include <benchmark/benchmark.h>

#include "largest_line.h"
#include "output/exports/dxf_export.h"
#include "output/exports/picks_export.h"
#include "output/exports/plotrefa_export.h"
#include "output/exports/rayfract_export.h"
#include "output/imports/pick_files.h"

namespace tarnvik {
namespace {

std::vector<int> All_Shots(const Project& project) {
    std::vector<int> shots;
    for (int shot = 1; shot <= project.NbShots; ++shot)
        shots.push_back(shot);
    return shots;
}

/// The text of each export one after the other; the disk is not measured.
void Texts(benchmark::State& state) {
    const Workspace work = bench::Largest_Line();
    const Project& project = work.Project;
    const std::vector<int> shots = All_Shots(project);
    for (auto _ : state) {
        ExportReport report;
        benchmark::DoNotOptimize(Plotrefa_Text(project, shots, {5, true, 0}));
        benchmark::DoNotOptimize(Rayfract_Text(project, shots, {1, 1, true, {}}));
        benchmark::DoNotOptimize(Picks_Text(project, report));
        benchmark::DoNotOptimize(Unified_Text(project, report));
        benchmark::DoNotOptimize(Dxf_Text(project, true, report));
    }
}
BENCHMARK(Texts)->Unit(benchmark::kMillisecond);

void Import(benchmark::State& state) {
    const Workspace work = bench::Largest_Line();
    ExportReport report;
    const std::string text = Unified_Text(work.Project, report);
    for (auto _ : state) {
        Project project;
        benchmark::DoNotOptimize(Project_Of_Line(Read_Unified(text), project));
    }
}
BENCHMARK(Import)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarnvik

BENCHMARK_MAIN();
