#include <benchmark/benchmark.h>

#include "ui/painting/image_picture.h"

// One step of a rubber band on a screen of 1920 x 1080 pixels: the old line erased, the new one drawn.

namespace {

using namespace tarnvik;

constexpr double pixels_per_point = 96.0 / 72.0;

void Rubber_Band_Step(benchmark::State& state) {
    ImagePicture picture({1920, 1080}, pixels_per_point);
    picture.Scale(0, 100, 96, 0);
    picture.Clear();
    picture.Set_Draw_Mode(DrawMode::Xor);
    double x = 50;
    for (auto _ : state) {
        picture.Line(10, 10, x, 80, colours::Yellow);
        x = x < 90 ? x + 0.5 : 50;
        picture.Line(10, 10, x, 80, colours::Yellow);
        benchmark::DoNotOptimize(picture.Image().constBits());
    }
}
BENCHMARK(Rubber_Band_Step)->Unit(benchmark::kMicrosecond);

}  // namespace
