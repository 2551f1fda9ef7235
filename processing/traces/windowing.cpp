#include "processing/traces/windowing.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "processing/traces/tool_arguments.h"
#include "processing/traces/trace_reader.h"
#include "processing/traces/trace_times.h"
#include "processing/traces/trace_writer.h"

namespace tarnvik {

namespace {

constexpr std::int64_t no_limit = std::numeric_limits<std::int64_t>::max();

bool Holds(const std::vector<double>& list, double value) {
    return std::find(list.begin(), list.end(), value) != list.end();
}

bool Kept(const WindowChoice& choice, double key) {
    if (Holds(choice.Reject, key)) return false;
    if (Holds(choice.Accept, key)) return true;
    if (!(key >= choice.Lowest && key <= choice.Highest)) return false;
    return choice.Every == 1 || std::fmod(std::floor(key) - static_cast<double>(choice.Phase),
                                          static_cast<double>(choice.Every)) == 0;
}

/// The part that is cut from each trace: `Samples` samples from `Start`, whose time is in microseconds from
/// the shot or, without times, a number of samples from the start of the trace.
class TimeWindow {
  public:
    TimeWindow(const WindowChoice& choice, const char* first_header, int samples)
        : Interval(choice.Interval ? *choice.Interval * 1e6 : Interval_Us(first_header)),
          ByTime(choice.From || choice.To) {
        const double begins = Start_Us(first_header);
        if (ByTime && !(Interval > 0)) throw Fault("trace 1: a time window needs dt, which is 0; tell dt=");
        const auto place = [&](double seconds) { return std::round((seconds * 1e6 - begins) / Interval); };
        const double first = choice.From          ? place(*choice.From)
                             : choice.FirstSample ? static_cast<double>(*choice.FirstSample)
                                                  : 0.0;
        double last = choice.To           ? place(*choice.To)
                      : choice.LastSample ? static_cast<double>(*choice.LastSample)
                                          : samples - 1.0;
        if (choice.SampleCount) last = first + static_cast<double>(*choice.SampleCount) - 1;
        if (!(last >= first)) throw Fault("the time window ends before it begins");
        if (!(last - first + 1 <= most_samples)) {
            throw Fault("the time window has more than " + std::to_string(most_samples) +
                        " samples, which does not fit the header word ns");
        }
        Count = static_cast<std::int64_t>(last - first) + 1;
        Start = choice.From ? *choice.From * 1e6 : begins + first * Interval;
        First = first;
    }

    void Put(const TraceBlock& block, std::size_t index, TraceWriter& writer, TraceResult& result) {
        char* header = block.Header(index);
        const std::int64_t number = block.Number(index);
        const double begins = Start_Us(header);
        const int its_interval = Interval_Us(header);
        if (its_interval != HeaderInterval && HeaderInterval >= 0)
            Refuse_Interval(number, its_interval, HeaderInterval);
        HeaderInterval = its_interval;
        const double first = ByTime ? std::round((Start - begins) / Interval) : First;
        const std::span<const float> samples = block.Values(index);
        const auto total = static_cast<double>(samples.size());
        const auto from = static_cast<std::int64_t>(std::clamp(first, 0.0, total));
        const auto to = static_cast<std::int64_t>(std::clamp(first + static_cast<double>(Count), 0.0, total));
        const auto before = static_cast<std::int64_t>(std::clamp(-first, 0.0, static_cast<double>(Count)));
        if (Interval > 0) Set_Start(header, begins + first * Interval, number, result.Notes);
        TraceWord(words::ns).Set_Or_Fault(header, static_cast<double>(Count), number);
        writer.Put(header, static_cast<std::size_t>(before),
                   samples.subspan(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from)),
                   static_cast<std::size_t>(Count - before - (to - from)));
    }

  private:
    double Interval;  ///< microseconds
    bool ByTime;
    std::int64_t Count = 0;
    double Start = 0;
    double First = 0;
    int HeaderInterval = -1;  ///< `dt` of the traces before, -1 before the first
};

}  // namespace

WindowChoice Window_Choice(std::span<const std::string> arguments) {
    constexpr std::array<std::string_view, 15> known = {"key",   "min",   "max",  "j",      "s",
                                                        "skip",  "count", "tmin", "tmax",   "itmin",
                                                        "itmax", "nt",    "dt",   "accept", "reject"};
    const ToolArguments given(arguments, known);
    WindowChoice choice;
    choice.Key = given.Word("key", words::tracl);
    choice.Lowest = given.Number("min").value_or(choice.Lowest);
    choice.Highest = given.Number("max").value_or(choice.Highest);
    choice.Every = given.Whole("j", 1, no_limit).value_or(choice.Every);
    choice.Phase = given.Whole("s", -no_limit, no_limit).value_or(choice.Phase);
    choice.Reject = given.Numbers("reject");
    choice.Accept = given.Numbers("accept");
    choice.Skip = given.Whole("skip", 0, no_limit).value_or(choice.Skip);
    choice.Count = given.Whole("count", 0, no_limit).value_or(choice.Count);
    choice.From = given.Number("tmin");
    choice.To = given.Number("tmax");
    choice.FirstSample = given.Whole("itmin", -no_limit, no_limit);
    choice.LastSample = given.Whole("itmax", -no_limit, no_limit);
    choice.SampleCount = given.Whole("nt", 1, most_samples);
    choice.Interval = given.Number("dt");
    if (choice.Interval && !(*choice.Interval > 0)) throw Fault("dt must be above 0");
    if (choice.From && choice.FirstSample) throw Fault("tmin and itmin tell the same in two ways");
    if ((choice.To ? 1 : 0) + (choice.LastSample ? 1 : 0) + (choice.SampleCount ? 1 : 0) > 1)
        throw Fault("tmax, itmax and nt tell the same in different ways");
    return choice;
}

TraceResult Window_Traces(ByteSource& source, ByteSink& sink, const WindowChoice& choice) {
    return With_Failure_As_Text([&](TraceResult& result) {
        TraceReader reader(source);
        TraceWriter writer(sink);
        std::optional<TimeWindow> window;
        if (choice.Cuts_Time()) window.emplace(choice, reader.First_Header(), reader.Samples());
        while (writer.Traces_Written() < choice.Count) {
            const TraceBlock block = reader.Next_Block();
            if (block.Count() == 0) break;
            // Traces that stay as they are go out together with their neighbours.
            std::size_t run_start = 0;
            std::size_t run = 0;
            std::int64_t still = choice.Count - writer.Traces_Written();
            for (std::size_t i = 0; i < block.Count() && still > 0; ++i) {
                if (block.Number(i) <= choice.Skip || !Kept(choice, choice.Key.Value(block.Header(i))))
                    continue;
                --still;
                if (window) {
                    window->Put(block, i, writer, result);
                } else if (run > 0 && run_start + run == i) {
                    ++run;
                } else {
                    writer.Put(block, run_start, run);
                    run_start = i;
                    run = 1;
                }
            }
            writer.Put(block, run_start, run);
        }
        writer.Finish();
        result.Read = reader.Traces_Read();
        result.Written = writer.Traces_Written();
    });
}

}  // namespace tarnvik
