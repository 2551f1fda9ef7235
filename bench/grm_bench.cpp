// What the curves of all eight XY cost below 120 receivers on a screen of 1920 x 1080 pixels, computed and
// painted: to stay within a frame of 16 ms.

#include <benchmark/benchmark.h>

#include <cmath>

#include "depth/grm_curves.h"
#include "depth/grm_picture.h"
#include "largest_line.h"
#include "ui/painting/image_picture.h"

namespace {

using namespace tarnvik;

Workspace Line_With_Delays() {
    Workspace work = bench::Largest_Line();
    Project& line = work.Project;
    line.TotalTime = 120;
    for (int receiver = 1; receiver <= line.NbReceivers; ++receiver) {
        line.GrmData(1, receiver) = 20 + receiver + 3 * std::sin(receiver / 9.0);
        line.GrmData(2, receiver) = 140 - receiver + 3 * std::sin(receiver / 9.0);
    }
    return work;
}

void Grm_Curves_Of_Eight_XY(benchmark::State& state) {
    constexpr double pixels_per_point = 96.0 / 72.0;
    Workspace work = Line_With_Delays();
    ImagePicture dromo{{1920, 1080}, pixels_per_point};
    ImagePicture below{{1920, 60}, pixels_per_point};
    ImagePicture beside{{60, 1080}, pixels_per_point};
    for (auto _ : state) {
        work.Grm.Curves = Curves_Of_Grm(work.Project, GrmFunction::TimeDepth, 2, 16, 0).Curves;
        work.Grm.CurveStep = 5;
        work.Grm.Drawn = DisplayMode::Grm;
        Draw_Grm_On(work, {dromo, &below, &beside});
        benchmark::DoNotOptimize(dromo.Image().constBits());
    }
}
BENCHMARK(Grm_Curves_Of_Eight_XY)->Unit(benchmark::kMillisecond);

}  // namespace
