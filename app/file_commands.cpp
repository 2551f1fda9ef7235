#include "app/file_commands.h"

#include <string>

#include "app/commands.h"
#include "app/dialog_commands.h"
#include "app/recovery.h"
#include "app/session.h"
#include "app/start.h"
#include "app/view_commands.h"
#include "core/files.h"
#include "core/project_open.h"
#include "core/project_save.h"
#include "core/settings_file.h"
#include "core/text/letters.h"
#include "core/tv4_file.h"
#include "processing/instruments/conversion.h"
#include "records/su_loading.h"

namespace tarnvik {

void Open_Travel_Time(Session& session) {
    if (!May_Leave_Project(session)) return;
    if (!Select_Project(session.Work, session.Outside, session.Hooks)) return;
    Show_Opened_Project(session);
    Offer_Lost_Work_Of(session, session.Work.Project.CurrentFile);
    const Project& project = session.Work.Project;
    // The opening asks for missing records by itself; whoever declined there gets a second chance here.
    if (!project.SuFile.empty() && !File_Exists(Su_Path(project)) &&
        session.Outside.Ask.Ask_Yes("Do you want to locate the SU File", session.Work.AppTitle)) {
        Load_SU_File_Of_Project(session.Work, session.Outside);
    }
    session.Outside.Ask.Say(" You must (re)compute all thickness to load data in memroy",
                            session.Work.AppTitle, Icon::Information);
    Show_Depth_Dialog(session);
}

void Open_From_Toolbar(Session& session) {
    Read_From_Dialog(session);
}

void Open_Recent_File(Session& session, int place) {
    Open_File_Named(session, session.Work.Settings.RecentFiles[static_cast<std::size_t>(place) - 1]);
}

void Open_Dropped_File(Session& session, const std::string& path) {
    const std::string ending = UCase(Right(path, 4));
    if (ending == ".TV5") {
        if (Open_File_Named(session, path)) Add_Recent_File(session.Work.Settings, path);
        return;
    }
    std::string refusal = "Only project files (TV5) and field records (SU) can be dropped here";
    if (UCase(Right(path, 3)) == ".SU") {
        refusal = Refusal_Of(*Find_Command("Command18"), session);
        if (refusal.empty()) refusal = Path_Refusal(path);
        if (refusal.empty()) {
            if (Load_Chosen_SU_File(session.Work, session.Outside, path))
                session.Outside.Show.Select_Tab(Tab::Record);
            return;
        }
    }
    session.Work.Fields.Status = path + ": " + refusal;
    session.Outside.Show.Show_Fields();
}

void Open_Dropped_Files(Session& session, const std::vector<std::string>& paths) {
    std::vector<std::string> records;
    bool foreign = false;
    for (const std::string& path : paths) {
        const std::string format = Field_Format_Of(path);
        if (format.empty()) continue;
        records.push_back(path);
        foreign |= format != "SU";
    }
    if (!foreign && records.size() < 2) {
        if (!paths.empty()) Open_Dropped_File(session, paths.front());
        return;
    }
    const std::string made = session.FieldFiles.Make_Of(records);
    if (made.empty()) return;
    if (session.Outside.Ask.Ask_Yes("Start a new profile with " + made + " ?", session.Work.AppTitle)) {
        Start_New_Profile_Of(session, made);
    } else {
        Open_Dropped_File(session, made);
    }
}

void Save_Data(Session& session) {
    Write_Project(session.Work, session.Outside);
}

void Save_Data_As(Session& session) {
    Save_Project_As(session.Work, session.Outside);
}

void Ask_For_Backup(Session& session) {
    Ask_For_Backup_Copies(session.Work, session.Outside);
}

void Convert_Bak_To_Tv5(Session& session) {
    if (!May_Leave_Project(session)) return;
    if (!Backup_To_Project(session.Work, session.Outside, session.Hooks)) return;
    Show_Opened_Project(session);
    Offer_Lost_Work_Of(session, session.Work.Project.CurrentFile);
}

void Convert_Tv4_To_Tv5(Session& session) {
    TV4_To_TV5(session.Work, session.Outside);
}

}  // namespace tarnvik
