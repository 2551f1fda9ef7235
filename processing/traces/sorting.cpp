#include "processing/traces/sorting.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>

#include "processing/traces/tool_arguments.h"
#include "processing/traces/trace_reader.h"
#include "processing/traces/trace_writer.h"

namespace tarnvik {

namespace {

constexpr std::size_t read_at_once = 256 * 1024;

/// Value to be sorted ascending. What is no number stands behind all numbers in either direction.
double Sorting_Value(const SortKey& key, const char* header) {
    const double value = key.Word.Value(header);
    if (std::isnan(value)) return std::numeric_limits<double>::infinity();
    return key.Descending ? -value : value;
}

}  // namespace

std::vector<SortKey> Sort_Keys(std::span<const std::string> arguments) {
    std::vector<SortKey> keys;
    for (const std::string& argument : arguments) {
        const bool sign = argument.starts_with('+') || argument.starts_with('-');
        keys.push_back(
            {Known_Word(std::string_view(argument).substr(sign ? 1 : 0)), argument.starts_with('-')});
    }
    if (keys.empty()) keys = {{TraceWord(words::cdp)}, {TraceWord(words::offset)}};
    return keys;
}

TraceResult Sort_Traces(ByteSource& source, ByteSink& sink, std::span<const SortKey> keys) {
    return With_Failure_As_Text([&](TraceResult& result) {
        TraceReader reader(source);
        std::optional<TemporaryFile> copy;
        std::optional<FileSink> copy_sink;
        std::optional<TraceWriter> copy_writer;
        if (!source.Length()) {
            copy.emplace();
            copy_sink.emplace(copy->Handle());
            copy_writer.emplace(*copy_sink);
        }
        std::vector<double> values;
        for (;;) {
            const TraceBlock block = reader.Next_Block();
            if (block.Count() == 0) break;
            for (std::size_t i = 0; i < block.Count(); ++i) {
                for (const SortKey& key : keys)
                    values.push_back(Sorting_Value(key, block.Header(i)));
            }
            if (copy_writer) copy_writer->Put(block, 0, block.Count());
        }
        std::optional<FileSource> copy_source;
        if (copy_writer) {
            copy_writer->Finish();
            if (lseek(copy->Handle(), 0, SEEK_SET) != 0) throw Fault("the temporary file cannot be read");
            copy_source.emplace(copy->Handle());
        }
        ByteSource& traces = copy_source ? *copy_source : source;

        std::vector<std::int64_t> order(static_cast<std::size_t>(reader.Traces_Read()));
        std::iota(order.begin(), order.end(), std::int64_t{0});
        const auto row = [&](std::int64_t trace) {
            return std::span(values).subspan(static_cast<std::size_t>(trace) * keys.size(), keys.size());
        };
        std::stable_sort(order.begin(), order.end(), [&](std::int64_t left, std::int64_t right) {
            const auto one = row(left);
            const auto other = row(right);
            return std::lexicographical_compare(one.begin(), one.end(), other.begin(), other.end());
        });

        TraceWriter writer(sink);
        const std::size_t record = reader.Trace_Bytes();
        std::vector<char> bytes(std::max(read_at_once / record, std::size_t{1}) * record);
        for (std::size_t i = 0; i < order.size();) {
            // Traces that stay neighbours are read at once.
            std::size_t run = 1;
            while (i + run < order.size() && (run + 1) * record <= bytes.size() &&
                   order[i + run] == order[i] + static_cast<std::int64_t>(run))
                ++run;
            traces.Read_At(order[i] * static_cast<std::int64_t>(record), bytes.data(), run * record);
            writer.Put_Bytes(bytes.data(), run * record, static_cast<std::int64_t>(run));
            i += run;
        }
        writer.Finish();
        result.Read = reader.Traces_Read();
        result.Written = writer.Traces_Written();
    });
}

}  // namespace tarnvik
