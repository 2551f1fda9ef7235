#include "app/documents.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "app/dialog_rows.h"
#include "app/session.h"
#include "core/files.h"

namespace tarnvik {

namespace {

/// Opens a document with its viewer; `viewer` is the name said when that fails.
void Launch_Viewer(Session& session, const std::string& path, const std::string& viewer) {
    if (session.Outside.Launch.Open_Document(path) < launch_failure_below) {
        session.Outside.Ask.Say("Unable to shell " + viewer, session.Work.AppTitle, Icon::Critical);
    }
}

/// A PDF document of the program, or `former`, where it was installed in earlier times. Says `missing` when
/// it is in none of its places.
void Open_Pdf(Session& session, std::string_view name, const std::string& former,
              const std::string& missing) {
    const std::string viewer = session.Outside.Launch.Find_Program("PDF");
    if (viewer.empty()) {
        session.Outside.Ask.Say("You must intstall ACROBAT READER from the CD-ROM", session.Work.AppTitle,
                                Icon::Warning);
        return;
    }
    std::string path = Find_Document(session, name);
    if (path.empty() && File_Exists(former)) path = former;
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

std::string Find_Document(const Session& session, std::string_view name) {
    const std::string folder = session.Outside.Launch.Program_Folder();
    // Beside the program; beside the window, for the programs of a build that lie in folders of their own;
    // and where a Unix system keeps the documents of its programs.
    for (const std::string_view place : {"", "/..", "/../ui", "/../share/tarnvik", "/../share/doc/tarnvik"}) {
        std::string path = folder;
        path.append(place).append("/").append(name);
        if (File_Exists(path)) return path;
    }
    return {};
}

std::string Chapter_In_Front(const Session& session) {
    const Display& screen = session.Outside.Show;
    if (const auto dialog = screen.Dialog_In_Front()) {
        if (const DialogRow* row = Row_Of(*dialog)) return row->Chapter;
    }
    switch (screen.Tab_In_Sight().value_or(Tab::Record)) {
        case Tab::Tables:
            return "tables";
        case Tab::Curves:
            return "curves";
        case Tab::Section:
            return "section";
        case Tab::Record:
            break;
    }
    return "record";
}

void Open_Chapter(Session& session, const std::string& chapter) {
    const std::string page = Find_Document(session, "manual/html/" + chapter + ".html");
    if (!page.empty() && session.Outside.Launch.Open_Document(page) >= launch_failure_below) return;
    Open_Manual(session);
}

void Open_Help(Session& session) {
    Open_Chapter(session, Chapter_In_Front(session));
}

void Open_Manual(Session& session) {
    Open_Pdf(session, "manual/tv16.pdf", "c:\\tarnvik\\manual\\tv16.pdf", "You must install tv16.pdf");
}

void Open_History(Session& session) {
    Open_Pdf(session, "Tarnvik_History.pdf", "c:\\tarnvik\\Tarnvik_History.pdf",
             "You must install Tarnvik_History.pdf");
}

void Open_Redpath_Book(Session& session) {
    Open_Pdf(session, "manual/redpath.pdf", "",
             "You must install" + session.Outside.Launch.Program_Folder() + "/manual/redpath.pdf" +
                 "from the CD-ROM");
}

void Open_Slide_Show(Session& session) {
    const std::string viewer = session.Outside.Launch.Find_Program("PPSX");
    std::string path = Find_Document(session, "manual/tarnvik.ppsx");
    if (path.empty()) path = Find_Document(session, "video/tarnvik.ppsx");
    if (!viewer.empty() && !path.empty()) {
        Launch_Viewer(session, path, viewer);
        return;
    }
    // The same pictures, where nothing shows slides.
    const std::string pages = Find_Document(session, "manual/tarnvik_tour.pdf");
    const std::string pdf_viewer = session.Outside.Launch.Find_Program("PDF");
    if (!pages.empty() && !pdf_viewer.empty()) {
        Launch_Viewer(session, pages, pdf_viewer);
        return;
    }
    session.Outside.Ask.Say("You must install a POWER POINT viewer", session.Work.AppTitle, Icon::Warning);
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
