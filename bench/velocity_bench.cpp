// What a drag along a curve costs on a screen of 1920 x 1080 pixels: the regression with the redraw of its
// shot, and with all curves anew. The hand wants its answer within 16 ms.

#include <benchmark/benchmark.h>

#include "largest_line.h"
#include "support/test_ports.h"
#include "traveltime/curves.h"
#include "traveltime/regression_vitesse.h"
#include "ui/painting/image_picture.h"

namespace {

using namespace tarnvik;

/// A display whose picture of the curves is painted, as in the window.
class PaintedDisplay : public test::RecordingDisplay {
  public:
    Picture& Canvas_Of(Canvas canvas) override { return canvas == Canvas::Dromo ? Dromo : Strip; }
    void Show_Fields() override {}
    void Show_Grids() override {}
    const unsigned char* Painted() { return Dromo.Image().constBits(); }

  private:
    static constexpr double PixelsPerPoint = 96.0 / 72.0;
    ImagePicture Dromo{{1920, 1080}, PixelsPerPoint};
    ImagePicture Strip{{1920, 60}, PixelsPerPoint};
};

struct Bench {
    Workspace Work = bench::Largest_Line();
    test::ScriptedPrompts Prompts;
    PaintedDisplay Display;
    test::RecordingLauncher Launcher;
    Ports World{Prompts, Display, Launcher};

    void Drag() {
        int first = 1;
        int last = Work.Project.NbReceivers;
        Regression_Vitesse(Work, World, 1, first, last, StretchLine::Free, Work.Velocity.VelocityResult);
    }
};

void Regression_Of_A_Whole_Curve(benchmark::State& state) {
    Bench bench;
    Show_Curves(bench.Work, bench.World);
    for (auto _ : state)
        bench.Drag();
}
BENCHMARK(Regression_Of_A_Whole_Curve)->Unit(benchmark::kMillisecond);

void Regression_With_All_Curves_Redrawn(benchmark::State& state) {
    Bench bench;
    for (auto _ : state) {
        Show_Curves(bench.Work, bench.World);
        bench.Drag();
    }
}
BENCHMARK(Regression_With_All_Curves_Redrawn)->Unit(benchmark::kMillisecond);

// A changed pick, redrawn in the strip that it touches; to stay below 8 ms. 0 one colour a shot, 1 by
// velocity.
void One_Pick_Refreshed(benchmark::State& state) {
    Bench bench;
    bench.Work.Settings.ColorChoice = state.range(0) != 0;
    Show_Curves(bench.Work, bench.World);
    float& time = bench.Work.Project.ShotTimes(36, 60);
    const PickPlace pick{36, 60};
    for (auto _ : state) {
        time = time > 20 ? time - 5 : time + 5;
        Refresh_Curves(bench.Work, bench.World, std::span(&pick, 1));
        benchmark::DoNotOptimize(bench.Display.Painted());
    }
}
BENCHMARK(One_Pick_Refreshed)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
