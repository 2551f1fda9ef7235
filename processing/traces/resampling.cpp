#include "processing/traces/resampling.h"

#include <array>
#include <cmath>
#include <vector>

#include "core/text/number.h"
#include "processing/traces/sinc_kernel.h"
#include "processing/traces/tool_arguments.h"
#include "processing/traces/trace_reader.h"
#include "processing/traces/trace_times.h"
#include "processing/traces/trace_writer.h"

namespace tarnvik {

namespace {

/// Whole microseconds of an interval in seconds.
std::int64_t Microseconds(double seconds) {
    const double wanted = seconds * 1e6;
    const double whole = Rounded(wanted);
    // A figure typed in seconds is off by rounding alone.
    if (std::abs(wanted - whole) > 1e-4 || whole < 1 || whole > most_samples) {
        throw Fault("dt=" + CStr(seconds) + ": the interval must be 1 to " + std::to_string(most_samples) +
                    " whole microseconds");
    }
    return static_cast<std::int64_t>(whole);
}

}  // namespace

ResampleChoice Resample_Choice(std::span<const std::string> arguments) {
    constexpr std::array<std::string_view, 3> known = {"nt", "dt", "tmin"};
    const ToolArguments given(arguments, known);
    return {given.Whole("nt", 1, most_samples), given.Number("dt"), given.Number("tmin")};
}

TraceResult Resample_Traces(ByteSource& source, ByteSink& sink, const ResampleChoice& choice) {
    return With_Failure_As_Text([&](TraceResult& result) {
        TraceReader reader(source);
        TraceWriter writer(sink);
        const std::int64_t former = Interval_Us(reader.First_Header());
        const std::int64_t interval = choice.Interval ? Microseconds(*choice.Interval) : former;
        const std::int64_t samples = choice.Samples.value_or(reader.Samples());
        if (former == 0) throw Fault("trace 1: dt, the sample interval, is 0");
        std::optional<SincResampler> resampler;
        double resampled_from = 0;  // start of the traces that it is for, us
        std::vector<float> values(static_cast<std::size_t>(samples));
        for (;;) {
            const TraceBlock block = reader.Next_Block();
            if (block.Count() == 0) break;
            for (std::size_t i = 0; i < block.Count(); ++i) {
                char* header = block.Header(i);
                const std::int64_t number = block.Number(i);
                if (Interval_Us(header) != former)
                    Refuse_Interval(number, Interval_Us(header), static_cast<int>(former));
                const double begins = Start_Us(header);
                // Before anything is computed: a start that does not fit its word is no time either.
                const double start = choice.Start ? *choice.Start * 1e6 : begins;
                if (choice.Start) Set_Start(header, start, number, result.Notes);
                TraceWord(words::ns).Set_Or_Fault(header, static_cast<double>(samples), number);
                TraceWord(words::dt).Set_Or_Fault(header, static_cast<double>(interval), number);
                // Traces differ by their start alone, and that rarely.
                if (!resampler || begins != resampled_from) {
                    resampler.emplace(SincResampler::Sampling{reader.Samples(), former, begins},
                                      SincResampler::Sampling{samples, interval, start});
                    resampled_from = begins;
                }
                resampler->Resample(block.Values(i), values);
                writer.Put(header, values);
            }
        }
        writer.Finish();
        result.Read = reader.Traces_Read();
        result.Written = writer.Traces_Written();
    });
}

}  // namespace tarnvik
