// The common profile in files: the list of its lines, and the table of its interfaces.

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>

#include "core/files.h"
#include "core/profile_text.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "output/sheets/joined_profiles.h"

namespace tarnvik {

namespace {

constexpr const char* set_section = "Profiles";
constexpr const char* set_filter = "Set of profiles|*.TVSET|All files|*.*|";
constexpr int most_lines = 200;
constexpr std::string_view method_words[] = {"shots", "abc", "grm"};

std::string Section_Of(int line) {
    return "Line " + CStr(line);
}

/// The name of a file as it is told from a folder; whole where it lies elsewhere.
std::string Told_From(const std::string& folder, const std::string& file) {
    if (folder.empty()) return file;
    const std::filesystem::path told = std::filesystem::path(file).lexically_relative(folder);
    return told.empty() || *told.begin() == ".." ? file : told.string();
}

std::string Number_Or_Blank(const std::optional<double>& value) {
    constexpr double digits = 1000;
    return value ? CStr(Rounded(*value * digits) / digits) : std::string();
}

/// A name in a table of commas.
std::string Quoted(const std::string& text) {
    if (text.find_first_of(",\"") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char letter : text)
        quoted += letter == '"' ? std::string("\"\"") : std::string(1, letter);
    return quoted + "\"";
}

}  // namespace

std::string JoinedProfiles::Set_Text(const std::string& folder) const {
    ProfileText text;
    const std::pair<const char*, std::string> values[] = {
        {"Lines", CStr(static_cast<double>(Lines.size()))},
        {"Title", Title},
        {"Shape", CStr(Shape)},
        {"Filled", Filled ? "1" : "0"},
        {"Scale", Scale},
        {"Exaggeration", Exaggeration},
        {"LowestElevation", LowestElevation},
        {"HighestElevation", HighestElevation},
        {"Paper", Paper.Text()},
    };
    for (const auto& [key, value] : values)
        text.Set(set_section, key, value);
    int number = 0;
    for (const JoinedLine& line : Lines) {
        const std::string section = Section_Of(++number);
        text.Set(section, "File", Told_From(folder, line.File));
        text.Set(section, "Offset", line.OwnPlace ? "own" : line.Offset);
        text.Set(section, "Reversed", line.Reversed ? "1" : "0");
        text.Set(section, "Depths", method_words[static_cast<std::size_t>(line.Source)]);
    }
    return text.Text();
}

std::string JoinedProfiles::Read_Set(const std::string& path) {
    const auto bytes = Read_File(path);
    if (!bytes) return path + ": This file does not exist !";
    const ProfileText text(*bytes);
    const auto count = text.Value(set_section, "Lines");
    if (!count) return path + " is no set of profiles";
    const auto value = [&](const std::string& section, const char* key) {
        return text.Value(section, key).value_or("");
    };
    Title = value(set_section, "Title");
    Shape = Val(value(set_section, "Shape")) == 1 ? 1 : 0;
    Filled = value(set_section, "Filled") != "0";
    const std::pair<const char*, std::string JoinedProfiles::*> scales[] = {
        {"Scale", &JoinedProfiles::Scale}, {"Exaggeration", &JoinedProfiles::Exaggeration}};
    for (const auto& [key, field] : scales) {
        this->*field = value(set_section, key);
        if ((this->*field).empty()) this->*field = "fitting";
    }
    LowestElevation = value(set_section, "LowestElevation");
    HighestElevation = value(set_section, "HighestElevation");
    Paper.Take(value(set_section, "Paper"));
    Lines.clear();
    const int lines = static_cast<int>(std::clamp(Val(*count), 0.0, double{most_lines}));
    for (int number = 1; number <= lines; ++number) {
        const std::string section = Section_Of(number);
        JoinedLine line;
        const std::filesystem::path file = value(section, "File");
        if (file.empty()) continue;
        line.File = file.is_absolute() ? file.string() : Folder_Of(path) + file.string();
        const std::string offset = value(section, "Offset");
        line.OwnPlace = offset == "own";
        if (!line.OwnPlace && !offset.empty()) line.Offset = CStr(Val(offset));
        line.Reversed = value(section, "Reversed") == "1";
        const auto word =
            std::find(std::begin(method_words), std::end(method_words), LCase(value(section, "Depths")));
        if (word != std::end(method_words))
            line.Source = static_cast<SectionSource>(word - std::begin(method_words));
        Lines.push_back(std::move(line));
    }
    SetFile = path;
    Selected = Lines.empty() ? -1 : 0;
    Show_Selected();
    Changed();
    std::string missing;
    for (const JoinedLine& line : Lines) {
        if (!line.Fault.empty()) missing += (missing.empty() ? "" : "\r\n") + line.File + ": " + line.Fault;
    }
    return missing;
}

void JoinedProfiles::New_Set() {
    Lines.clear();
    SetFile.clear();
    Title.clear();
    Selected = -1;
    Show_Selected();
    Lay_Out();
}

void JoinedProfiles::Open_Set() {
    const std::string path = Outside.Ask.Open_File({"Set of profiles", set_filter, "", Folder()});
    if (path.empty()) return;
    const std::string reason = Read_Set(path);
    if (!reason.empty()) Outside.Ask.Say(reason, AppTitle, Icon::Warning);
}

std::string JoinedProfiles::Write_New(const std::string& path, const std::string& text) const {
    for (const std::string& source : Sources()) {
        std::error_code failed;
        if (path == source || std::filesystem::equivalent(path, source, failed))
            return path + " is one of the lines and stays as it is";
    }
    const std::string reason = Replace_File(path, text);
    return reason.empty() ? reason : path + " cannot be written: " + reason;
}

void JoinedProfiles::Save_Set() {
    const std::string name = SetFile.empty() ? "profiles.tvset" : Name_Of(SetFile);
    std::string path = Outside.Ask.Save_File({"Save set of profiles", set_filter, name, Folder()});
    if (path.empty()) return;
    if (Name_Of(path).find('.') == std::string::npos) {
        path += ".tvset";
        if (File_Exists(path) && !Outside.Ask.Ask_Yes(path + " already exists, overwrite ?", AppTitle))
            return;
    }
    const std::string reason = Write_New(path, Set_Text(Folder_Of(path)));
    if (reason.empty()) {
        SetFile = path;
    } else {
        Outside.Ask.Say(reason, AppTitle, Icon::Critical);
    }
}

std::string JoinedProfiles::Table() const {
    const int interfaces = std::max(0, Layers() - 1);
    std::string text = "Line,Distance,Own distance,Ground";
    for (int layer = 1; layer <= interfaces; ++layer)
        text += ",Interface " + CStr(layer);
    text += "\r\n";
    for (const JoinedLine& line : Lines) {
        if (!line.Fault.empty()) continue;
        std::set<double> places;
        for (const ReportPoint& point : line.Ground)
            places.insert(point.X);
        std::vector<double> along(places.begin(), places.end());
        if (line.Reversed) std::reverse(along.begin(), along.end());
        for (const double x : along) {
            text += Quoted(line.Name) + "," + Number_Or_Blank(line.Joined(x)) + "," + Number_Or_Blank(x) +
                    "," + Number_Or_Blank(Curve_At(line.Ground, x));
            for (int layer = 1; layer <= interfaces; ++layer)
                text += "," + Number_Or_Blank(line.Model.Elevation_Of(layer, x));
            text += "\r\n";
        }
    }
    return text;
}

void JoinedProfiles::Save_Table() {
    if (!Refusal().empty()) {
        Outside.Ask.Say(Refusal(), AppTitle, Icon::Warning);
        return;
    }
    std::string path = Outside.Ask.Save_File(
        {"Save joined interfaces", "CSV table|*.CSV|All files|*.*|", "profiles.csv", Folder()});
    if (path.empty()) return;
    if (Name_Of(path).find('.') == std::string::npos) {
        path += ".csv";
        if (File_Exists(path) && !Outside.Ask.Ask_Yes(path + " already exists, overwrite ?", AppTitle))
            return;
    }
    const std::string reason = Write_New(path, Table());
    if (!reason.empty()) Outside.Ask.Say(reason, AppTitle, Icon::Critical);
}

}  // namespace tarnvik
