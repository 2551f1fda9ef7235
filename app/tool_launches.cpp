#include "app/tool_launches.h"

#include <filesystem>
#include <string>
#include <system_error>

#include "app/pages.h"
#include "app/session.h"
#include "core/files.h"
#include "core/project_file.h"
#include "core/settings_file.h"
#include "records/record_files.h"

namespace tarnvik {

namespace {

const std::string shell_failure = "Unable to shell application:";

/// Starts a program with the program's folder as its working folder; says `failure` and the program's path
/// when it cannot be started.
void Start_Tool(Session& session, const std::string& program, const std::string& arguments,
                const std::string& failure) {
    const std::string folder = session.Outside.Launch.Program_Folder();
    if (session.Outside.Launch.Start(program, arguments, folder) < launch_failure_below) {
        session.Outside.Ask.Say(failure + program, session.Work.AppTitle, Icon::Critical);
    }
}

std::string In_Program_Folder(const Session& session, const std::string& tool) {
    return session.Outside.Launch.Program_Folder() + "/" + tool;
}

/// Names what is in memory to a tool that is told nothing but a number: the project file and its records in
/// the settings, and where the line has changes that are not saved, a copy of it as it stands.
void Name_Line(Session& session) {
    const Project& project = session.Work.Project;
    Write_Setting(session.SettingsFile, "DROMO", "File", project.CurrentFile);
    Write_Setting(session.SettingsFile, "DROMO", "SU", Su_Path(project));
    std::string unsaved;
    if (!session.Work.Edits.Is_Saved() && !session.Work.CompanionFolder.empty()) {
        unsaved = session.Work.CompanionFolder + "/unsaved.tv5";
        std::error_code failed;
        std::filesystem::create_directories(session.Work.CompanionFolder, failed);
        if (!Replace_File(unsaved, Project_Bytes(project)).empty()) unsaved.clear();
    }
    Write_Setting(session.SettingsFile, "Tools", unsaved_line_key, unsaved);
}

}  // namespace

void Launch_Enhancement(Session& session) {
    Start_Tool(session, In_Program_Folder(session, "reverse.exe"), session.Work.Project.CurrentFile,
               "Unable to shell ");
}

void Launch_Filter(Session& session) {
    // The filter tool looks the files up in the settings, not on its command line alone.
    Name_Line(session);
    Start_Tool(session, In_Program_Folder(session, "reverse.exe"), Su_Path(session.Work.Project),
               shell_failure);
}

void Launch_Trace_Reversal(Session& session) {
    Name_Line(session);
    Start_Tool(session, In_Program_Folder(session, "reverse.exe"), "", shell_failure);
}

void Launch_Conversion(Session& session) {
    Start_Tool(session, In_Program_Folder(session, "conversion.EXE"), "356", shell_failure);
}

void Launch_Seg2_Conversion(Session& session) {
    const std::string installed = "C:\\tarnvik\\bin\\SEG2SU.EXE";
    Start_Tool(session, File_Exists(installed) ? installed : "C:\\tarnvik\\SEG2su.exe", "412", shell_failure);
}

void Launch_Record_Printer(Session& session) {
    Name_Line(session);
    Start_Tool(session, In_Program_Folder(session, "suprint2.exe"), "412", shell_failure);
}

void Start_Superprint(Session& session) {
    if (!Page_Can_Be_Drawn(session, Page::Curves)) {
        session.Outside.Ask.Say("The GRAPHIC cannot be printed", session.Work.AppTitle, Icon::Critical);
        return;
    }
    Name_Line(session);
    Start_Tool(session, In_Program_Folder(session, "tvmprint.exe"), "412", shell_failure);
}

void Launch_Add_Csv(Session& session) {
    Start_Tool(session, In_Program_Folder(session, "add_csv.exe"), "", shell_failure);
}

void Launch_Profile_Display(Session& session) {
    Start_Tool(session, In_Program_Folder(session, "TVProfile.exe"), "", shell_failure);
}

void Launch_Merge_Csv(Session& session) {
    Start_Tool(session, In_Program_Folder(session, "merge_file.exe"), "", shell_failure);
}

void Register_File_Type(Session& session) {
    session.Outside.Launch.Register_File_Type();
}

}  // namespace tarnvik
