#include <benchmark/benchmark.h>

#include <QGuiApplication>

#include "core/workspace.h"
#include "output/profile_painting.h"
#include "ui/painting/image_picture.h"

// Seismic profile of the largest line, 72 shots and 120 receivers with all depths, on a screen of 1920 x 1080
// pixels: what a change of the mode costs.

namespace {

using namespace tarnvik;

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
    Workspace workspace = Largest_Line();
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

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
