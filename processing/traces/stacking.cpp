#include "processing/traces/stacking.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <vector>

#include "processing/traces/tool_arguments.h"
#include "processing/traces/trace_reader.h"
#include "processing/traces/trace_times.h"
#include "processing/traces/trace_writer.h"

namespace tarnvik {

namespace {

/// The group of traces being added.
class Group {
  public:
    Group(int samples, double power)
        : Sums(static_cast<std::size_t>(samples)), Counts(Sums.size()), Stacked(Sums.size()), Power(power) {}

    bool Empty() const { return Traces == 0; }
    bool Takes(double key) const { return key == Key; }

    void Begin(double key, const char* header, std::int64_t number) {
        Key = key;
        std::memcpy(Header.data(), header, Header.size());
        FirstNumber = number;
        Traces = 0;
        std::fill(Sums.begin(), Sums.end(), 0.0);
        std::fill(Counts.begin(), Counts.end(), 0);
    }

    void Add(const char* header, std::span<const float> samples, std::int64_t number) {
        if (Interval_Us(header) != Interval_Us(Header.data()))
            Refuse_Interval(number, Interval_Us(header), Interval_Us(Header.data()));
        ++Traces;
        for (std::size_t i = 0; i < samples.size(); ++i) {
            Sums[i] += static_cast<double>(samples[i]);
            Counts[i] += samples[i] != 0.0F ? 1 : 0;
        }
    }

    void Put(TraceWriter& writer) {
        for (std::size_t i = 0; i < Sums.size(); ++i)
            Stacked[i] = Counts[i] == 0 ? 0.0F : static_cast<float>(Sums[i] / Divisor(Counts[i]));
        TraceWord(words::nhs).Set_Or_Fault(Header.data(), static_cast<double>(Traces), FirstNumber);
        writer.Put(Header.data(), Stacked);
    }

  private:
    double Divisor(int count) {
        if (Power == 1) return count;
        // The same few counts come again for each sample.
        while (Divisors.size() <= static_cast<std::size_t>(count))
            Divisors.push_back(std::pow(static_cast<double>(Divisors.size()), Power));
        return Divisors[static_cast<std::size_t>(count)];
    }

    std::array<char, header_length> Header{};
    std::vector<double> Sums;
    std::vector<int> Counts;
    std::vector<float> Stacked;
    std::vector<double> Divisors;
    double Power;
    double Key = 0;
    std::int64_t FirstNumber = 0;
    std::int64_t Traces = 0;
};

}  // namespace

StackChoice Stack_Choice(std::span<const std::string> arguments) {
    constexpr std::array<std::string_view, 2> known = {"key", "normpow"};
    const ToolArguments given(arguments, known);
    StackChoice choice;
    choice.Key = given.Word("key", words::cdp);
    choice.Power = given.Number("normpow").value_or(choice.Power);
    return choice;
}

TraceResult Stack_Traces(ByteSource& source, ByteSink& sink, const StackChoice& choice) {
    return With_Failure_As_Text([&](TraceResult& result) {
        TraceReader reader(source);
        TraceWriter writer(sink);
        Group group(reader.Samples(), choice.Power);
        for (;;) {
            const TraceBlock block = reader.Next_Block();
            if (block.Count() == 0) break;
            for (std::size_t i = 0; i < block.Count(); ++i) {
                const char* header = block.Header(i);
                const double key = choice.Key.Value(header);
                if (group.Empty() || !group.Takes(key)) {
                    if (!group.Empty()) group.Put(writer);
                    group.Begin(key, header, block.Number(i));
                }
                group.Add(header, block.Values(i), block.Number(i));
            }
        }
        group.Put(writer);
        writer.Finish();
        result.Read = reader.Traces_Read();
        result.Written = writer.Traces_Written();
    });
}

}  // namespace tarnvik
