#include "output/sheets/sheet_source.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

struct Kind {
    const char* Ending;
    const char* Filter;
};
constexpr std::array kinds = {Kind{".pdf", "PDF document|*.pdf|"}, Kind{".svg", "SVG drawing|*.svg|"},
                              Kind{".png", "PNG picture|*.png|"}, Kind{".wmf", "Windows metafile|*.wmf|"}};

/// The kinds of file, the one of the last time first.
std::string Filters(const std::string& ending) {
    std::string filters;
    for (const Kind& kind : kinds) {
        const std::string filter = kind.Filter;
        filters = ending == kind.Ending ? filter + filters : filters + filter;
    }
    return filters;
}

std::string Ending_Of(const std::string& path) {
    const std::string name = Name_Of(path);
    const std::size_t point = name.rfind('.');
    return point == std::string::npos ? std::string() : LCase(name.substr(point));
}

bool Is_Known(const std::string& ending) {
    return std::any_of(kinds.begin(), kinds.end(), [&](const Kind& kind) { return ending == kind.Ending; });
}

bool Same(const std::string& one, const std::string& other) {
    std::error_code failed;
    return one == other || std::filesystem::equivalent(one, other, failed);
}

}  // namespace

std::vector<std::string> Sheet_Files(const std::string& path, std::size_t count) {
    if (count < 2 || Ending_Of(path) == ".pdf") return {path};
    const std::size_t digits = std::max<std::size_t>(2, std::to_string(count).size());
    const std::size_t stem = path.size() - Ending_Of(path).size();
    std::vector<std::string> files;
    for (std::size_t index = 1; index <= count; ++index) {
        const std::string number = std::to_string(index);
        files.push_back(path.substr(0, stem) + "_" + std::string(digits - number.size(), '0') + number +
                        path.substr(stem));
    }
    return files;
}

bool Save_Sheets(Ports& ports, const std::string& title, SheetSource& source, std::string& ending,
                 const SheetWriter& write) {
    if (!source.May_Draw()) return false;
    if (!Is_Known(ending)) ending = kinds.front().Ending;
    std::string path =
        ports.Ask.Save_File({title, Filters(ending), source.File_Name() + ending, source.Folder()});
    if (path.empty()) return false;
    bool asked = true;  // by the file dialog
    if (Ending_Of(path).empty()) {
        path += ending;
        asked = false;
    }
    const std::string chosen = Ending_Of(path);
    if (!Is_Known(chosen)) {
        ports.Ask.Say(path + ": sheets are written as .pdf, .svg, .png or .wmf", title, Icon::Warning);
        return false;
    }
    const std::vector<std::string> files = Sheet_Files(path, source.Sheets().size());
    for (const std::string& file : files) {
        for (const std::string& read : source.Sources()) {
            if (!Same(file, read)) continue;
            ports.Ask.Say(file + " is what the sheet is drawn from and stays as it is", title, Icon::Warning);
            return false;
        }
    }
    if (files.size() > 1 || files.front() != path) asked = false;
    const auto there = asked ? files.end() : std::find_if(files.begin(), files.end(), File_Exists);
    if (there != files.end() && !ports.Ask.Ask_Yes(*there + " already exists, overwrite ?", title))
        return false;
    const std::string reason = write(source.Sheets(), files);
    if (!reason.empty()) {
        ports.Ask.Say(reason, title, Icon::Critical);
        return false;
    }
    ending = chosen;
    return true;
}

}  // namespace tarnvik
