// What a step of a travel-time curve under the hand costs on the largest line, and the correction of a shot
// in its records.

#include <benchmark/benchmark.h>

#include <filesystem>

#include "largest_line.h"
#include "setup/erase_tt.h"
#include "setup/trigger_plan.h"
#include "support/su_builder.h"
#include "support/test_ports.h"

namespace {

using namespace tarnvik;

struct Bench {
    Workspace Work = bench::Largest_Line();
    test::ScriptedPrompts Prompts;
    test::RecordingDisplay Display;
    test::RecordingLauncher Launcher;
    Ports World{Prompts, Display, Launcher};
};

void Step_Of_The_Curve(benchmark::State& state) {
    Bench bench;
    Erase_TT dialog(bench.Work, bench.World);
    dialog.Load();
    double shift = 0;
    for (auto _ : state)
        dialog.Take_Shift(shift += 0.05);
    dialog.Drop_Shift();
}
BENCHMARK(Step_Of_The_Curve)->Unit(benchmark::kMillisecond);

void Correction_Of_A_Shot(benchmark::State& state) {
    Bench bench;
    const test::TemporaryFolder folder;
    const int samples = 2000;
    Project& line = bench.Work.Project;
    const int traces = line.NbShots * line.NbReceivers;
    line.SuFile = test::SuBuilder(traces, samples, 250).Records(line.NbReceivers).Write(folder / "line.su");
    const TriggerPlan plan = Plan_Trigger_Correction(bench.Work, 36, 5);
    for (auto _ : state) {
        const EditScope edit(bench.Work, "Trigger correction");
        benchmark::DoNotOptimize(Shift_Records(bench.Work, plan));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(traces) * (240 + 4 * samples));
}
BENCHMARK(Correction_Of_A_Shot)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
