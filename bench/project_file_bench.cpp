#include <benchmark/benchmark.h>

#include "core/project_file.h"

namespace {

/// The longest line the program makes: 72 shots, 120 receivers, every value in use.
tarnvik::Project Long_Line() {
    tarnvik::Project project;
    project.NbShots = tarnvik::Project::MaxShots;
    project.NbReceivers = 120;
    project.LineLength = 595;
    Redimension_Project(project);
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        project.ShotDistance(shot) = shot * 8.25;
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver)
            project.ShotTimes(shot, receiver) = static_cast<float>(shot * receiver) * 0.07F;
        for (int layer = 1; layer <= tarnvik::Project::MaxLayers; ++layer)
            project.VelocityA(shot, layer) = static_cast<std::int16_t>(400 * layer + shot);
    }
    for (int row = 1; row <= tarnvik::Project::FiledReceiverRows; ++row) {
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver)
            project.ReceiverData(row, receiver) = static_cast<float>(row * receiver) * 0.111F;
    }
    return project;
}

void Load(benchmark::State& state) {
    const std::string bytes = Project_Bytes(Long_Line());
    for (auto _ : state) {
        tarnvik::Project project;
        Parse_Project(bytes, project);
        benchmark::DoNotOptimize(project);
    }
}
BENCHMARK(Load)->Unit(benchmark::kMillisecond);

void Write(benchmark::State& state) {
    const tarnvik::Project project = Long_Line();
    for (auto _ : state)
        benchmark::DoNotOptimize(Project_Bytes(project));
}
BENCHMARK(Write)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
