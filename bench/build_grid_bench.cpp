// The table of a full line, rebuilt after every redraw of the curves, and read back before a save.

#include <benchmark/benchmark.h>

#include "setup/build_grid.h"

namespace {

using namespace tarnvik;

void Make_Full_Line(Workspace& workspace) {
    Project& project = workspace.Project;
    project.NbShots = Project::MaxShots;
    project.NbReceivers = 120;
    Redimension_Project(project);
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver)
            project.ShotTimes(shot, receiver) =
                3.17F * static_cast<float>(receiver) + static_cast<float>(shot);
    }
}

void Fill(benchmark::State& state) {
    Workspace workspace;
    Make_Full_Line(workspace);
    for (auto _ : state)
        Fill_Grid(workspace);
}
BENCHMARK(Fill)->Unit(benchmark::kMillisecond);

void Read(benchmark::State& state) {
    Workspace workspace;
    Make_Full_Line(workspace);
    Fill_Grid(workspace);
    for (auto _ : state)
        Read_Grid(workspace);
}
BENCHMARK(Read)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
