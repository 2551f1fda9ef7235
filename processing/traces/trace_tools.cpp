#include "processing/traces/trace_tools.h"

#include <array>

#include "processing/traces/header_formula.h"
#include "processing/traces/resampling.h"
#include "processing/traces/sorting.h"
#include "processing/traces/stacking.h"
#include "processing/traces/windowing.h"

namespace tarnvik {

namespace {

/// A tool of a routine and of the one that understands its arguments. These are looked at before the input.
template <auto understand, auto run>
TraceResult Run_Tool(std::span<const std::string> arguments, ByteSource& source, ByteSink& sink) {
    return With_Failure_As_Text([&](TraceResult& result) {
        const auto choice = understand(arguments);
        result = run(source, sink, choice);
    });
}

constexpr std::string_view window_usage =
    "suwind <in.su >out.su [name=value ...]   keeps traces by a header word, cuts them in time\n"
    "  key=tracl      header word\n"
    "  min= max=      range of the word, both included\n"
    "  j=1 s=0        of these, traces whose word less s is a multiple of j\n"
    "  reject=a,b     values that are dropped\n"
    "  accept=a,b     values that are kept although range or j leave them out\n"
    "  skip=0         traces at the beginning that are passed over\n"
    "  count=         traces kept at most\n"
    "  tmin= tmax=    part in time, seconds from the shot, ends included; zeros where a trace has no "
    "samples\n"
    "  itmin= itmax=  the same in samples from 0; nt= samples instead of an end\n"
    "  dt=            sample interval in seconds where the header's is not to be taken\n";

constexpr std::string_view words_usage =
    "sushw <in.su >out.su key=word,... [name=value,... ...]   sets header words\n"
    "  key=cdp        header words; the others are lists with a value for each\n"
    "  a=0 b=0 c=0 d=0 j=0\n"
    "                 trace n, from 0, gets a + b * ((n + d) mod j) + c * floor((n + d) / j); j=0 is "
    "endless\n"
    "                 whole-number words get the nearest whole number, halves to even\n";

constexpr std::string_view sort_usage =
    "susort <in.su >out.su [[+|-]word ...]   sorts traces; equal ones keep their order\n"
    "  +word -word    ascending (also without a sign), descending; +cdp +offset when none is told\n";

constexpr std::string_view stack_usage =
    "sustack <in.su >out.su [name=value ...]   adds neighbouring traces that have the same header word\n"
    "  key=cdp        header word\n"
    "  normpow=1      each sample is divided by the number of its non-zero contributions to this power\n";

constexpr std::string_view resample_usage =
    "suresamp <in.su >out.su [name=value ...]   resamples traces; band-limited before a coarser interval\n"
    "  nt=            samples of a trace\n"
    "  dt=            sample interval, seconds\n"
    "  tmin=          time of the first sample, seconds from the shot\n"
    "                 what is not told stays as it is\n";

constexpr std::array<TraceTool, 5> tools = {{
    {"suwind", window_usage, Run_Tool<Window_Choice, Window_Traces>},
    {"sushw", words_usage, Run_Tool<Header_Formulas, Set_Header_Words>},
    {"susort", sort_usage, Run_Tool<Sort_Keys, Sort_Traces>},
    {"sustack", stack_usage, Run_Tool<Stack_Choice, Stack_Traces>},
    {"suresamp", resample_usage, Run_Tool<Resample_Choice, Resample_Traces>},
}};

}  // namespace

std::span<const TraceTool> Trace_Tools() {
    return tools;
}

}  // namespace tarnvik
