#include "core/display_choices.h"

#include <algorithm>

#include "core/files.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

constexpr std::size_t most_projects = 200;  ///< those unused for longest are forgotten first

std::string On_One_Line(const std::string& text) {
    std::string line = text;
    for (char& letter : line) {
        if (static_cast<unsigned char>(letter) < ' ') letter = ' ';
    }
    return line;
}

}  // namespace

std::string Display_Choices_File(const std::string& settings_file) {
    return Folder_Of(settings_file) + "Displays.txt";
}

void DisplayChoices::Keep_In(const std::string& path) {
    Path = path;
    Sections.clear();
    Changed = false;
    if (const auto text = Read_File(path)) Parse(*text);
}

void DisplayChoices::Parse(std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        if (line.size() > 2 && line.front() == '[' && line.back() == ']') {
            Sections.push_back({std::string(line.substr(1, line.size() - 2)), {}});
            continue;
        }
        const std::size_t cut = line.find('=');
        if (Sections.empty() || cut == std::string_view::npos || cut == 0) continue;
        Sections.back().Chosen[std::string(line.substr(0, cut))] = line.substr(cut + 1);
    }
}

const DisplayChoices::Section* DisplayChoices::Find(const std::string& project) const {
    const auto found = std::find_if(Sections.rbegin(), Sections.rend(),
                                    [&](const Section& section) { return section.Project == project; });
    return found == Sections.rend() ? nullptr : &*found;
}

bool DisplayChoices::Knows(const std::string& project) const {
    return Find(On_One_Line(project)) != nullptr;
}

std::optional<std::string> DisplayChoices::Get(const std::string& project, const std::string& name) const {
    const Section* section = Find(On_One_Line(project));
    if (section == nullptr) return std::nullopt;
    const auto found = section->Chosen.find(name);
    if (found == section->Chosen.end()) return std::nullopt;
    return found->second;
}

std::optional<double> DisplayChoices::Number(const std::string& project, const std::string& name) const {
    const auto text = Get(project, name);
    if (!text || text->empty()) return std::nullopt;
    return Val(*text);
}

void DisplayChoices::Set(const std::string& project, const std::string& name, const std::string& value) {
    const std::string key = On_One_Line(project);
    const std::string line = On_One_Line(value);
    if (key.empty() || name.empty() || Get(key, name) == line) return;
    const Section* known = Find(key);
    if (known == nullptr) {
        Sections.push_back({key, {}});
        if (Sections.size() > most_projects) Sections.erase(Sections.begin());
    } else if (known != &Sections.back()) {
        Section moved = *known;
        Sections.erase(Sections.begin() + (known - Sections.data()));
        Sections.push_back(std::move(moved));
    }
    Sections.back().Chosen[name] = line;
    Changed = true;
}

void DisplayChoices::Set_Number(const std::string& project, const std::string& name, double value) {
    Set(project, name, CStr(value));
}

std::string DisplayChoices::Save() {
    if (!Changed || Path.empty()) return {};
    std::string text;
    for (const Section& section : Sections) {
        text += "[" + section.Project + "]\n";
        for (const auto& [name, value] : section.Chosen)
            text.append(name).append("=").append(value).append("\n");
    }
    const std::string reason = Replace_File(Path, text);
    Changed = !reason.empty();
    return reason;
}

}  // namespace tarnvik
