#include "output/exports/export_files.h"

#include <algorithm>
#include <utility>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

constexpr std::size_t lines_told = 12;

std::string Counted(int count, const std::string& name) {
    return CStr(count) + " " + name + (count == 1 ? "" : "s");
}

/// How much went out and what did not.
std::string Summary_Of(const ExportReport& report) {
    const std::string picks = report.Picks > 0 ? Counted(report.Picks, "pick") + ", " : "";
    // A table of receivers counts neither picks nor shots.
    const bool shots = report.Picks > 0 || report.Shots > 0;
    return "Written: " + picks + (shots ? Counted(report.Shots, "shot") + ", " : "") +
           Counted(report.Receivers, "receiver") + "." + Left_Out_Text(report.LeftOut);
}

}  // namespace

std::string Export_Base(const Project& project, const std::string& folder) {
    std::string base = project.CurrentFile;
    if (LCase(Right(base, 4)) == ".tv5") base.resize(base.size() - 4);
    return folder.empty() ? base : folder + Name_Of(base);
}

std::string Up_To_First_Point(const std::string& path, const std::string& ending) {
    const std::string name = Name_Of(path);
    const std::size_t point = name.find('.');
    return Folder_Of(path) + (point == std::string::npos ? "" : name.substr(0, point + 1)) + ending;
}

std::string Agreed_Path(Ports& ports, const std::string& title, const std::string& path,
                        const FileRequest& other_name) {
    std::string agreed = path;
    while (File_Exists(agreed) &&
           !ports.Ask.Ask_Yes(agreed + " already exists, overwrite ?", title, Icon::Warning)) {
        FileRequest request = other_name;
        request.DefaultName = Name_Of(agreed);
        request.Directory = Folder_Of(agreed);
        agreed = ports.Ask.Save_File(request);
    }
    return agreed;
}

bool Ask_Number(Ports& ports, const std::string& title, const std::string& prompt, const std::string& initial,
                double& number) {
    const std::string typed = ports.Ask.Input(prompt, title, initial);
    if (Trim(typed).empty()) return false;
    number = Val(typed);
    return true;
}

bool Ask_Spacing(Ports& ports, const std::string& title, const std::string& initial, double& spacing) {
    if (!Ask_Number(ports, title, "Enter the station spacing interval", initial, spacing)) return false;
    if (spacing > 0) return true;
    ports.Ask.Say("The station spacing must be above 0", title, Icon::Critical);
    return false;
}

bool Agree_On_Names(Ports& ports, const std::string& title, std::vector<ExportFile>& files,
                    const FileRequest& other_name) {
    for (ExportFile& file : files) {
        file.Path = Agreed_Path(ports, title, file.Path, other_name);
        if (file.Path.empty()) return false;
    }
    return true;
}

bool Write_Export_Files(Ports& ports, const std::string& title, const std::vector<ExportFile>& files,
                        ExportReport& report, const std::string& words) {
    for (const ExportFile& file : files) {
        const bool stood = File_Exists(file.Path);
        const std::string reason = Replace_File(file.Path, To_Windows_1252(file.Content));
        if (!reason.empty()) {
            ports.Ask.Say(words + (words.empty() ? "" : "\r\n") + file.Path + " cannot be written: " + reason,
                          title, Icon::Critical);
            return false;
        }
        report.Files.push_back(file.Path);
        if (!stood) report.Created.push_back(file.Path);
    }
    return true;
}

void Edit_Export(Ports& ports, const std::string& title, const std::string& path) {
    if (ports.Launch.Edit_Text(path) < launch_failure_below) {
        // The misprint is part of the text that users know.
        ports.Ask.Say("Unable to lauch NOTEPAD " + path, title, Icon::Warning);
    }
}

std::string Left_Out_Text(const std::vector<std::string>& left_out) {
    if (left_out.empty()) return {};
    std::string text = "\r\nLeft out:";
    const std::size_t told = std::min(left_out.size(), lines_told);
    for (std::size_t i = 0; i < told; ++i)
        text += "\r\n" + left_out[i];
    if (told < left_out.size()) text += "\r\nand " + CStr(static_cast<int>(left_out.size() - told)) + " more";
    return text;
}

ExportReport Export_One_File(
    Ports& ports, const ExportSource& source, const std::string& ending,
    const std::function<std::string(const Project& project, ExportReport& report)>& content) {
    ExportReport report;
    Workspace* work = source.Choose();
    if (work == nullptr) return report;
    const std::string text = content(work->Project, report);
    const FileRequest other_name{"Enter the new file name", "All files|*.*|", "", ""};
    std::vector<ExportFile> files = {{Export_Base(work->Project, source.Folder) + ending, text}};
    if (!Agree_On_Names(ports, source.Title, files, other_name) ||
        !Write_Export_Files(ports, source.Title, files, report)) {
        return report;
    }
    Tell_Export(ports, source.Title, report.Files.back() + " has been written", report);
    return report;
}

void Tell_Export(Ports& ports, const std::string& title, const std::string& words, ExportReport& report) {
    report.Done = true;
    ports.Ask.Say(words + "\r\n" + Summary_Of(report), title, Icon::Information);
}

}  // namespace tarnvik
