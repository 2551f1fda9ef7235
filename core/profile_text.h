#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnvik {

/// Text of an INI file: sections in brackets, lines "key=value". Sections and keys are found without regard
/// to case. Everything that is not set stays as it stands, since other programs keep their settings there
/// too.
class ProfileText {
  public:
    explicit ProfileText(std::string_view text = {});

    /// Value of a key without the blanks around it and without quotes that enclose it.
    std::optional<std::string> Value(std::string_view section, std::string_view key) const;
    /// Sets a key in its place, a new one at the end of its section, a new section at the end.
    void Set(std::string_view section, std::string_view key, std::string_view value);
    /// The whole text, lines ended by carriage return and line feed.
    std::string Text() const;

  private:
    /// First line behind the section's heading, and the line behind its last one; nothing without it.
    struct Range {
        std::size_t First;
        std::size_t End;
    };
    std::optional<Range> Find_Section(std::string_view section) const;
    std::optional<std::size_t> Find_Key(const Range& range, std::string_view key) const;

    std::vector<std::string> Lines;
};

}  // namespace tarnvik
