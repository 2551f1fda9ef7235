#include "processing/traces/header_formula.h"

#include <array>

#include "processing/traces/tool_arguments.h"
#include "processing/traces/trace_reader.h"
#include "processing/traces/trace_writer.h"

namespace tarnvik {

namespace {

/// The list of an argument made as long as that of the keys; absent it is all 0.
template <typename Value>
std::vector<Value> One_For_Each_Key(std::vector<Value> list, const std::string& name, std::size_t keys) {
    if (!list.empty() && list.size() != keys) {
        throw Fault(name + "= has " + std::to_string(list.size()) + " values for " + std::to_string(keys) +
                    " keys");
    }
    list.resize(keys);
    return list;
}

}  // namespace

double HeaderFormula::Value(std::int64_t trace) const {
    const std::int64_t place = trace + Shift;
    if (GroupSize == 0) return First + Step * static_cast<double>(place);
    // Rounded down, so that a negative shift continues the groups to the left.
    std::int64_t group = place / GroupSize;
    std::int64_t within = place % GroupSize;
    if (within < 0) {
        within += GroupSize;
        --group;
    }
    return First + Step * static_cast<double>(within) + GroupStep * static_cast<double>(group);
}

std::vector<HeaderFormula> Header_Formulas(std::span<const std::string> arguments) {
    constexpr std::array<std::string_view, 6> known = {"key", "a", "b", "c", "d", "j"};
    const ToolArguments given(arguments, known);
    const std::vector<TraceWord> keys =
        given.Given("key") ? given.Words("key") : std::vector<TraceWord>{TraceWord(words::cdp)};
    const auto a = One_For_Each_Key(given.Numbers("a"), "a", keys.size());
    const auto b = One_For_Each_Key(given.Numbers("b"), "b", keys.size());
    const auto c = One_For_Each_Key(given.Numbers("c"), "c", keys.size());
    const auto d = One_For_Each_Key(given.Whole_Numbers("d"), "d", keys.size());
    const auto j = One_For_Each_Key(given.Whole_Numbers("j"), "j", keys.size());
    std::vector<HeaderFormula> formulas;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (j[i] < 0) throw Fault("j=" + std::to_string(j[i]) + ": must be 0 or more");
        formulas.push_back({keys[i], a[i], b[i], c[i], d[i], j[i]});
    }
    return formulas;
}

TraceResult Set_Header_Words(ByteSource& source, ByteSink& sink, std::span<const HeaderFormula> formulas) {
    return With_Failure_As_Text([&](TraceResult& result) {
        TraceReader reader(source);
        TraceWriter writer(sink);
        for (;;) {
            const TraceBlock block = reader.Next_Block();
            if (block.Count() == 0) break;
            for (std::size_t i = 0; i < block.Count(); ++i) {
                const std::int64_t number = block.Number(i);
                for (const HeaderFormula& formula : formulas) {
                    const double value = formula.Value(number - 1);
                    formula.Word.Set_Or_Fault(block.Header(i), value, number);
                    if (formula.Word.Number() != words::ns) continue;
                    if (static_cast<int>(formula.Word.Value(block.Header(i))) == reader.Samples()) continue;
                    throw Fault("trace " + std::to_string(number) + ": ns must stay " +
                                std::to_string(reader.Samples()) + ", the number of samples that follow");
                }
            }
            writer.Put(block, 0, block.Count());
        }
        writer.Finish();
        result.Read = reader.Traces_Read();
        result.Written = writer.Traces_Written();
    });
}

}  // namespace tarnvik
