// What filters cost: a stream from file to file, the record that the window tries a choice on, and the
// spectra beside it.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cmath>
#include <string>
#include <vector>

#include "processing/filters/filter_file.h"
#include "processing/filters/spectrum.h"
#include "processing/traces/trace_words.h"
#include "processing/traces/trace_writer.h"
#include "support/test_ports.h"

namespace {

using namespace tarnvik;

constexpr int channels = 120;
constexpr int samples = 4000;
constexpr int interval = 250;
constexpr std::int64_t trace_bytes = header_length + 4 * samples;

/// A break under hum, and noise of any kind.
std::vector<float> Trace() {
    std::vector<float> trace(samples);
    for (int i = 0; i < samples; ++i) {
        const double since = std::max(0, i - 900) * 0.25;
        trace[static_cast<std::size_t>(i)] = static_cast<float>(
            1000 * std::sin(0.4 * since) * std::exp(-since / 40) + 20 * std::sin(i * 0.0785) + i % 13);
    }
    return trace;
}

void Write_Line(ByteSink& sink, std::int64_t traces) {
    TraceWriter writer(sink);
    const std::vector<float> trace = Trace();
    std::string header(header_length, '\0');
    TraceWord(words::ns).Set(header.data(), samples);
    TraceWord(words::dt).Set(header.data(), interval);
    TraceWord(words::trid).Set(header.data(), live_trace);
    for (std::int64_t n = 0; n < traces; ++n) {
        TraceWord(words::tracf).Set(header.data(), static_cast<double>(n % channels + 1));
        writer.Put(header.data(), trace);
    }
    writer.Finish();
}

FilterRequest Request_Of(std::int64_t which) {
    FilterRequest request;
    request.Choice.Band = Band_Presets(interval).front().Band;
    if (which >= 1) request.Choice.Hum = HumChoice{50, 3};
    if (which >= 2) request.Choice.Agc = 100;
    return request;
}

void Filter_A_File(benchmark::State& state) {
    static const test::TemporaryFolder folder;
    const std::string path = folder / "line.su";
    const std::int64_t traces = (state.range(0) << 20) / trace_bytes;
    {
        const int handle = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        FileSink sink(handle);
        Write_Line(sink, traces);
        close(handle);
    }
    for (auto _ : state) {
        const TraceResult result = Filter_File(Request_Of(state.range(1)), path, folder / "out.su");
        if (!result.Went_Well()) state.SkipWithError(result.Failure.c_str());
    }
    struct rusage used {};
    getrusage(RUSAGE_SELF, &used);
    state.SetBytesProcessed(state.iterations() * traces * trace_bytes);
    state.counters["peak_MB"] = static_cast<double>(used.ru_maxrss) / 1024;
}
BENCHMARK(Filter_A_File)
    ->ArgNames({"MB", "filters"})
    ->ArgsProduct({{64, 2048}, {0, 2}})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

/// Band pass; with hum; with hum and AGC.
void Try_On_A_Record(benchmark::State& state) {
    MemorySink line;
    Write_Line(line, channels);
    for (auto _ : state) {
        MemorySource source(line.Bytes);
        MemorySink sink;
        benchmark::DoNotOptimize(Filter_Traces(Request_Of(state.range(0)), source, sink).Written);
    }
}
BENCHMARK(Try_On_A_Record)
    ->ArgName("filters")
    ->DenseRange(0, 2)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void Mean_Spectrum(benchmark::State& state) {
    const std::vector<float> trace = Trace();
    for (auto _ : state) {
        SpectrumMaker maker(samples, interval, Taper::Ends, 2);
        for (std::int64_t i = 0; i < state.range(0); ++i)
            maker.Of(trace);
        benchmark::DoNotOptimize(maker.Mean_Of_All().Amplitude.data());
    }
}
BENCHMARK(Mean_Spectrum)->ArgName("traces")->Arg(24)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
