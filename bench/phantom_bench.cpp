// What a step of the hand costs on a screen of 1920 x 1080 pixels while a curve slides over the others: its
// marks alone; and another pair, which paints the curves. A step is to stay below 16 ms.

#include <benchmark/benchmark.h>

#include "largest_line.h"
#include "support/test_ports.h"
#include "traveltime/curve_drawing.h"
#include "traveltime/fantom_f.h"
#include "ui/painting/image_picture.h"

namespace {

using namespace tarnvik;

struct Bench {
    Workspace Work = bench::Largest_Line();
    test::TestPorts World;
    FantomF Dialog{Work, World.Ports};

    Bench() {
        Dialog.Load();
        Dialog.FixedShot = "30";
        Dialog.MovingShot = "40";
        Dialog.Slide_To(0);
    }
};

void A_Step_Of_The_Moving_Curve(benchmark::State& state) {
    Bench bench;
    double shift = 0;
    for (auto _ : state) {
        shift = shift > 10 ? 0 : shift + 0.1;
        bench.Dialog.Slide_To(shift);
        bench.World.Display.Calls.clear();
        benchmark::DoNotOptimize(bench.World.Display.Marks);
    }
}
BENCHMARK(A_Step_Of_The_Moving_Curve)->Unit(benchmark::kMillisecond);

void Another_Pair_Painted(benchmark::State& state) {
    Bench bench;
    constexpr double pixels_per_point = 96.0 / 72.0;
    ImagePicture dromo{{1920, 1080}, pixels_per_point};
    for (auto _ : state) {
        Draw_Curves_On(bench.Work, {dromo});
        benchmark::DoNotOptimize(dromo.Image().constBits());
    }
}
BENCHMARK(Another_Pair_Painted)->Unit(benchmark::kMillisecond);

}  // namespace
