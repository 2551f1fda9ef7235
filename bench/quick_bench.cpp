// What a limit costs that the hand drags in the quick interpretation: the fit between all limits, the depths
// and the marks on the picture. The hand wants its answer within 16 ms.

#include <benchmark/benchmark.h>

#include "depth/quick_interpret.h"
#include "largest_line.h"
#include "support/test_ports.h"

namespace {

using namespace tarnvik;

void Limit_Dragged(benchmark::State& state) {
    Workspace work = bench::Largest_Line();
    test::TestPorts world;
    QuickInterpret dialog(work, world.Ports);
    work.Velocity.CurrentShot = 36;
    dialog.Load();
    dialog.LayerCount = "4";
    dialog.Layers_Changed();
    const double from = dialog.Limits[2][2];
    dialog.Catch_Limit(from);
    double step = 0;
    for (auto _ : state) {
        step = step > 5 ? 0 : step + 1;  // another whole number each time
        dialog.Drag_Limit(from + step);
        world.Display.Calls.clear();
    }
}
BENCHMARK(Limit_Dragged)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
