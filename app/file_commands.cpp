#include "app/file_commands.h"

#include <string>

#include "app/dialog_commands.h"
#include "app/recovery.h"
#include "app/session.h"
#include "app/start.h"
#include "app/view_commands.h"
#include "core/files.h"
#include "core/project_open.h"
#include "core/project_save.h"
#include "core/settings_file.h"
#include "core/tv4_file.h"
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
