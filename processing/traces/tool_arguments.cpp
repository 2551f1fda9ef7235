#include "processing/traces/tool_arguments.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "core/fault.h"

namespace tarnvik {

namespace {

// Whole numbers up to here are exact in the arithmetic of the formulas.
constexpr double largest_whole = 9007199254740992.0;

[[noreturn]] void Refuse(std::string_view name, std::string_view value, const std::string& why) {
    throw Fault(std::string(name) + "=" + std::string(value) + ": " + why);
}

std::vector<std::string_view> Parts(std::string_view list) {
    std::vector<std::string_view> parts;
    for (std::size_t comma = 0; comma != std::string_view::npos;) {
        comma = list.find(',');
        parts.push_back(list.substr(0, comma));
        if (comma != std::string_view::npos) list.remove_prefix(comma + 1);
    }
    return parts;
}

double Number_Of(std::string_view name, std::string_view text) {
    std::string_view figures = text;
    if (figures.starts_with('+') && !figures.starts_with("+-")) figures.remove_prefix(1);
    double value = 0;
    const char* end = figures.data() + figures.size();
    const auto [stopped, fault] = std::from_chars(figures.data(), end, value);
    if (figures.empty() || fault != std::errc() || stopped != end || !std::isfinite(value))
        Refuse(name, text, "is no number");
    return value;
}

std::int64_t Whole_Of(std::string_view name, std::string_view text) {
    const double value = Number_Of(name, text);
    if (value != std::trunc(value) || std::abs(value) > largest_whole)
        Refuse(name, text, "is no whole number");
    return static_cast<std::int64_t>(value);
}

}  // namespace

ToolArguments::ToolArguments(std::span<const std::string> arguments,
                             std::span<const std::string_view> known) {
    for (const std::string& argument : arguments) {
        const std::size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        if (equals == std::string::npos) throw Fault(argument + ": arguments are written name=value");
        if (std::find(known.begin(), known.end(), name) == known.end())
            throw Fault(argument + ": there is no argument " + name);
        Values.emplace_back(name, argument.substr(equals + 1));
    }
}

const std::string* ToolArguments::Find(std::string_view name) const {
    const auto found =
        std::find_if(Values.rbegin(), Values.rend(), [name](const auto& pair) { return pair.first == name; });
    return found == Values.rend() ? nullptr : &found->second;
}

std::optional<double> ToolArguments::Number(std::string_view name) const {
    const std::string* text = Find(name);
    if (text == nullptr) return std::nullopt;
    return Number_Of(name, *text);
}

std::optional<std::int64_t> ToolArguments::Whole(std::string_view name, std::int64_t lowest,
                                                 std::int64_t highest) const {
    const std::string* text = Find(name);
    if (text == nullptr) return std::nullopt;
    const std::int64_t value = Whole_Of(name, *text);
    if (value < lowest || value > highest) {
        Refuse(name, *text,
               "must be " + std::to_string(lowest) +
                   (highest < static_cast<std::int64_t>(largest_whole) ? " to " + std::to_string(highest)
                                                                       : " or more"));
    }
    return value;
}

std::vector<double> ToolArguments::Numbers(std::string_view name) const {
    std::vector<double> numbers;
    const std::string* text = Find(name);
    if (text == nullptr) return numbers;
    for (const std::string_view part : Parts(*text))
        numbers.push_back(Number_Of(name, part));
    return numbers;
}

std::vector<std::int64_t> ToolArguments::Whole_Numbers(std::string_view name) const {
    std::vector<std::int64_t> numbers;
    const std::string* text = Find(name);
    if (text == nullptr) return numbers;
    for (const std::string_view part : Parts(*text))
        numbers.push_back(Whole_Of(name, part));
    return numbers;
}

TraceWord ToolArguments::Word(std::string_view name, int otherwise) const {
    const std::string* text = Find(name);
    return text == nullptr ? TraceWord(otherwise) : Known_Word(*text);
}

std::vector<TraceWord> ToolArguments::Words(std::string_view name) const {
    std::vector<TraceWord> found;
    const std::string* text = Find(name);
    if (text == nullptr) return found;
    for (const std::string_view part : Parts(*text))
        found.push_back(Known_Word(part));
    return found;
}

TraceWord Known_Word(std::string_view name) {
    const auto word = TraceWord::Named(name);
    if (!word) throw Fault("there is no header word \"" + std::string(name) + "\"");
    return *word;
}

}  // namespace tarnvik
