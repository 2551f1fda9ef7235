// A stack of records by the real tools, from the file to the file: must stay below 200 ms for 5 records of
// 120 traces of 4,000 samples.

#include <benchmark/benchmark.h>

#include <filesystem>

#include "batch/console_launcher.h"
#include "processing/su_chain.h"
#include "support/su_builder.h"
#include "support/test_ports.h"

namespace tarnvik {
namespace {

void Stack(benchmark::State& state) {
    constexpr int records = 5;
    constexpr int channels = 120;
    constexpr int samples = 4000;
    const test::TemporaryFolder folder;
    test::SuBuilder builder(records * channels, samples);
    builder.Records(channels);
    for (int trace = 1; trace <= records * channels; ++trace) {
        for (int sample = 1; sample <= samples; ++sample)
            builder.Sample(trace, sample, static_cast<float>((trace * 31 + sample * 7) % 1000));
    }
    const std::string source = builder.Write(folder / "line.su");
    ConsoleLauncher launcher(TARNVIK_TOOLS);
    Edits edits;
    for (auto _ : state) {
        ChainFolder between(edits, source);
        const ChainEnd end = Stack_Records({launcher, edits}, source, folder / "stacked.su",
                                           {1, records, records, channels}, between);
        if (!end.Well()) state.SkipWithError(end.Failure.c_str());
    }
}
BENCHMARK(Stack)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace tarnvik

BENCHMARK_MAIN();
