#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <cmath>
#include <string>

#include "ui/painting/image_picture.h"

// How long the picture verbs take on a screen of 1920 x 1080 pixels: the load of a full drawing of the curves
// of 72 shots and 120 receivers, and one step of a rubber band.

namespace {

using namespace tarnvik;

constexpr double points_a_pixel = 96.0 / 72.0;
constexpr int shots = 72;
constexpr int receivers = 120;

void Draw_Curves(Picture& picture) {
    picture.Clear();
    picture.Scale(0, 100, 96, 0);
    picture.Box(0, 100, 96, 0, colours::White, true);
    for (int i = 0; i < 24; ++i)
        picture.Line(i * 4, 0, i * 4, 100, colours::LightGrey);
    for (int y = 10; y < 100; y += 10)
        picture.Line(0, y, 96, y, colours::LightGrey);
    constexpr Colour palette[] = {colours::Blue, colours::Red, colours::Green, colours::Magenta,
                                  colours::Brown};
    for (int shot = 0; shot < shots; ++shot) {
        const Colour colour = palette[shot % 5];
        const double place = shot * 96.0 / (shots - 1);
        picture.Move_To(0, 0);
        for (int receiver = 0; receiver < receivers; ++receiver) {
            const double x = receiver * 96.0 / (receivers - 1);
            const double away = std::abs(x - place);
            const double y = away < 10 ? 3 * away : 30 + 0.6 * (away - 10);
            picture.Line_To(x, y, colour);
            picture.Circle(x, y, 0.3, colour);
        }
        picture.Print_At(place - 1, 4, std::to_string(shot + 1), colour);
    }
}

void Full_Curves(benchmark::State& state) {
    ImagePicture picture({1920, 1080}, state.range(0) * points_a_pixel);
    for (auto _ : state) {
        Draw_Curves(picture);
        benchmark::DoNotOptimize(picture.Image().constBits());
    }
}
BENCHMARK(Full_Curves)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

void Rubber_Band_Step(benchmark::State& state) {
    ImagePicture picture({1920, 1080}, points_a_pixel);
    Draw_Curves(picture);
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

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
