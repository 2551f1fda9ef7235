#include "app/documents.h"

#include <filesystem>
#include <initializer_list>
#include <string>
#include <system_error>

#include "app/session.h"
#include "core/files.h"

namespace tarnvik {

namespace {

/// The first of these files that exists; empty when none does.
std::string First_Existing(std::initializer_list<std::string> paths) {
    for (const std::string& path : paths) {
        if (File_Exists(path)) return path;
    }
    return {};
}

/// Opens a document with its viewer; `viewer` is the name said when that fails.
void Launch_Viewer(Session& session, const std::string& path, const std::string& viewer) {
    if (session.Outside.Launch.Open_Document(path) < launch_failure_below) {
        session.Outside.Ask.Say("Unable to shell " + viewer, session.Work.AppTitle, Icon::Critical);
    }
}

/// A PDF document of the program. Says `missing` when it is in none of its places.
void Open_Pdf(Session& session, std::initializer_list<std::string> places, const std::string& missing) {
    const std::string viewer = session.Outside.Launch.Find_Program("PDF");
    if (viewer.empty()) {
        session.Outside.Ask.Say("You must intstall ACROBAT READER from the CD-ROM", session.Work.AppTitle,
                                Icon::Warning);
        return;
    }
    const std::string path = First_Existing(places);
    if (path.empty()) {
        session.Outside.Ask.Say(missing, session.Work.AppTitle, Icon::Warning);
        return;
    }
    Launch_Viewer(session, path, viewer);
}

void Edit_Text_File(Session& session, const std::string& path) {
    if (session.Outside.Launch.Edit_Text(path) < launch_failure_below) {
        // The misprint is part of the text that users know.
        session.Outside.Ask.Say("Unable to lauch NOTEPAD ", session.Work.AppTitle, Icon::Critical);
    }
}

}  // namespace

void Open_Manual(Session& session) {
    Open_Pdf(session,
             {session.Outside.Launch.Program_Folder() + "/manual/tv16.pdf", "c:\\tarnvik\\manual\\tv16.pdf"},
             "You must install tv16.pdf");
}

void Open_History(Session& session) {
    Open_Pdf(session,
             {session.Outside.Launch.Program_Folder() + "/Tarnvik_History.pdf",
              "c:\\tarnvik\\Tarnvik_History.pdf"},
             "You must install Tarnvik_History.pdf");
}

void Open_Redpath_Book(Session& session) {
    const std::string path = session.Outside.Launch.Program_Folder() + "/manual/redpath.pdf";
    Open_Pdf(session, {path}, "You must install" + path + "from the CD-ROM");
}

void Open_Slide_Show(Session& session) {
    const std::string viewer = session.Outside.Launch.Find_Program("PPSX");
    const std::string folder = session.Outside.Launch.Program_Folder();
    const std::string path =
        First_Existing({folder + "/manual/tarnvik.ppsx", folder + "/video/tarnvik.ppsx"});
    if (viewer.empty() || path.empty()) {
        session.Outside.Ask.Say("You must install a POWER POINT viewer", session.Work.AppTitle,
                                Icon::Warning);
        return;
    }
    Launch_Viewer(session, path, viewer);
}

void Open_Video(Session& session) {
    const std::string path =
        session.Outside.Ask.Open_File({"Tarnvik Video selection", "Video File |*.AVI|", "*.AVI",
                                       session.Outside.Launch.Program_Folder() + "/video"});
    if (!path.empty()) Launch_Viewer(session, path, path);
}

void Edit_Notes(Session& session) {
    const std::string& project = session.Work.Project.CurrentFile;
    const std::string path = Derived_File(project, ".tv5", ".rtf");
    // An editor opens no file that is not there yet; where it cannot be begun, the editor's failure is told.
    std::error_code failed;
    if (path != project && !File_Exists(path) && std::filesystem::is_directory(Folder_Of(path), failed))
        Replace_File(path, "");
    Edit_Text_File(session, path);
}

void Edit_Data_File(Session& session) {
    session.Outside.Ask.Say("Be careful, make a backup copy first...", session.Work.AppTitle, Icon::Warning);
    Edit_Text_File(session, session.Work.Project.CurrentFile);
}

}  // namespace tarnvik
