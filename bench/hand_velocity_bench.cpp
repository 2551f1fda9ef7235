// What a line drawn by hand costs at each move of the pointer, and what showing a true velocity does, on a
// screen of 1920 x 1080 pixels. The hand wants its answer within 16 ms.

#include <benchmark/benchmark.h>

#include "largest_line.h"
#include "support/test_ports.h"
#include "traveltime/curve_pointer.h"
#include "traveltime/curves.h"
#include "traveltime/speed_f2.h"
#include "traveltime/speed_f3.h"
#include "traveltime/speed_f3_pointer.h"
#include "ui/painting/image_picture.h"

namespace {

using namespace tarnvik;

/// A display whose picture of the curves is painted, as in the window.
class PaintedDisplay : public test::RecordingDisplay {
  public:
    Picture& Canvas_Of(Canvas canvas) override { return canvas == Canvas::Dromo ? Dromo : Strip; }
    void Show_Fields() override {}
    void Show_Grids() override {}
    void Repaint_Page(Page) override { Show_Curves(); }

  private:
    static constexpr double PixelsPerPoint = 96.0 / 72.0;
    ImagePicture Dromo{{1920, 1080}, PixelsPerPoint};
    ImagePicture Strip{{1920, 60}, PixelsPerPoint};
};

struct Bench {
    Bench() {
        Display.OnShowCurves = [this] { Show_Curves(Work, World); };
        Show_Curves(Work, World);
    }
    Workspace Work = bench::Largest_Line();
    test::ScriptedPrompts Prompts;
    PaintedDisplay Display;
    test::RecordingLauncher Launcher;
    Ports World{Prompts, Display, Launcher};
};

void Line_Under_The_Hand(benchmark::State& state) {
    Bench bench;
    SpeedF3 form(bench.Work, bench.World);
    SpeedF3Pointer mouse(bench.Work, bench.World, form);
    CurvePointer pointer(bench.Work, bench.World);
    pointer.Register(DisplayMode::Vitesse2, &mouse);
    form.Load();
    pointer.Press({10, 10, true, false});
    double x = 20;
    for (auto _ : state) {
        x = x > 90 ? 20 : x + 0.5;
        pointer.Move({x, x / 2, true, false});
    }
}
BENCHMARK(Line_Under_The_Hand)->Unit(benchmark::kMillisecond);

void True_Velocity_Of_Two_Shots(benchmark::State& state) {
    Bench bench;
    SpeedF2 form(bench.Work, bench.World);
    form.Load();
    for (auto _ : state)
        form.Command2();
}
BENCHMARK(True_Velocity_Of_Two_Shots)->Unit(benchmark::kMillisecond);

}  // namespace
