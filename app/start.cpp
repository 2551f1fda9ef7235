#include "app/start.h"

#include "app/documents.h"
#include "app/session.h"
#include "app/view_commands.h"
#include "core/files.h"
#include "core/project_open.h"
#include "core/project_save.h"
#include "core/settings_file.h"
#include "core/text/number.h"
#include "setup/build_grid.h"

namespace tarnvik {

namespace {

const std::string line_end = "\r\n";

void Insist_On_Decimal_Point(Session& session) {
    if (session.Outside.Launch.Decimal_Separator() == ".") return;
    const Answer answer = session.Outside.Ask.Message(
        " Decimal separator is a comma, TARNVIK can modify the decimal separator" + line_end +
            "a point is required to run correctly all modules! " + line_end,
        session.Work.AppTitle, Icon::Question, Buttons::OkCancel);
    if (answer == Answer::Ok) session.Outside.Launch.Set_Decimal_Point();
}

}  // namespace

void Form_Load(Session& session, const std::string& command_line) {
    Workspace& work = session.Work;
    work.AppTitle = "Tarnvik 16.5";
    Insist_On_Decimal_Point(session);
    work.NoOffsetShots = true;
    work.Project.NbReceivers = 24;
    work.Curves.ZoomX = 1;
    work.Curves.ZoomY = 1;
    Clear_Selection(session.Work.Curves);
    work.Mode.Display(DisplayMode::Dromo);
    // Without a settings file this is the first start: from now on the desktop opens project files with this
    // program.
    if (!File_Exists(session.SettingsFile)) session.Outside.Launch.Register_File_Type();
    Read_Settings(work, session.Outside, session.SettingsFile);
    work.Fields.Caption = work.AppTitle;
    Affiche_Remark_Grid(work.Project);
    work.Fields.Text25 = CStr(work.Project.TotalTime);
    session.Outside.Show.Show_Fields();

    if (command_line.size() < 4) {
        session.Outside.Show.Open_Dialog(Dialog::frmSplash, true);
        return;
    }
    if (!Open_File_Named(session, command_line.substr(1, command_line.size() - 2))) return;
    // Shown once more when the records beside the project are others than those it names.
    const std::string shown = work.Project.SuFile;
    if (Take_Records_Beside(work, session.Hooks) && work.Project.SuFile != shown) {
        if (session.Hooks.LoadSuFile) session.Hooks.LoadSuFile();
    }
}

bool Open_File_Named(Session& session, const std::string& path) {
    const bool opened = Open_Named_Project(session.Work, session.Outside, session.Hooks, path);
    Clear_Selection(session.Work.Curves);
    if (opened) Show_Opened_Project(session);
    return opened;
}

void Show_Opened_Project(Session& session) {
    Close_Computing_Dialogs(session);
    Clear_Display(session);
    Clear_Selection(session.Work.Curves);
    session.Work.Mode.Display(DisplayMode::Dromo);
    session.Outside.Show.Select_Tab(Tab::Curves);
    session.Outside.Show.Show_Curves();
    if (session.Hooks.LoadSuFile) session.Hooks.LoadSuFile();
    Tell_Times_Below_0(session.Work);
    session.Outside.Show.Show_Fields();
}

void Read_From_Dialog(Session& session) {
    session.Outside.Show.Select_Tab(Tab::Curves);
    if (Select_Project(session.Work, session.Outside, session.Hooks)) {
        // Read and backed up a second time; this order is meant.
        Open_Project(session.Work, session.Outside, session.Hooks);
        Show_Opened_Project(session);
    }
    Clear_Selection(session.Work.Curves);
}

void Display_Last_File(Session& session) {
    if (!Open_File_Named(session, session.Work.Settings.RecentFiles[0])) return;
    // The doubled letters are part of the text that users know.
    const Answer answer =
        session.Outside.Ask.Message(" You must (re) computecomute thickness to load data in memroy",
                                    session.Work.AppTitle, Icon::Information, Buttons::OkCancel);
    if (answer == Answer::Ok) session.Outside.Show.Open_Dialog(Dialog::Fcalcul, true);
}

void Quit(Session& session, bool only_ok) {
    const Answer answer =
        session.Outside.Ask.Message("This will end your Tarnvik session", session.Work.AppTitle,
                                    Icon::Question, only_ok ? Buttons::Ok : Buttons::YesNo);
    if (answer != Answer::Yes && answer != Answer::Ok) return;
    Write_Settings(session.Work, session.Outside, session.SettingsFile);
    Unload_Form(session);
    session.Outside.Show.End_Program();
}

void Exit_At_Once(Session& session) {
    const std::string& title = session.Work.AppTitle;
    if (session.Outside.Ask.Ask_Yes("Do you want really to exit " + title, "Exit " + title)) {
        session.Outside.Show.End_Program();
    }
}

void Unload_Form(Session& session) {
    const std::string& title = session.Work.AppTitle;
    const std::string path = session.Work.Project.CurrentFile;
    if (session.Outside.Ask.Ask_Yes("Record " + path, title)) Write_Project(session.Work, session.Outside);
    if (session.Outside.Ask.Ask_Yes("Record a Back Up file of " + path, title)) {
        const std::string reason = Backup_Project(path);
        if (!reason.empty()) session.Outside.Ask.Say(reason, title, Icon::Critical);
    }
}

void Resize_Form(Session& session) {
    PictureMode& mode = session.Work.Mode;
    if (mode.On_Display() == DisplayMode::Abc) mode.Display(DisplayMode::Profil2);
    if (mode.On_Display() == DisplayMode::Profil2 || mode.On_Display() == DisplayMode::Profil) {
        session.Outside.Show.Show_Profile();
    } else if (mode.On_Display() == DisplayMode::Dromo) {
        session.Outside.Show.Show_Curves();
    }
}

}  // namespace tarnvik
