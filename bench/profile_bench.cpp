#include <benchmark/benchmark.h>

#include "largest_line.h"
#include "output/profile_painting.h"
#include "ui/painting/image_picture.h"

// Seismic profile of the largest line, 72 shots and 120 receivers with all depths, on a screen of 1920 x 1080
// pixels: what a change of the mode costs.

namespace {

using namespace tarnvik;

void Painted_Profile(benchmark::State& state) {
    Workspace workspace = bench::Largest_Line();
    workspace.Mode.Display(DisplayMode::Profil3);
    workspace.Profile.ProfileMaxElevation = 110;
    constexpr double pixels_per_point = 96.0 / 72.0;
    ImagePicture profile({1920, 1080}, pixels_per_point);
    ImagePicture scale({80, 1080}, pixels_per_point);
    for (auto _ : state) {
        if (!Paint_Profile(workspace, profile, scale).empty()) state.SkipWithError("not drawn");
        benchmark::DoNotOptimize(profile.Image().constBits());
    }
}
BENCHMARK(Painted_Profile)->Unit(benchmark::kMillisecond);

}  // namespace
