// What a drag along a curve costs: the regression with the redraw of its shot, and with all curves anew. The
// hand wants its answer within 16 ms.

#include <benchmark/benchmark.h>

#include <array>
#include <vector>

#include "support/earth_line.h"
#include "support/test_ports.h"
#include "traveltime/curves.h"
#include "traveltime/regression_vitesse.h"

namespace tarnvik {

namespace {

constexpr int shots = 72;
constexpr int receivers = 120;

/// Draws nothing and counts the verbs, so that only the program's own work is measured.
class CountingPicture : public Picture {
  public:
    void Scale(double left, double top, double right, double bottom) override {
        InForce = {left, top, right, bottom, 960, 500};
    }
    Frame Current_Frame() const override { return InForce; }
    void Clear() override { ++Verbs; }
    void Line(double, double, double x2, double y2, Colour) override { Count(x2, y2); }
    void Box(double, double, double x2, double y2, Colour, bool) override { Count(x2, y2); }
    void Circle(double x, double y, double, Colour) override { Count(x, y); }
    void Arc(double x, double y, double, Colour, double, double, double) override { Count(x, y); }
    void Point(double x, double y, Colour) override { Count(x, y); }
    void Print(std::string_view, Colour) override { ++Verbs; }
    void Polygon(std::span<const PixelPoint>, Colour) override { ++Verbs; }
    void Polyline(std::span<const PixelPoint>, Colour) override { ++Verbs; }
    void Move_To(double x, double y) override {
        X = x;
        Y = y;
    }
    double Pen_X() const override { return X; }
    double Pen_Y() const override { return Y; }
    void Set_Draw_Mode(DrawMode) override {}
    void Set_Draw_Width(int) override {}
    void Set_Font_Size(int) override {}
    void Set_Pointer(PointerShape) override {}
    void Set_Buffering(bool) override {}

    std::int64_t Verbs = 0;

  private:
    void Count(double x, double y) {
        Move_To(x, y);
        ++Verbs;
    }
    Frame InForce{0, 100, 96, 0, 960, 500};
    double X = 0;
    double Y = 0;
};

class CountingDisplay : public test::RecordingDisplay {
  public:
    Picture& Canvas_Of(Canvas) override { return Everything; }
    void Show_Fields() override {}
    void Show_Grids() override {}
    CountingPicture Everything;
};

struct Line {
    Line() {
        const std::array velocities{500.0, 1500.0, 4000.0};
        const std::array thicknesses{6.0, 15.0};
        std::vector<double> places;
        for (int shot = 0; shot < shots; ++shot)
            places.push_back(595.0 * shot / (shots - 1));
        test::Lay_Line(Work, LayeredEarth::Horizontal(velocities, thicknesses), receivers, 5, places);
    }
    Workspace Work;
    test::ScriptedPrompts Prompts;
    CountingDisplay Display;
    test::RecordingLauncher Launcher;
    Ports World{Prompts, Display, Launcher};
};

void Drag(Line& line) {
    int first = 1;
    int last = receivers;
    line.Work.Velocity.FocusField = "V3B";
    Regression_Vitesse(line.Work, line.World, 1, first, last, line.Work.Velocity.VelocityResult);
}

void Regression_Of_A_Whole_Curve(benchmark::State& state) {
    Line line;
    for (auto step : state)
        Drag(line);
    state.counters["verbs"] = benchmark::Counter(static_cast<double>(line.Display.Everything.Verbs),
                                                 benchmark::Counter::kAvgIterations);
}
BENCHMARK(Regression_Of_A_Whole_Curve)->Unit(benchmark::kMillisecond);

void Regression_With_All_Curves_Redrawn(benchmark::State& state) {
    Line line;
    for (auto step : state) {
        Show_Curves(line.Work, line.World);
        Drag(line);
    }
    state.counters["verbs"] = benchmark::Counter(static_cast<double>(line.Display.Everything.Verbs),
                                                 benchmark::Counter::kAvgIterations);
}
BENCHMARK(Regression_With_All_Curves_Redrawn)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace tarnvik

BENCHMARK_MAIN();
