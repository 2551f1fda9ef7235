#include "app/recovery.h"

#include <filesystem>
#include <system_error>

#include "app/local_time.h"
#include "app/session.h"
#include "app/start.h"
#include "core/edits/kept_files.h"
#include "core/fault.h"
#include "core/files.h"
#include "core/project_file.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

bool Same_File(const std::string& one, const std::string& other) {
    std::error_code failed;
    return one == other || std::filesystem::equivalent(one, other, failed);
}

/// Project block as a project file on the disk has it; empty when there is none that can be read.
std::string Filed_Block(const std::string& path) {
    const auto bytes = Read_File(path);
    if (!bytes) return {};
    Project filed;
    return Parse_Project(*bytes, filed).Refusal.empty() ? Project_Block(filed) : std::string();
}

/// The block as it comes back from a project file, which keeps hundredths. A block that no file has room for
/// is left as it is.
std::string As_Filed(const std::string& block) {
    Project project;
    if (!Take_Project_Block(block, project)) return block;
    try {
        Project filed;
        return Parse_Project(Project_Bytes(project), filed).Refusal.empty() ? Project_Block(filed) : block;
    } catch (const Fault&) {
        return block;
    }
}

/// False for a journal whose edits were all taken back again, or whose project was saved all the same.
bool Tells_Something_New(const JournalContent& journal) {
    const std::string last = journal.Last_Block();
    if (last.empty()) return false;
    const std::string filed = Filed_Block(journal.ProjectFile);
    return filed.empty() || !Same_Filed_Content(filed, As_Filed(last));
}

/// The project of the journal into memory, from its file or, for a line that was never saved, as the journal
/// has it. False when the user was told why not.
bool Open_Project_Of(Session& session, const JournalContent& journal) {
    Project& project = session.Work.Project;
    if (Same_File(journal.ProjectFile, project.CurrentFile) && project.ShotTimes.Has(0, 0)) return true;
    if (File_Exists(journal.ProjectFile)) return Load_And_Show(session, journal.ProjectFile);
    project.CurrentFile = journal.ProjectFile;
    Split_Project_Path(project, journal.ProjectFile);
    session.Work.Fields.Caption = journal.ProjectFile + " [" + session.Work.AppTitle + "]";
    session.Work.Fields.FirstTabCaption = journal.ProjectFile;
    return true;
}

bool Bring_Back(Session& session, const JournalContent& journal) {
    Workspace& work = session.Work;
    if (!Open_Project_Of(session, journal)) return false;
    if (!work.Edits.Restore(work.Project, journal)) {
        session.Outside.Ask.Say(journal.File + " does not fit together; it is left as it is.", work.AppTitle,
                                Icon::Critical);
        return false;
    }
    // The former journal goes only when the new one holds its work.
    if (work.Edits.Has_Journal()) Remove_Journal(journal);
    Scale_Time_Grid(work);
    Show_Opened_Project(session);
    return true;
}

bool Offer(Session& session, const JournalContent& journal) {
    switch (session.Outside.Ask.Message(Lost_Work_Question(journal), session.Work.AppTitle, Icon::Question,
                                        Buttons::YesNoCancel)) {
        case Answer::Yes:
            return Bring_Back(session, journal);
        case Answer::No:
            Give_Up_Files(journal);
            Remove_Journal(journal);
            return false;
        default:
            return false;
    }
}

template <class Wanted>
bool Offer_Each(Session& session, Wanted wanted) {
    for (const JournalContent& journal : Journals_Left_Behind(session.JournalFolder)) {
        if (!wanted(journal)) continue;
        if (!Tells_Something_New(journal)) {
            Remove_Journal(journal);
            continue;
        }
        if (Offer(session, journal)) return true;
    }
    return false;
}

template <class Wanted>
bool Offer_Journals(Session& session, Wanted wanted) {
    if (session.JournalFolder.empty()) return false;
    // Files that were being replaced are put right before anything is read, and what only an answered journal
    // kept goes behind it.
    Clear_Kept_Files(session.JournalFolder);
    const bool brought_back = Offer_Each(session, wanted);
    Clear_Kept_Files(session.JournalFolder);
    return brought_back;
}

}  // namespace

std::string Journal_Folder(const std::string& settings_file) {
    return Folder_Of(settings_file) + "journal";
}

std::string Lost_Work_Question(const JournalContent& journal) {
    const std::string file = journal.ProjectFile.empty() ? "A new profile" : journal.ProjectFile;
    const std::size_t edits = journal.Edits_Of_Project();
    std::string text = file + " : the program ended at " +
                       Local_Time_Text(journal.Last_Time(), "%Y-%m-%d %H:%M:%S") + "; " +
                       CStr(static_cast<double>(edits)) + (edits == 1 ? " edit is" : " edits are") +
                       " not in the project file (last: " + journal.Last_Name() + "). Bring " +
                       (edits == 1 ? "it" : "them") + " back ?";
    const std::string filed = Filed_Block(journal.ProjectFile);
    if (!filed.empty() && !Same_Filed_Content(filed, As_Filed(journal.Base)))
        text += "\r\nThe project file has been changed since.";
    return text;
}

bool Offer_Lost_Work(Session& session, const std::string& opened_next) {
    const bool asks_itself = !opened_next.empty() && File_Exists(opened_next);
    return Offer_Journals(session, [&](const JournalContent& journal) {
        return !asks_itself || !Same_File(journal.ProjectFile, opened_next);
    });
}

bool Offer_Lost_Work_Of(Session& session, const std::string& project_file) {
    return Offer_Journals(session, [&project_file](const JournalContent& journal) {
        return Same_File(journal.ProjectFile, project_file);
    });
}

}  // namespace tarnvik
