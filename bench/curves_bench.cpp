#include <benchmark/benchmark.h>

#include "core/ports/silent_picture.h"
#include "largest_line.h"
#include "traveltime/curve_drawing.h"
#include "ui/painting/image_picture.h"

// The curves of the largest line, 72 shots and 120 receivers, on a screen of 1920 x 1080 pixels: what a
// change of data costs, and how much of it is not painting.

namespace {

using namespace tarnvik;
using bench::Largest_Line;

void Curves_On(Workspace& workspace, benchmark::State& state, Picture& dromo, Picture& across,
               Picture& beside) {
    workspace.Settings.ColorChoice = state.range(0) != 0;
    for (auto _ : state) {
        if (!Draw_Curves_On(workspace, {dromo, &across, &beside})) state.SkipWithError("not drawn");
    }
}

void Curves_Without_Paint(benchmark::State& state) {
    Workspace workspace = Largest_Line();
    SilentPicture dromo, across, beside;
    Curves_On(workspace, state, dromo, across, beside);
}

void Painted_Curves(benchmark::State& state) {
    Workspace workspace = Largest_Line();
    constexpr double pixels_per_point = 96.0 / 72.0;
    ImagePicture dromo({1920, 1080}, pixels_per_point);
    ImagePicture across({1920, 60}, pixels_per_point);
    ImagePicture beside({60, 1080}, pixels_per_point);
    Curves_On(workspace, state, dromo, across, beside);
    benchmark::DoNotOptimize(dromo.Image().constBits());
}

// 0 one colour a shot, 1 by velocity.
BENCHMARK(Curves_Without_Paint)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(Painted_Curves)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
