#include "depth/grm_storage.h"

#include <algorithm>

#include "core/edits/edits.h"
#include "core/fault.h"
#include "core/files.h"
#include "core/grm_file.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

constexpr const char* no_grm_file =
    "Bad file or no GRM file recorded, start with delay time determination...";

GrmContent Content_Of(const Workspace& workspace) {
    return {workspace.Project.TotalTime, workspace.Grm.GrmXY, workspace.Project.GrmData};
}

GrmReading Reading_Of(const Workspace& workspace, const std::string& path) {
    return Parse_Grm(Read_File(path).value_or(""), workspace.Project.NbReceivers);
}

void Take(Workspace& workspace, const GrmContent& content) {
    Project& project = workspace.Project;
    project.TotalTime = content.TotalTime;
    workspace.Grm.GrmXY = content.GrmXY;
    for (int row = 1; row <= GrmContent::Rows; ++row) {
        for (int receiver = 1; receiver <= project.NbReceivers; ++receiver)
            project.GrmData(row, receiver) = content.Data(row, receiver);
    }
}

bool Has_Room(const Project& project) {
    return project.NbReceivers > 0 && project.GrmData.Has(GrmContent::Rows, project.NbReceivers);
}

/// Tells what is wrong with a reading; false when nothing of it may be taken.
bool May_Take(const Workspace& workspace, Ports& ports, const std::string& path, const GrmReading& reading) {
    if (!reading.Good || !Has_Room(workspace.Project)) {
        ports.Ask.Say(no_grm_file, workspace.AppTitle, Icon::Critical);
        return false;
    }
    if (!reading.Remark.empty())
        ports.Ask.Say(Name_Of(path) + ": " + reading.Remark, workspace.AppTitle, Icon::Warning);
    return true;
}

}  // namespace

bool Write_GRM_File(Workspace& workspace, Ports& ports, const std::string& xy) {
    const Project& project = workspace.Project;
    const auto whole_xy = CInt(Val(xy));
    std::string path;
    if (whole_xy && Has_Room(project) && !project.CurrentFile.empty()) {
        workspace.Grm.GrmXY = *whole_xy;
        const std::string wanted = Grm_File_Written(project.CurrentFile);
        if (Replace_File(wanted, Grm_Bytes(Content_Of(workspace), project.NbReceivers)).empty())
            path = wanted;
    }
    if (path.empty()) {
        ports.Ask.Say("GRM record error...", workspace.AppTitle, Icon::Critical);
        return false;
    }
    ports.Ask.Say(path + " file recorded!", workspace.AppTitle);
    return true;
}

bool Read_GRM_File(Workspace& workspace, Ports& ports, const std::string& path) {
    const GrmReading reading = Reading_Of(workspace, path);
    if (!May_Take(workspace, ports, path, reading)) return false;
    const EditScope edit(workspace, "Read " + Name_Of(path));
    Take(workspace, reading.Content);
    return true;
}

void Take_Up_GRM_File(Workspace& workspace, Ports& ports) {
    workspace.Grm = {};
    const std::string path = Grm_File_Beside(workspace.Project.CurrentFile);
    if (!File_Exists(path)) return;
    const GrmReading reading = Reading_Of(workspace, path);
    if (!May_Take(workspace, ports, path, reading)) return;
    Take(workspace, reading.Content);
    workspace.Fields.Text25 = CStr(workspace.Project.TotalTime);
    // What opening finds out by itself is no unsaved work.
    if (workspace.Edits.All().empty()) workspace.Edits.Start(workspace.Project, workspace.Edits.Is_Saved());
}

bool GRM_File_Differs(const Workspace& workspace, const std::string& path) {
    const GrmReading reading = Reading_Of(workspace, path);
    if (!reading.Good || !Has_Room(workspace.Project)) return false;
    GrmContent memory = Content_Of(workspace);
    memory.GrmXY = reading.Content.GrmXY;
    // As the file would be written: it keeps fewer digits than the memory.
    const int receivers = workspace.Project.NbReceivers;
    return Grm_Bytes(memory, receivers) != Grm_Bytes(reading.Content, receivers);
}

}  // namespace tarnvik
