// Conversion of field files to one SU file: 100 SEG-2 files of 24 channels and 4000 samples.

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <string>
#include <vector>

#include "core/files.h"
#include "processing/instruments/conversion.h"
#include "support/field_file_builder.h"
#include "support/test_ports.h"

namespace {

using namespace tarnvik;

constexpr int files = 100;
constexpr int channels = 24;
constexpr int samples = 4000;

/// Files of one of the formats of SEG-2, by its code.
std::vector<std::string> Field_Files(const test::TemporaryFolder& folder, int code) {
    std::vector<std::pair<double, int>> trace(samples);
    for (int i = 0; i < samples; ++i)
        trace[static_cast<std::size_t>(i)] = {i % 97 - 48, 0};
    std::vector<std::string> paths;
    for (int file = 1; file <= files; ++file) {
        test::Seg2Builder builder;
        builder.Strings = {"ACQUISITION_DATE 21/Jun/2021", "ACQUISITION_TIME 10:11:12"};
        for (int channel = 1; channel <= channels; ++channel) {
            builder.Add(code, trace);
            builder.Traces.back().Strings = {"SAMPLE_INTERVAL 0.00025",
                                             "CHANNEL_NUMBER " + std::to_string(channel),
                                             "SHOT_SEQUENCE_NUMBER " + std::to_string(file),
                                             "RECEIVER_LOCATION " + std::to_string(5 * channel),
                                             "SOURCE_LOCATION " + std::to_string(file) + ".5",
                                             "DELAY -0.010",
                                             "STACK 5",
                                             "DESCALING_FACTOR 0.00015"};
        }
        paths.push_back(folder / std::to_string(file) + ".dat");
        Replace_File(paths.back(), builder.Bytes());
    }
    return paths;
}

void Convert_100_Files(benchmark::State& state) {
    const test::TemporaryFolder folder;
    ConversionRequest request;
    request.Files = Field_Files(folder, static_cast<int>(state.range(0)));
    request.Out = folder / "out.su";
    for (auto _ : state) {
        const ConversionReport report = Convert_Field_Files(request);
        if (report.Traces != files * channels) state.SkipWithError(report.Failure.c_str());
    }
    struct rusage used {};
    getrusage(RUSAGE_SELF, &used);
    state.counters["peak_MB"] = static_cast<double>(used.ru_maxrss) / 1024;
}
BENCHMARK(Convert_100_Files)
    ->ArgName("format")
    ->DenseRange(1, 5)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
