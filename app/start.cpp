#include "app/start.h"

#include "app/recovery.h"
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
constexpr const char* point_key = "DecimalPoint";

void Insist_On_Decimal_Point(Session& session) {
    if (session.Outside.Launch.Decimal_Separator() == ".") return;
    // Asked until the user agrees, and then never again.
    if (Read_Setting(session.SettingsFile, "tarnvik", point_key) == "1") {
        session.Outside.Launch.Set_Decimal_Point();
        return;
    }
    const Answer answer = session.Outside.Ask.Message(
        " Decimal separator is a comma, TARNVIK can modify the decimal separator" + line_end +
            "a point is required to run correctly all modules! " + line_end,
        session.Work.AppTitle, Icon::Question, Buttons::OkCancel);
    if (answer != Answer::Ok) return;
    session.Outside.Launch.Set_Decimal_Point();
    Write_Setting(session.SettingsFile, "tarnvik", point_key, "1");
}

/// The project file of the command line; empty without one. The quotes around the path are taken off,
/// whatever they are.
std::string Project_Of(const std::string& command_line) {
    return command_line.size() < 4 ? std::string() : command_line.substr(1, command_line.size() - 2);
}

void Open_Given_Project(Session& session, const std::string& path) {
    Workspace& work = session.Work;
    if (!Open_File_Named(session, path)) return;
    // Shown once more when the records beside the project are others than those it names.
    const std::string shown = work.Project.SuFile;
    if (Take_Records_Beside(work, session.Hooks) && work.Project.SuFile != shown && session.Hooks.LoadSuFile)
        session.Hooks.LoadSuFile();
}

/// The colours that the user has chosen for the curves, also while a dialog shows them otherwise.
void Write_Settings_Chosen(Session& session) {
    bool& by_velocity = session.Work.Settings.ColorChoice;
    const bool shown = by_velocity;
    by_velocity = shown || session.Phantom.ColoursByVelocity;
    Write_Settings(session.Work, session.Outside, session.SettingsFile);
    by_velocity = shown;
}

}  // namespace

void Form_Load(Session& session, const std::string& command_line) {
    Workspace& work = session.Work;
    work.AppTitle = "Tarnvik 16.5";
    // Without a settings file this is the first start: from now on the desktop opens project files with this
    // program.
    const bool first_start = !File_Exists(session.SettingsFile);
    Insist_On_Decimal_Point(session);
    work.NoOffsetShots = true;
    work.Project.NbReceivers = 24;
    work.Curves.ZoomX = 1;
    work.Curves.ZoomY = 1;
    Clear_Selection(session.Work.Curves);
    work.Mode.Display(DisplayMode::Dromo);
    if (first_start) session.Outside.Launch.Register_File_Type();
    Read_Settings(work, session.Outside, session.SettingsFile);
    if (!work.Project.CurrentFile.empty()) work.Settings.RecentFiles[0] = work.Project.CurrentFile;
    work.Fields.Caption = work.AppTitle;
    Affiche_Remark_Grid(work.Project);
    work.Fields.Text25 = CStr(work.Project.TotalTime);
    session.Outside.Show.Show_Fields();

    const std::string path = Project_Of(command_line);
    if (Offer_Lost_Work(session, path)) return;
    if (path.empty()) {
        session.Outside.Show.Open_Dialog(Dialog::frmSplash, true);
    } else {
        Open_Given_Project(session, path);
    }
}

bool May_Leave_Project(Session& session) {
    session.TriggerFault.Offer_To_Save();
    const Workspace& work = session.Work;
    if (work.Edits.Is_Saved()) return true;
    const std::string file = work.Project.CurrentFile;
    switch (
        session.Outside.Ask.Message((file.empty() ? "The project" : file) + " has edits that are not saved.",
                                    work.AppTitle, Icon::Question, Buttons::SaveDiscardCancel)) {
        case Answer::Yes:
            return Write_Project(session.Work, session.Outside);
        case Answer::No:
            return true;
        default:
            return false;
    }
}

bool Load_And_Show(Session& session, const std::string& path) {
    const bool opened = Open_Named_Project(session.Work, session.Outside, session.Hooks, path);
    Clear_Selection(session.Work.Curves);
    if (opened) Show_Opened_Project(session);
    return opened;
}

bool Open_File_Named(Session& session, const std::string& path) {
    if (!May_Leave_Project(session) || !Load_And_Show(session, path)) return false;
    Offer_Lost_Work_Of(session, session.Work.Project.CurrentFile);
    return true;
}

void Show_Opened_Project(Session& session) {
    session.LeftOutByCount.clear();
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
    if (!May_Leave_Project(session)) return;
    session.Outside.Show.Select_Tab(Tab::Curves);
    if (Select_Project(session.Work, session.Outside, session.Hooks)) {
        // Read a second time, so that the opening with its questions is the same on every road.
        Open_Project(session.Work, session.Outside, session.Hooks, true);
        Show_Opened_Project(session);
        Offer_Lost_Work_Of(session, session.Work.Project.CurrentFile);
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
    Write_Settings_Chosen(session);
    if (Unload_Form(session)) End_Session(session);
}

void Exit_At_Once(Session& session) {
    const std::string& title = session.Work.AppTitle;
    if (session.Outside.Ask.Ask_Yes("Do you want really to exit " + title, "Exit " + title))
        End_Session(session);
}

void End_Session(Session& session) {
    // The user has decided about the work of this session.
    session.Work.Edits.Close();
    session.TriggerFault.Drop_Shift();
    // How the project was looked at is no work that could be lost: a failure is not worth a question.
    session.Work.Choices.Save();
    session.Outside.Show.End_Program();
}

bool Unload_Form(Session& session) {
    session.TriggerFault.Offer_To_Save();
    Workspace& work = session.Work;
    const std::string& title = work.AppTitle;
    const std::string path = work.Project.CurrentFile;
    Prompts& ask = session.Outside.Ask;
    const Answer record = ask.Message("Record " + path, title, Icon::Question, Buttons::YesNoCancel);
    if (record == Answer::Cancel) return false;
    // Without a project there is nothing that could be lost.
    const bool has_project = work.Project.ShotTimes.Has(0, 0);
    if (record == Answer::Yes && !Write_Project(work, session.Outside) && has_project) return false;
    const Answer backup =
        ask.Message("Record a Back Up file of " + path, title, Icon::Question, Buttons::YesNoCancel);
    if (backup == Answer::Cancel) return false;
    if (backup == Answer::Yes) {
        const std::string reason = Backup_Project(path);
        if (!reason.empty()) ask.Say(reason, title, Icon::Critical);
    }
    return true;
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
