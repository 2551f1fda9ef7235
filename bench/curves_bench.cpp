#include <benchmark/benchmark.h>

#include <QGuiApplication>

#include "core/ports/silent_picture.h"
#include "core/workspace.h"
#include "traveltime/curve_drawing.h"
#include "ui/painting/image_picture.h"

// The curves of the largest line, 72 shots and 120 receivers, on a screen of 1920 x 1080 pixels: what a
// change of data costs, and how much of it is not painting.

namespace {

using namespace tarnvik;

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

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
