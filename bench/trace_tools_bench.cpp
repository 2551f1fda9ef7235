// Throughput of the trace tools from file to file, beside a plain copy of the same file by the system, and
// what a stack of records and a resampling cost.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "processing/traces/trace_tools.h"
#include "processing/traces/trace_words.h"
#include "processing/traces/trace_writer.h"
#include "support/test_ports.h"

namespace {

using namespace tarnvik;

constexpr int channels = 120;
constexpr int samples = 4000;
constexpr std::int64_t trace_bytes = header_length + 4 * samples;

class Handle {
  public:
    Handle(const std::string& path, int flags) : Number(open(path.c_str(), flags, 0600)) {}
    ~Handle() { close(Number); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    const int Number;
};

/// Records of 120 channels in a folder of their own, made once for each size.
const std::string& Line_Of(std::int64_t bytes) {
    static const test::TemporaryFolder folder;
    static std::string path;
    static std::int64_t made = 0;
    if (made == bytes) return path;
    made = bytes;
    path = folder / "line.su";
    const Handle file(path, O_WRONLY | O_CREAT | O_TRUNC);
    FileSink sink(file.Number);
    TraceWriter writer(sink);
    std::vector<float> trace(samples);
    for (int i = 0; i < samples; ++i)
        trace[static_cast<std::size_t>(i)] = static_cast<float>(i % 97 - 48);
    std::string header(header_length, '\0');
    for (std::int64_t n = 0; n < bytes / trace_bytes; ++n) {
        TraceWord(words::fldr).Set(header.data(), static_cast<double>(n / channels + 1));
        TraceWord(words::tracf).Set(header.data(), static_cast<double>(n % channels + 1));
        TraceWord(words::trid).Set(header.data(), live_trace);
        TraceWord(words::ns).Set(header.data(), samples);
        TraceWord(words::dt).Set(header.data(), 250);
        writer.Put(header.data(), trace);
    }
    writer.Finish();
    fsync(file.Number);
    return path;
}

void Count(benchmark::State& state, std::int64_t bytes) {
    struct rusage used {};
    getrusage(RUSAGE_SELF, &used);
    state.SetBytesProcessed(state.iterations() * bytes);
    state.counters["peak_MB"] = static_cast<double>(used.ru_maxrss) / 1024;
}

TraceResult Run_Tool(std::string_view name, const std::vector<std::string>& arguments, ByteSource& source,
                     ByteSink& sink) {
    for (const TraceTool& tool : Trace_Tools()) {
        if (tool.Name == name) return tool.Run(arguments, source, sink);
    }
    return {};
}

void From_File_To_File(benchmark::State& state, std::string_view tool,
                       const std::vector<std::string>& arguments) {
    const std::int64_t bytes = state.range(0) << 20;
    const std::string& line = Line_Of(bytes);
    const std::string out = line + ".out";
    for (auto _ : state) {
        state.PauseTiming();
        std::filesystem::remove(out);
        state.ResumeTiming();
        FileSource source(line);
        const Handle file(out, O_WRONLY | O_CREAT);
        FileSink sink(file.Number);
        const TraceResult result = Run_Tool(tool, arguments, source, sink);
        if (!result.Went_Well()) state.SkipWithError(result.Failure.c_str());
    }
    std::filesystem::remove(out);
    Count(state, bytes);
}

void Copy_By_The_System(benchmark::State& state) {
    const std::int64_t bytes = state.range(0) << 20;
    const std::string& line = Line_Of(bytes);
    const std::string out = line + ".out";
    for (auto _ : state) {
        state.PauseTiming();
        std::filesystem::remove(out);
        state.ResumeTiming();
        std::filesystem::copy_file(line, out);
    }
    std::filesystem::remove(out);
    Count(state, bytes);
}

void Window_By_Word(benchmark::State& state) {
    From_File_To_File(state, "suwind", {"key=trid", "min=1", "max=1"});
}
void Window_In_Time(benchmark::State& state) {
    From_File_To_File(state, "suwind", {"tmin=0", "tmax=0.5"});
}
void Header_Words(benchmark::State& state) {
    From_File_To_File(state, "sushw", {"key=fldr,tracf", "a=1,1", "b=0,1", "c=1,0", "j=120,120"});
}
void Sort_Backwards(benchmark::State& state) {
    From_File_To_File(state, "susort", {"-fldr", "-tracf"});
}
#define AT_TWO_SIZES(routine) \
    BENCHMARK(routine)->Arg(64)->Arg(2048)->Unit(benchmark::kMillisecond)->UseRealTime()
AT_TWO_SIZES(Copy_By_The_System);
AT_TWO_SIZES(Window_By_Word);
AT_TWO_SIZES(Header_Words);
AT_TWO_SIZES(Window_In_Time);
AT_TWO_SIZES(Sort_Backwards);

/// 5 records of 120 traces: sorted by channel and added, as the chain does it.
void Stack_Of_Five_Records(benchmark::State& state) {
    const std::string& line = Line_Of(5 * channels * trace_bytes);
    for (auto _ : state) {
        FileSource source(line);
        MemorySink sorted;
        MemorySink stacked;
        Run_Tool("susort", {"tracf"}, source, sorted);
        MemorySource again(sorted.Bytes);
        const TraceResult result = Run_Tool("sustack", {"key=tracf"}, again, stacked);
        if (result.Written != channels) state.SkipWithError("stacked otherwise");
    }
}
BENCHMARK(Stack_Of_Five_Records)->Unit(benchmark::kMillisecond);

void Resample_A_Record(benchmark::State& state) {
    const std::string& line = Line_Of(channels * trace_bytes);
    const std::string interval = "dt=" + std::to_string(static_cast<double>(state.range(0)) * 1e-6);
    const std::string count = "nt=" + std::to_string(samples * 250 / state.range(0));
    for (auto _ : state) {
        FileSource source(line);
        MemorySink sink;
        const TraceResult result = Run_Tool("suresamp", {interval, count}, source, sink);
        if (!result.Went_Well()) state.SkipWithError(result.Failure.c_str());
    }
}
BENCHMARK(Resample_A_Record)->ArgName("to_us")->Arg(125)->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
