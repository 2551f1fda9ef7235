#include <benchmark/benchmark.h>

#include "core/ports/silent_picture.h"
#include "largest_line.h"
#include "traveltime/curve_drawing.h"
#include "traveltime/curve_selection.h"
#include "traveltime/zoom.h"
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

/// One step of the wheel: the window moves and the enlarged part is painted.
void Wheel_Step(benchmark::State& state) {
    Workspace workspace = Largest_Line();
    constexpr double pixels_per_point = 96.0 / 72.0;
    ImagePicture dromo({1920, 1080}, pixels_per_point);
    ImagePicture across({1920, 60}, pixels_per_point);
    ImagePicture beside({60, 1080}, pixels_per_point);
    Enlarge_At(workspace.Curves, 48, 30, static_cast<double>(state.range(0)), 2);
    double step = 0.5;
    for (auto _ : state) {
        Pan(workspace.Curves, step, -step);
        step = -step;
        if (!Draw_Curves_On(workspace, {dromo, &across, &beside})) state.SkipWithError("not drawn");
    }
    benchmark::DoNotOptimize(dromo.Image().constBits());
}

/// One move of the pointer over the curves: the curve under it is looked for.
void Curve_Under_Pointer(benchmark::State& state) {
    Workspace workspace = Largest_Line();
    workspace.Curves.FrameDrawn = 1;
    Scale_Time_Grid(workspace);
    const Frame frame{0, 100, 96, 0, 1920, 1080};
    double x = 0;
    for (auto _ : state) {
        x = x > 95 ? 0 : x + 0.7;
        benchmark::DoNotOptimize(Curve_At(workspace, frame, x, 40, 8));
    }
}

BENCHMARK(Wheel_Step)->Arg(2)->Arg(10)->Unit(benchmark::kMillisecond);
BENCHMARK(Curve_Under_Pointer)->Unit(benchmark::kMicrosecond);

// 0 one colour a shot, 1 by velocity.
BENCHMARK(Curves_Without_Paint)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(Painted_Curves)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
