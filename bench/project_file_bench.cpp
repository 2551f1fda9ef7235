#include <benchmark/benchmark.h>

#include "core/project_file.h"
#include "largest_line.h"

namespace {

void Load(benchmark::State& state) {
    const std::string bytes = Project_Bytes(tarnvik::bench::Largest_Line().Project);
    for (auto _ : state) {
        tarnvik::Project project;
        Parse_Project(bytes, project);
        benchmark::DoNotOptimize(project);
    }
}
BENCHMARK(Load)->Unit(benchmark::kMillisecond);

void Write(benchmark::State& state) {
    const tarnvik::Project project = tarnvik::bench::Largest_Line().Project;
    for (auto _ : state)
        benchmark::DoNotOptimize(Project_Bytes(project));
}
BENCHMARK(Write)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
