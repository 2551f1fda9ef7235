// Seismic profile of the largest line, 72 shots and 120 receivers with all depths: what a change of mode
// costs before the picture reaches the screen. The drawing verbs are only counted; what the painter adds is
// measured with the pictures.

#include <benchmark/benchmark.h>

#include "core/ports/picture.h"
#include "core/workspace.h"
#include "output/profile_painting.h"

namespace {

using namespace tarnvik;

class CountingPicture final : public Picture {
  public:
    void Scale(double left, double top, double right, double bottom) override {
        InForce = {left, top, right, bottom, 1920, 1080};
    }
    Frame Current_Frame() const override { return InForce; }
    void Clear() override {}
    void Line(double, double, double x2, double y2, Colour) override { Drawn_To(x2, y2); }
    void Box(double, double, double x2, double y2, Colour, bool) override { Drawn_To(x2, y2); }
    void Circle(double x, double y, double, Colour) override { Drawn_To(x, y); }
    void Arc(double x, double y, double, Colour, double, double, double) override { Drawn_To(x, y); }
    void Point(double x, double y, Colour) override { Drawn_To(x, y); }
    void Print(std::string_view text, Colour) override { Verbs += text.empty() ? 0 : 1; }
    void Polygon(std::span<const PixelPoint>, Colour) override { ++Verbs; }
    void Polyline(std::span<const PixelPoint>, Colour) override { ++Verbs; }
    void Move_To(double x, double y) override {
        PenX = x;
        PenY = y;
    }
    double Pen_X() const override { return PenX; }
    double Pen_Y() const override { return PenY; }
    void Set_Draw_Mode(DrawMode) override {}
    void Set_Draw_Width(int) override {}
    void Set_Font_Size(int) override {}
    void Set_Pointer(PointerShape) override {}
    void Set_Buffering(bool) override {}

    std::int64_t Verbs = 0;

  private:
    void Drawn_To(double x, double y) {
        ++Verbs;
        Move_To(x, y);
    }
    Frame InForce;
    double PenX = 0;
    double PenY = 0;
};

Workspace Largest_Line() {
    Workspace workspace;
    Project& project = workspace.Project;
    project.NbShots = 72;
    project.NbReceivers = 120;
    project.LineLength = 600;
    Redimension_Project(project);
    for (int shot = 1; shot <= 72; ++shot) {
        project.ShotDistance(shot) = (shot - 1) * 600.0 / 71;
        project.ShotElevation(shot) = 100;
        for (int layer = 1; layer <= 4; ++layer)
            project.ShotThickness(shot, layer) = 3 * layer;
        for (int layer = 1; layer <= 5; ++layer)
            project.VelocityA(shot, layer) = project.VelocityB(shot, layer) =
                static_cast<std::int16_t>(600 * layer);
    }
    for (int receiver = 1; receiver <= 120; ++receiver) {
        project.ReceiverData(ReceiverDistance, receiver) = static_cast<float>(receiver * 5 - 2);
        project.ReceiverData(ReceiverElevation, receiver) = 100;
        project.ReceiverData(ReceiverRockDepth, receiver) = 20;
        project.ReceiverData(ReceiverDepth1, receiver) = 5;
        project.ReceiverData(ReceiverDepth2, receiver) = 12;
        project.GrmData(9, receiver) = 20;
    }
    workspace.DisplayMode = "Profil3";
    return workspace;
}

void Painted_Profile(benchmark::State& state) {
    const Workspace workspace = [] {
        Workspace line = Largest_Line();
        line.Profile.ProfileMaxElevation = 110;
        return line;
    }();
    CountingPicture profile;
    CountingPicture scale;
    for (auto _ : state) {
        if (!Paint_Profile(workspace, profile, scale).empty()) state.SkipWithError("not drawn");
    }
    state.counters["verbs"] = static_cast<double>(profile.Verbs) / static_cast<double>(state.iterations());
}
BENCHMARK(Painted_Profile)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
