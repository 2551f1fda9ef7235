#include <benchmark/benchmark.h>

#include "core/workspace.h"
#include "traveltime/curve_drawing.h"
#include "traveltime/curves.h"
#include "traveltime/rubber_band.h"

// The arithmetic of the curves of the largest line, 72 shots and 120 receivers, on pictures that only count:
// what a change of data and one frame of the rubber band cost before a pixel is painted.

namespace {

using namespace tarnvik;

class CountingPicture : public Picture {
  public:
    void Scale(double left, double top, double right, double bottom) override {
        InForce = {left, top, right, bottom, 1920, 1080};
    }
    Frame Current_Frame() const override { return InForce; }
    void Clear() override {}
    void Line(double, double, double x, double y, Colour) override { Put(x, y); }
    void Box(double, double, double x, double y, Colour, bool) override { Put(x, y); }
    void Circle(double x, double y, double, Colour) override { Put(x, y); }
    void Arc(double x, double y, double, Colour, double, double, double) override { Put(x, y); }
    void Point(double x, double y, Colour) override { Put(x, y); }
    void Print(std::string_view, Colour) override { ++Verbs; }
    void Polygon(std::span<const PixelPoint>, Colour) override { ++Verbs; }
    void Polyline(std::span<const PixelPoint>, Colour) override { ++Verbs; }
    void Move_To(double x, double y) override { X = x, Y = y; }
    double Pen_X() const override { return X; }
    double Pen_Y() const override { return Y; }
    void Set_Draw_Mode(DrawMode) override {}
    void Set_Draw_Width(int) override {}
    void Set_Font_Size(int) override {}
    void Set_Pointer(PointerShape) override {}
    void Set_Buffering(bool) override {}
    long Verbs = 0;

  private:
    void Put(double x, double y) {
        Move_To(x, y);
        ++Verbs;
    }
    Frame InForce;
    double X = 0;
    double Y = 0;
};

Workspace Largest_Line() {
    Workspace workspace;
    Project& project = workspace.Project;
    project.NbShots = 72;
    project.NbReceivers = 120;
    project.LineLength = 595;
    Redimension_Project(project);
    for (int receiver = 1; receiver <= 120; ++receiver)
        project.ReceiverData(ReceiverDistance, receiver) = static_cast<float>((receiver - 1) * 5);
    for (int shot = 1; shot <= 72; ++shot) {
        project.ShotDistance(shot) = (shot - 1) * 595.0 / 71;
        for (int receiver = 1; receiver <= 120; ++receiver) {
            const double offset =
                project.ReceiverData(ReceiverDistance, receiver) - project.ShotDistance(shot);
            project.ShotTimes(shot, receiver) = static_cast<float>(3 + (offset < 0 ? -offset : offset) / 3);
        }
    }
    return workspace;
}

void Curves_By_Shot(benchmark::State& state) {
    Workspace workspace = Largest_Line();
    workspace.Settings.ColorChoice = state.range(0) != 0;
    CountingPicture dromo, across, beside;
    for (auto _ : state)
        Draw_Curves_On(workspace, {dromo, &across, &beside});
    state.counters["verbs"] = static_cast<double>(dromo.Verbs) / static_cast<double>(state.iterations());
}
// 0 by shot, 1 by velocity.
BENCHMARK(Curves_By_Shot)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
