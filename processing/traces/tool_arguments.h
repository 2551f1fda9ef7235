#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "processing/traces/trace_words.h"

namespace tarnvik {

/// Arguments of a trace tool, `name=value` each; a list has commas between its values. Where a name is given
/// twice, the last one holds. All that cannot be understood is a Fault that names the argument.
class ToolArguments {
  public:
    /// `known` are the names that the tool has; others are refused.
    ToolArguments(std::span<const std::string> arguments, std::span<const std::string_view> known);

    bool Given(std::string_view name) const { return Find(name) != nullptr; }
    /// A number; nothing where the argument is absent.
    std::optional<double> Number(std::string_view name) const;
    /// A whole number within the range.
    std::optional<std::int64_t> Whole(std::string_view name, std::int64_t lowest, std::int64_t highest) const;
    std::vector<double> Numbers(std::string_view name) const;
    std::vector<std::int64_t> Whole_Numbers(std::string_view name) const;
    /// A header word, `otherwise` where the argument is absent.
    TraceWord Word(std::string_view name, int otherwise) const;
    std::vector<TraceWord> Words(std::string_view name) const;

  private:
    const std::string* Find(std::string_view name) const;
    std::vector<std::pair<std::string, std::string>> Values;
};

/// A header word by its name; an unknown name is a Fault.
TraceWord Known_Word(std::string_view name);

}  // namespace tarnvik
