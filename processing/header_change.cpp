#include "processing/header_change.h"

#include <algorithm>

#include "core/fault.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "processing/trace_count.h"

namespace tarnvik {

std::optional<std::int64_t> HeaderChange::Line_Of(std::int64_t trace) const {
    const std::int64_t record = Record_Of_Trace(trace, Channels) - Record_Of_Trace(FirstTrace, Channels);
    switch (Way) {
        case ChangeWay::ValueByTrace:
            return trace - FirstTrace + 1;
        case ChangeWay::ValueByShot:
            return record + 1;
        case ChangeWay::ValueByReceiver:
            return record * LinesAShot + Channel_Of_Trace(trace, Channels);
        default:
            return std::nullopt;
    }
}

std::int64_t HeaderChange::Lines_Needed() const {
    if (!Line_Of(FirstTrace)) return 0;
    std::int64_t needed = 0;
    for (std::int64_t trace = FirstTrace; trace <= LastTrace; ++trace)
        needed = std::max(needed, *Line_Of(trace));
    return needed;
}

double HeaderChange::New_Value(std::int64_t trace, double former) const {
    switch (Way) {
        case ChangeWay::Constant:
            return Value;
        case ChangeWay::Multiply:
            return former * Value;
        case ChangeWay::Increment:
            return Value + Step * static_cast<double>(trace - FirstTrace);
        case ChangeWay::Channels:
            return static_cast<double>(Channel_Of_Trace(trace, Channels));
        default:
            break;
    }
    const std::int64_t line = Line_Of(trace).value_or(0);
    if (line < 1 || line > std::ssize(FileValues)) throw Fault("no such line in the file of values");
    return FileValues[static_cast<std::size_t>(line - 1)];
}

ListedValues Values_Of_Lines(std::string_view text) {
    constexpr std::string_view begins_a_number = "0123456789+-.&";
    ListedValues listed;
    std::int64_t line_number = 0;
    std::optional<std::int64_t> empty_line;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        const std::string line = Trim(text.substr(0, end));
        const bool both = text.substr(end).starts_with("\r\n");
        text.remove_prefix(std::min(text.size(), end + (both ? 2 : 1)));
        ++line_number;
        if (line.empty()) {
            if (!empty_line) empty_line = line_number;
            continue;
        }
        // An empty line between two values would shift all that follow.
        if (empty_line || begins_a_number.find(line.front()) == std::string_view::npos) {
            listed.WrongLine = empty_line.value_or(line_number);
            return listed;
        }
        const auto value = Number_In(line);
        if (!value) {
            listed.WrongLine = line_number;
            return listed;
        }
        listed.Values.push_back(*value);
    }
    return listed;
}

}  // namespace tarnvik
