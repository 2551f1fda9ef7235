#include "output/section_print.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "output/coloured_section.h"

namespace tarnvik {

namespace {

struct Kind {
    const char* Title;
    const char* Filter;
    const char* Ending;
};

constexpr Kind metafile = {"Select a Windows Meta File name", "Windows Meta File|*.WMF|", ".wmf"};
constexpr Kind jpg = {"Select a JPG name", "JPG picture|*.jpg|", ".jpg"};

void Copy_Section(Workspace& workspace, Ports& ports, const PictureFormat& format) {
    const std::string reason = ports.Show.Copy_Page(Page::Section, format);
    if (reason.empty()) {
        ports.Ask.Say("You can now paste the map in your app!", workspace.AppTitle, Icon::Information);
    } else {
        ports.Ask.Say("The section cannot be copied: " + reason, workspace.AppTitle, Icon::Critical);
    }
}

/// Size of a file in whole KB, one at least.
std::string Kilobytes(const std::string& path) {
    constexpr double kilobyte = 1024;
    std::error_code failed;
    const auto bytes = std::filesystem::file_size(path, failed);
    return CStr(failed ? 0 : std::max(1.0, Rounded(static_cast<double>(bytes) / kilobyte)));
}

}  // namespace

std::string Section_Picture_File(const std::string& project_file, SectionSource source,
                                 SectionOutput output) {
    if (output == SectionOutput::Clipboard) return {};
    // The point before the "_p" is meant: so these files have always been named.
    const std::string mark = source == SectionSource::Abc   ? "_abc"
                             : source == SectionSource::Grm ? "_grm"
                                                            : "._p";
    const std::string ending = output == SectionOutput::Metafile ? metafile.Ending : jpg.Ending;
    const bool project = LCase(Right(project_file, 4)) == ".tv5";
    return (project ? project_file.substr(0, project_file.size() - 4) : project_file) + mark + ending;
}

void olectra_print(Workspace& workspace, Ports& ports, SectionOutput output, const PictureFormat& format,
                   bool report) {
    if (const std::string refusal = Without_Section(workspace); !report && !refusal.empty()) {
        ports.Ask.Say(refusal, workspace.AppTitle, Icon::Warning);
        return;
    }
    if (output == SectionOutput::Clipboard) {
        Copy_Section(workspace, ports, format);
        return;
    }
    const Kind& kind = output == SectionOutput::Metafile ? metafile : jpg;
    const std::string offered =
        report ? workspace.Project.ProjectName + "_report" + kind.Ending
               : Section_Picture_File(workspace.Project.CurrentFile, workspace.Section.Grid->Source, output);
    std::string path =
        ports.Ask.Save_File({kind.Title, kind.Filter, Name_Of(offered), workspace.Project.ProjectDir});
    if (path.empty()) return;
    if (LCase(Right(path, 4)) != kind.Ending) {
        // The dialog asked about another name.
        path += kind.Ending;
        if (File_Exists(path) &&
            !ports.Ask.Ask_Yes(path + " already exists, overwrite ?", workspace.AppTitle)) {
            return;
        }
    }
    const std::string reason = ports.Show.Save_Page(Page::Section, path, format);
    if (!reason.empty()) {
        ports.Ask.Say(path + " cannot be written: " + reason, workspace.AppTitle, Icon::Critical);
        return;
    }
    ports.Ask.Say(Kilobytes(path) + " KB has been recorded", workspace.AppTitle, Icon::Information);
}

}  // namespace tarnvik
