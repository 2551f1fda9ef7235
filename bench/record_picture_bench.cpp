#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <functional>

#include "records/picking.h"
#include "records/record_choice.h"
#include "records/record_display.h"
#include "records/record_scroll.h"
#include "records/su_file.h"
#include "records/su_loading.h"
#include "support/su_builder.h"
#include "support/test_ports.h"
#include "ui/painting/image_picture.h"

// Field record of 120 traces of 4000 samples painted on a screen of 1920 x 1080 pixels, the file read with
// each drawing: damped wavelets over weak noise, as a hammer line has them, and noise alone.

namespace {

using namespace tarnvik;

constexpr int traces = 120;
constexpr int samples = 4000;

/// Display whose record and time scale are pictures of the size of a screen.
class ImageDisplay : public test::RecordingDisplay {
  public:
    Picture& Canvas_Of(Canvas canvas) override { return canvas == Canvas::Ecran ? Screen : Strip; }
    void Display_Record() override {
        Calls.emplace_back("Display_Record");
        if (Draw) Draw();
    }
    std::function<void()> Draw;
    ImagePicture Screen{{1920, 1080}, 96.0 / 72.0};
    ImagePicture Strip{{60, 1080}, 96.0 / 72.0};
};

std::string Line(const test::TemporaryFolder& folder, bool noise_alone) {
    test::SuBuilder builder(2 * traces, samples, 250);
    builder.Records(traces);
    std::uint32_t state = 1;
    for (int trace = 1; trace <= 2 * traces; ++trace) {
        const int first_break = 100 + std::abs((trace - 1) % traces - traces / 2) * 20;
        for (int sample = 1; sample <= samples; ++sample) {
            state = state * 1664525u + 1013904223u;
            double value = (static_cast<double>(state >> 8) / (1 << 24) - 0.5) * (noise_alone ? 200 : 2);
            const double after = sample - first_break;
            if (!noise_alone && after > 0) {
                value += 100 * std::sin(after * 0.06) * std::exp(-after / 600) +
                         60 * std::sin(after * 0.023) * std::exp(-after / 1500);
            }
            builder.Sample(trace, sample, static_cast<float>(value));
        }
    }
    const std::string path = builder.Write(folder / "line.su");
    SuWriter file(path, nullptr);
    for (int trace = 1; trace <= 2 * traces; ++trace)
        file.Set_Word(trace, words::First_Breaks, 400);
    return path;
}

void Painted_Record(benchmark::State& state) {
    test::TemporaryFolder folder;
    const std::string path = Line(folder, state.range(1) != 0);
    Workspace workspace;
    test::ScriptedPrompts prompts;
    ImageDisplay display;
    test::RecordingLauncher launcher;
    Ports ports{prompts, display, launcher};
    Scan_Channels(workspace, path);
    workspace.Record.Style = static_cast<int>(state.range(0));
    workspace.Record.EqualiseTraces = true;
    int record = 1;
    for (auto _ : state) {
        record = 3 - record;  // next and previous record in turn
        Select_Record(workspace, record);
        Display_Record(workspace, ports, path);
        benchmark::DoNotOptimize(display.Screen.Image().constBits());
    }
}
BENCHMARK(Painted_Record)
    ->ArgNames({"style", "noise"})
    ->ArgsProduct({{VariableArea, WiggleOnly, TwoColours}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

/// One step of the wheel through an enlarged record of noise, with and without levelled amplitudes.
void Panned_Record(benchmark::State& state) {
    test::TemporaryFolder folder;
    Workspace workspace;
    workspace.Project.SuFile = Line(folder, true);
    test::ScriptedPrompts prompts;
    ImageDisplay display;
    test::RecordingLauncher launcher;
    Ports ports{prompts, display, launcher};
    display.Draw = [&] { Display_Record(workspace, ports, workspace.Project.SuFile); };
    RecordView& view = workspace.Record;
    view.EqualiseTraces = view.EqualiseInSight = view.ClipAmplitude = true;
    view.AmplitudeGain = 2;
    view.AgcWindow = static_cast<double>(state.range(0));
    Open_Records(workspace, ports);
    RecordScroll scroll(workspace, ports);
    scroll.Enlarge_Time(2000, static_cast<double>(state.range(1)));
    int steps = 0;
    for (auto _ : state) {
        scroll.Pan(steps++ % 20 < 10 ? -1 : 1);
        benchmark::DoNotOptimize(display.Screen.Image().constBits());
    }
}
BENCHMARK(Panned_Record)
    ->ArgNames({"agc", "enlarged"})
    ->ArgsProduct({{0, 100}, {1, 5}})
    ->Unit(benchmark::kMillisecond);

/// From the click to the redrawn record: the pick into file and project, its mark on the picture. With the
/// travel times of the other shots over the record, all marks and curves are drawn anew.
void Picked_On_Painted_Record(benchmark::State& state) {
    test::TemporaryFolder folder;
    Workspace workspace;
    workspace.Project.SuFile = Line(folder, true);
    workspace.Project.NbShots = 2;
    workspace.Project.NbReceivers = traces;
    Redimension_Project(workspace.Project);
    workspace.Grids.Buildgrid.Resize(traces + 3, 2 + 4);
    test::ScriptedPrompts prompts;
    ImageDisplay display;
    test::RecordingLauncher launcher;
    Ports ports{prompts, display, launcher};
    display.Draw = [&] { Display_Record(workspace, ports, workspace.Project.SuFile); };
    Open_Records(workspace, ports);
    workspace.Edits.Start(workspace.Project, true);
    AutoPik automatic(workspace, ports);
    RecordZoom zoom(workspace, ports);
    RecordPointer pointer(workspace, ports, automatic, zoom);
    double sample = 100;
    for (auto _ : state) {
        sample = sample > 3000 ? 100 : sample + 10;
        pointer.Press({60 * trace_width + 1000, sample, 1});
        pointer.Release({60 * trace_width + 1000, sample, 1});
        benchmark::DoNotOptimize(display.Screen.Image().constBits());
    }
    state.counters["whole drawings"] = display.Count("Display_Record");
}
BENCHMARK(Picked_On_Painted_Record)->Unit(benchmark::kMillisecond);

}  // namespace
