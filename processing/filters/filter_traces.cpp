#include "processing/filters/filter_traces.h"

#include <algorithm>
#include <array>
#include <future>
#include <string>

#include "processing/filters/trace_filter.h"
#include "processing/traces/trace_reader.h"
#include "processing/traces/trace_times.h"
#include "processing/traces/trace_writer.h"

namespace tarnvik {

namespace {

/// What was bridged over, for the note at the end.
struct Gaps {
    std::int64_t Samples = 0;
    std::int64_t Traces = 0;
    std::int64_t FirstTrace = 0;

    void Add(std::int64_t trace, int samples) {
        if (samples == 0) return;
        if (Traces == 0) FirstTrace = trace;
        Samples += samples;
        ++Traces;
    }
    void Add(const Gaps& behind) {
        if (Traces == 0) FirstTrace = behind.FirstTrace;
        Samples += behind.Samples;
        Traces += behind.Traces;
    }
    std::string Note() const {
        std::string note = "trace " + std::to_string(FirstTrace);
        if (Traces > 1) note += " and " + std::to_string(Traces - 1) + " more";
        return note + ": " + std::to_string(Samples) + (Samples == 1 ? " sample is" : " samples are") +
               " no number; the straight line between the neighbours stands there";
    }
};

/// Filters traces `first` to `end` - 1 of a block.
Gaps Filter_Some(const TraceBlock& block, std::size_t first, std::size_t end, const FilterRequest& request,
                 TraceFilter& filter) {
    Gaps gaps;
    for (std::size_t i = first; i < end; ++i) {
        const std::int64_t trace = block.Number(i);
        if (!request.Traces.Has(trace)) continue;
        gaps.Add(trace,
                 filter.Apply(block.Values(i), Start_Us(block.Header(i)) / 1000, request.Reverses(trace)));
    }
    return gaps;
}

void Check_Intervals(const TraceBlock& block, int interval) {
    for (std::size_t i = 0; i < block.Count(); ++i) {
        const int its = Interval_Us(block.Header(i));
        if (its != interval) Refuse_Interval(block.Number(i), its, interval);
    }
}

void Check_Stretch(const TraceStretch& stretch, std::int64_t traces) {
    const bool open = stretch.Last == TraceStretch().Last;
    if (stretch.First < 1 || stretch.First > traces || stretch.Last < stretch.First ||
        (!open && stretch.Last > traces))
        throw Fault("traces " + std::to_string(stretch.First) + " to " +
                    (open ? std::string("the last") : std::to_string(stretch.Last)) +
                    ": this file holds traces 1 to " + std::to_string(traces));
}

void Check_Stretches(const FilterRequest& request, std::int64_t traces) {
    Check_Stretch(request.Traces, traces);
    if (request.Reversed) Check_Stretch(*request.Reversed, traces);
}

/// Both halves of a block at once, each with filters of its own.
Gaps Filter_Block(const TraceBlock& block, const FilterRequest& request, TraceFilter& one,
                  TraceFilter& other) {
    const std::size_t half = block.Count() / 2;
    if (half == 0) return Filter_Some(block, 0, block.Count(), request, one);
    std::future<Gaps> second = std::async(
        std::launch::async, [&] { return Filter_Some(block, half, block.Count(), request, other); });
    Gaps gaps = Filter_Some(block, 0, half, request, one);
    gaps.Add(second.get());
    return gaps;
}

}  // namespace

TraceResult Filter_Traces(const FilterRequest& request, ByteSource& source, ByteSink& sink,
                          const FilterProgress& progress) {
    return With_Failure_As_Text([&](TraceResult& result) {
        TraceReader reader(source);
        const int interval = Interval_Us(reader.First_Header());
        const std::string refusal = Refusal(request.Choice, reader.Samples(), interval);
        if (!refusal.empty()) throw Fault(refusal);
        const auto length = source.Length();
        const std::int64_t all = length ? *length / static_cast<std::int64_t>(reader.Trace_Bytes()) : 0;
        if (length) Check_Stretches(request, all);

        TraceFilter one(request.Choice, reader.Samples(), interval);
        TraceFilter other(request.Choice, reader.Samples(), interval);
        TraceWriter writer(sink);
        Gaps gaps;
        for (;;) {
            const TraceBlock block = reader.Next_Block();
            if (block.Count() == 0) break;
            if (request.Choice.Needs_Interval()) Check_Intervals(block, interval);
            gaps.Add(Filter_Block(block, request, one, other));
            writer.Put(block, 0, block.Count());
            if (progress && !progress(reader.Traces_Read(), all)) throw Fault("stopped");
        }
        writer.Finish();
        Check_Stretches(request, reader.Traces_Read());
        if (gaps.Traces > 0) result.Notes.push_back(gaps.Note());
        result.Read = reader.Traces_Read();
        result.Written = writer.Traces_Written();
    });
}

}  // namespace tarnvik
