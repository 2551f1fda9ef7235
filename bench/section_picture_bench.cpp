#include <benchmark/benchmark.h>

#include <cmath>

#include "largest_line.h"
#include "output/colour_scale.h"
#include "output/section_picture.h"
#include "output/section_places.h"
#include "output/section_window.h"
#include "output/topo_rows.h"
#include "output/velocity_grid.h"
#include "ui/painting/image_picture.h"
#include "ui/painting/picture_file.h"

// The coloured section of the largest line, 72 shots and 120 receivers, at high quality: painted on a screen
// of 1920 x 1080 pixels, moved and enlarged step by step, and written as files. Ground, thicknesses and
// velocities change from shot to shot, so that every column has colours of its own.

namespace {

using namespace tarnvik;

constexpr double pixels_per_point = 96.0 / 72.0;
constexpr double highest = 110;
constexpr double lowest = 60;
constexpr int columns = 240;

Workspace Line_With_Section() {
    Workspace work = bench::Largest_Line();
    Project& line = work.Project;
    for (int receiver = 1; receiver <= line.NbReceivers; ++receiver)
        line.ReceiverData(ReceiverElevation, receiver) =
            static_cast<float>(100 + 5 * std::sin(receiver / 9.0));
    for (int shot = 1; shot <= line.NbShots; ++shot) {
        line.ShotElevation(shot) = 100 + 5 * std::sin(shot / 5.4);
        for (int layer = 1; layer <= Project::MaxRefractors; ++layer)
            line.ShotThickness(shot, layer) = 3 * layer + 2 * std::sin(shot * layer / 4.0);
        for (int layer = 1; layer <= Project::MaxLayers; ++layer) {
            line.VelocityA(shot, layer) = static_cast<std::int16_t>(600 * layer + 7 * shot % 97);
            line.VelocityB(shot, layer) = line.VelocityA(shot, layer);
        }
    }
    const GridLayout layout{columns,         Grid_Rows(highest, lowest), highest, lowest,
                            line.LineLength, SectionLine::Bezier};
    work.Section.GridQuality = 2;
    work.Section.Grid =
        Grid_Of_Places(Places_Of_Shots(line, true), layout, trace_surface_topo(line, columns, highest));
    return work;
}

/// The pictures of the tab on that screen.
struct Screen {
    Screen() {
        const PageLayout page = Section_Layout();
        Main.Set_Margins(page.Margins);
        Below.Follow_Columns_Of(&Main);
        Beside.Follow_Rows_Of(&Main);
        Cut.Follow_Rows_Of(&Main);
    }
    void Paint(const Workspace& work, const ColourScale& scale) {
        Draw_Section(work, scale, {Main, Below, Beside});
        Draw_Section_Cut(work, scale, Main.Current_Frame(), Cut);
        benchmark::DoNotOptimize(Main.Image().constBits());
        benchmark::DoNotOptimize(Cut.Image().constBits());
    }
    ImagePicture Main{{1750, 1020}, pixels_per_point};
    ImagePicture Below{{1750, 45}, pixels_per_point};
    ImagePicture Beside{{69, 1020}, pixels_per_point};
    ImagePicture Cut{{107, 1020}, pixels_per_point};
};

ColourScale Scale_Of(const Workspace& work) {
    return Even_Scale(even_colours, work.Section.MaxVelocity);
}

void Whole(benchmark::State& state) {
    Workspace work = Line_With_Section();
    const ColourScale scale = Scale_Of(work);
    Screen screen;
    for (auto _ : state)
        screen.Paint(work, scale);
}
BENCHMARK(Whole)->Unit(benchmark::kMillisecond);

void Pan_Step(benchmark::State& state) {
    Workspace work = Line_With_Section();
    work.Section.CutAt = 300;
    const ColourScale scale = Scale_Of(work);
    Screen screen;
    Enlarge_Section(work, 300, 85, 1.5, 1.5);
    double step = 3;
    for (auto _ : state) {
        const double before = Section_In_Sight(work).Left;
        Pan_Section(work, step, step / 50);
        if (Section_In_Sight(work).Left == before) step = -step;
        screen.Paint(work, scale);
    }
}
BENCHMARK(Pan_Step)->Unit(benchmark::kMillisecond);

void Zoom_Step(benchmark::State& state) {
    Workspace work = Line_With_Section();
    work.Section.CutAt = 300;
    const ColourScale scale = Scale_Of(work);
    Screen screen;
    int steps = 0;
    for (auto _ : state) {
        const double more = ++steps % 16 < 8 ? 1.25 : 0.8;
        Enlarge_Section(work, 300, 85, more, more);
        screen.Paint(work, scale);
    }
}
BENCHMARK(Zoom_Step)->Unit(benchmark::kMillisecond);

void File(benchmark::State& state, const char* ending) {
    Workspace work = Line_With_Section();
    const ColourScale scale = Scale_Of(work);
    const DrawPage draw = [&](Picture& main, Picture& below, Picture& beside) {
        Draw_Section(work, scale, {main, below, beside});
    };
    for (auto _ : state) {
        const MadePicture made = Make_Picture(ending, PictureFormat(), Section_Layout(), {}, draw);
        state.counters["KB"] = static_cast<double>(made.Bytes.size()) / 1024;
    }
}
BENCHMARK_CAPTURE(File, png, ".png")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(File, jpg, ".jpg")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(File, svg, ".svg")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(File, pdf, ".pdf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(File, wmf, ".wmf")->Unit(benchmark::kMillisecond);

}  // namespace
