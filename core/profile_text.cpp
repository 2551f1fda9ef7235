#include "core/profile_text.h"

#include "core/text/letters.h"

namespace tarnvik {

namespace {

bool Is_Heading(const std::string& line) {
    return Trim(line).starts_with('[');
}

std::string Heading_Name(const std::string& line) {
    const std::string heading = Trim(line);
    return LCase(Trim(heading.substr(1, heading.find(']') - 1)));
}

}  // namespace

ProfileText::ProfileText(std::string_view text) {
    while (!text.empty()) {
        const auto end = text.find('\n');
        std::string line(text.substr(0, end));
        if (line.ends_with('\r')) line.pop_back();
        Lines.push_back(std::move(line));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
}

std::optional<ProfileText::Range> ProfileText::Find_Section(std::string_view section) const {
    const std::string wanted = LCase(section);
    for (std::size_t i = 0; i < Lines.size(); ++i) {
        if (!Is_Heading(Lines[i]) || Heading_Name(Lines[i]) != wanted) continue;
        std::size_t end = i + 1;
        while (end < Lines.size() && !Is_Heading(Lines[end]))
            ++end;
        return Range{i + 1, end};
    }
    return std::nullopt;
}

std::optional<std::size_t> ProfileText::Find_Key(const Range& range, std::string_view key) const {
    const std::string wanted = LCase(key);
    for (std::size_t i = range.First; i < range.End; ++i) {
        const auto sign = Lines[i].find('=');
        if (sign == std::string::npos) continue;
        if (LCase(Trim(std::string_view(Lines[i]).substr(0, sign))) == wanted) return i;
    }
    return std::nullopt;
}

std::optional<std::string> ProfileText::Value(std::string_view section, std::string_view key) const {
    const auto range = Find_Section(section);
    if (!range) return std::nullopt;
    const auto line = Find_Key(*range, key);
    if (!line) return std::nullopt;
    std::string value = Trim(Lines[*line].substr(Lines[*line].find('=') + 1));
    const bool quoted =
        value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

void ProfileText::Set(std::string_view section, std::string_view key, std::string_view value) {
    std::string line = std::string(key) + "=" + One_Line(value);
    const auto range = Find_Section(section);
    if (!range) {
        Lines.push_back("[" + std::string(section) + "]");
        Lines.push_back(std::move(line));
        return;
    }
    if (const auto place = Find_Key(*range, key)) {
        Lines[*place] = std::move(line);
        return;
    }
    // Blank lines that part two sections stay between them.
    std::size_t end = range->End;
    while (end > range->First && Trim(Lines[end - 1]).empty())
        --end;
    Lines.insert(Lines.begin() + static_cast<std::ptrdiff_t>(end), std::move(line));
}

std::string ProfileText::Text() const {
    std::string text;
    for (const std::string& line : Lines)
        text += line + "\r\n";
    return text;
}

}  // namespace tarnvik
