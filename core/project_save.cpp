#include "core/project_save.h"

#include <array>
#include <filesystem>
#include <system_error>

#include "core/fault.h"
#include "core/files.h"
#include "core/pick_origins.h"
#include "core/project_file.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

namespace fs = std::filesystem;

constexpr const char* rescue_name = "ERROR.TV5";

/// Bytes of the project, or why there are none.
struct Content {
    std::string Bytes;
    std::string Refusal;
};

std::string Refusal_Of(const OversizedValue& found) {
    return "Shot " + CStr(found.Shot) + ", layer " + CStr(found.Layer) + ": the " + found.Name + " of " +
           CStr(found.Value) + " is beyond what a TV5 file can hold (at most " + CStr(found.Limit) + ").";
}

Content Content_Of(const Project& project) {
    try {
        if (const auto found = Find_Oversized_Value(project)) return {{}, Refusal_Of(*found)};
        return {Project_Bytes(project), {}};
    } catch (const Fault&) {
        // Counts without arrays, as before the first project is opened: writing them would empty the file.
        return {{}, "There is no project in memory."};
    }
}

/// Replacing goes by the folder's rights; a file that the user marked read-only is left alone all the same.
std::string Record(const std::string& path, const std::string& bytes) {
    std::error_code failed;
    const auto state = fs::status(path, failed);
    if (fs::exists(state) && (state.permissions() & fs::perms::owner_write) == fs::perms::none) {
        return "the file is marked read-only";
    }
    return Replace_File(path, bytes);
}

void Say_Not_Recorded(const Workspace& workspace, Ports& ports, const std::string& refusal) {
    ports.Ask.Say(refusal + "\r\nNothing has been recorded, the file stays as it was.", workspace.AppTitle,
                  Icon::Critical);
}

/// What follows when the bytes are on the disk under CurrentFile.
void After_Save(Workspace& workspace, Ports& ports, SaveNotice notice = SaveNotice::None) {
    // Stands 1 higher from now on, only the next load takes it off again.
    workspace.Project.TotalTime += 1;
    workspace.Edits.Saved(workspace.Project);
    workspace.FileOnDisk = workspace.Project.CurrentFile;
    const std::string reason = Write_Pick_Origins(workspace.Project, workspace.CompanionFolder);
    if (!reason.empty()) workspace.Fields.Status = "Where the picks come from is not kept: " + reason;
    workspace.Fields.Caption = workspace.Project.CurrentFile + " [" + workspace.AppTitle + "]";
    if (notice == SaveNotice::Told) {
        ports.Ask.Say("File: " + workspace.Project.CurrentFile + " has been recorded", workspace.AppTitle,
                      Icon::Information);
    }
    Clear_Selection(workspace.Curves);
    ports.Show.Show_Fields();
}

std::string With_Separator(std::string folder) {
    if (!folder.empty() && folder.back() != '/' && folder.back() != '\\') {
        folder.push_back(static_cast<char>(fs::path::preferred_separator));
    }
    return folder;
}

/// Writes the rescue file into the first folder that takes it; empty when none does.
std::string Write_Rescue_File(const Workspace& workspace, const Ports& ports, const std::string& bytes) {
    std::error_code failed;
    const std::array<std::string, 3> folders = {ports.Launch.Program_Folder(), workspace.Project.ProjectDir,
                                                fs::temp_directory_path(failed).string()};
    for (const std::string& folder : folders) {
        if (folder.empty()) continue;
        std::string path = With_Separator(folder) + rescue_name;
        if (Replace_File(path, bytes).empty()) return path;
    }
    return {};
}

/// The road of a Save As that came to nothing, so that the work of the session is on the disk all the same.
void Rescue_Project(Workspace& workspace, Ports& ports, const std::string& reason, const std::string& bytes,
                    const std::string& former_file) {
    ports.Ask.Say(reason + " :File Error...", workspace.AppTitle, Icon::Warning);
    const std::string path = Write_Rescue_File(workspace, ports, bytes);
    if (path.empty()) {
        workspace.Project.CurrentFile = former_file;
        ports.Ask.Say(std::string("The travel time cannot be saved as ") + rescue_name + " either",
                      workspace.AppTitle, Icon::Critical);
        return;
    }
    ports.Ask.Say("The travel time has been saved as " + path, workspace.AppTitle, Icon::Critical);
    workspace.Project.CurrentFile = path;
    After_Save(workspace, ports);
}

}  // namespace

bool Write_Project(Workspace& workspace, Ports& ports, SaveNotice notice) {
    const std::string& path = workspace.Project.CurrentFile;
    if (path.empty()) {
        Clear_Selection(workspace.Curves);
        return false;
    }
    const Content content = Content_Of(workspace.Project);
    if (!content.Refusal.empty()) {
        Say_Not_Recorded(workspace, ports, content.Refusal);
        return false;
    }
    if (path != workspace.FileOnDisk && File_Exists(path) &&
        !ports.Ask.Ask_Yes(path + " already exists, overwrite ?", workspace.AppTitle, Icon::Warning)) {
        return false;
    }
    const std::string reason = Record(path, content.Bytes);
    if (!reason.empty()) {
        Say_Not_Recorded(workspace, ports, path + " cannot be written: " + reason + ".");
        return false;
    }
    After_Save(workspace, ports, notice);
    return true;
}

bool Save_Project_As(Workspace& workspace, Ports& ports) {
    std::string& current = workspace.Project.CurrentFile;
    if (current.empty()) {
        ports.Ask.Say("No files loaded", workspace.AppTitle, Icon::Critical);
        return false;
    }
    const std::string former_file = current;
    // A project that came from the older format gets the newer name.
    if (current.back() == '4') current.back() = '5';
    std::string answer = ports.Ask.Save_File(
        {"Select a Tarnvik File ", "Fichier Tarnvik *.TV5", current, workspace.Project.ProjectDir});

    const Content content = Content_Of(workspace.Project);
    if (!content.Refusal.empty()) {
        current = former_file;
        Say_Not_Recorded(workspace, ports, content.Refusal);
        return false;
    }
    if (answer.empty()) {
        Rescue_Project(workspace, ports, "No file name was given", content.Bytes, former_file);
        return false;
    }
    if (Name_Of(answer).find('.') == std::string::npos) {
        // The dialog asked about another name.
        answer += ".TV5";
        if (File_Exists(answer) &&
            !ports.Ask.Ask_Yes(answer + " already exists, overwrite ?", workspace.AppTitle, Icon::Warning)) {
            current = former_file;
            return false;
        }
    }
    const std::string reason = Record(answer, content.Bytes);
    if (!reason.empty()) {
        Rescue_Project(workspace, ports, answer + ": " + reason, content.Bytes, former_file);
        return false;
    }
    current = answer;
    Split_Project_Path(workspace.Project, answer);
    After_Save(workspace, ports);
    return true;
}

}  // namespace tarnvik
