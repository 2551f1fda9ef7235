#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

#include "core/positioned_file.h"
#include "records/record_choice.h"
#include "records/record_display.h"
#include "records/su_loading.h"
#include "support/counting_picture.h"
#include "support/su_builder.h"
#include "support/test_ports.h"

// Field record of 120 traces of 4000 samples on a screen of 1920 x 1080 pixels, the file read with each
// drawing; and the scan of a file of 500,000 traces (2 GB with holes) beside the bare reading of the same
// header bytes.

namespace {

using namespace tarnvik;

/// Display whose pictures only count: the time measured is that of reading and of arithmetic.
class CountingDisplay : public test::RecordingDisplay {
  public:
    Picture& Canvas_Of(Canvas) override { return Counting; }
    void Display_Record() override {}
    test::CountingPicture Counting{1920, 1080};
};

void Displayed_Record(benchmark::State& state) {
    test::TemporaryFolder folder;
    test::SuBuilder builder(240, 4000, 250);
    builder.Records(120);
    for (int trace = 1; trace <= 240; ++trace) {
        for (int sample = 1; sample <= 4000; ++sample)
            builder.Sample(trace, sample, static_cast<float>((sample * 37 + trace * 11) % 400 - 200));
    }
    const std::string path = builder.Write(folder / "line.su");
    Workspace workspace;
    test::ScriptedPrompts prompts;
    CountingDisplay display;
    test::RecordingLauncher launcher;
    Ports ports{prompts, display, launcher};
    Scan_Channels(workspace, path);
    workspace.Record.Style = static_cast<int>(state.range(0));
    int record = 1;
    for (auto _ : state) {
        record = 3 - record;  // next and previous record in turn
        Select_Record(workspace, record);
        Display_Record(workspace, ports, path);
        benchmark::DoNotOptimize(display.Counting.Points);
    }
    state.counters["points"] = static_cast<double>(display.Counting.Points) / state.iterations();
}
BENCHMARK(Displayed_Record)
    ->Arg(VariableArea)
    ->Arg(WiggleOnly)
    ->Arg(TwoColours)
    ->Unit(benchmark::kMillisecond);

/// A file of 500,000 traces of 1000 samples whose channels run to the end, so that every header is read.
class LargeFile {
  public:
    static constexpr std::int32_t Traces = 500'000;
    static constexpr std::int64_t Length = Trace_Length(1000);
    LargeFile() : Path(Folder / "large.su") {
        test::SuBuilder(1, 1000).Write(Path);
        std::filesystem::resize_file(Path, static_cast<std::uintmax_t>(Traces * Length));
        PositionedFile file(Path, PositionedFile::Access::Write);
        for (std::int32_t trace = 0; trace < Traces; ++trace) {
            const auto channel = static_cast<std::int16_t>(trace < 5 ? trace + 1 : trace / 20 + 5);
            file.Write(trace * Length + 12, &channel, sizeof channel);
        }
    }
    test::TemporaryFolder Folder;
    std::string Path;
};

const LargeFile& Large() {
    static const LargeFile file;
    return file;
}

void Header_Bytes_Alone(benchmark::State& state) {
    const LargeFile& large = Large();
    for (auto _ : state) {
        PositionedFile file(large.Path, PositionedFile::Access::Read);
        std::int64_t sum = 0;
        for (std::int32_t trace = 0; trace < LargeFile::Traces; ++trace) {
            std::int16_t channel = 0;
            file.Read(trace * LargeFile::Length + 12, &channel, sizeof channel);
            sum += channel;
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(Header_Bytes_Alone)->Unit(benchmark::kMillisecond);

void Scanned_Channels(benchmark::State& state) {
    const LargeFile& large = Large();
    Workspace workspace;
    for (auto _ : state)
        Scan_Channels(workspace, large.Path);
    state.counters["channels"] = workspace.Record.ChannelsPerRecord;
}
BENCHMARK(Scanned_Channels)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
