#include "app/opening.h"

#include "core/files.h"
#include "core/project_file.h"
#include "core/project_open.h"
#include "core/text/letters.h"

namespace tarnvik {

namespace {

constexpr std::size_t longest_path = 90;
constexpr std::size_t shortest_recent_path = 6;
constexpr std::size_t caption_letters = 35;

void Run(const std::function<void()>& hook) {
    if (hook) hook();
}

bool Starts_A_Letter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

/// The last letters of a text, counted as letters and not as bytes.
std::string Last_Letters(const std::string& text, std::size_t count) {
    std::size_t start = text.size();
    for (std::size_t letters = 0; start > 0 && letters < count;) {
        if (Starts_A_Letter(text[--start])) ++letters;
    }
    return text.substr(start);
}

std::size_t Letter_Count(const std::string& text) {
    std::size_t letters = 0;
    for (const char byte : text)
        letters += Starts_A_Letter(byte) ? 1 : 0;
    return letters;
}

bool Is_Untouched_Default(const std::string& path) {
    return UCase(path) == "*.TV5";
}

/// The word that refuses CurrentFile; empty when it may be opened.
std::string Refusal_Of(const std::string& path) {
    if (UCase(Right(path, 3)) != "TV5") return "No TV5 file selected ";
    if (!File_Exists(path)) return "This file does not exist !";
    // Found out before the previous project is thrown away.
    if (!Read_File(path)) return path + " cannot be read";
    return {};
}

/// Told, and agreed to where something is missing, before the project in memory is thrown away.
bool May_Be_Opened(const Workspace& workspace, Ports& ports, const std::string& path,
                   const ReadingReport& report) {
    if (!report.Refusal.empty()) {
        ports.Ask.Say(No_Project_Text(path, report), workspace.AppTitle, Icon::Critical);
        return false;
    }
    if (report.Missing.empty()) return true;
    return ports.Ask.Message(path + "\r\n" + report.Missing + "\r\nOpen anyway ?", workspace.AppTitle,
                             Icon::Warning, Buttons::OpenCancel) == Answer::Ok;
}

void Reset_Views(Workspace& workspace) {
    CurveView& curves = workspace.Curves;
    curves.ZoomX = 1;
    curves.ZoomY = 1;
    curves.HScroll1.Value = 0;
    curves.VScroll1.Value = 0;
    workspace.Velocity.CurrentShot = 1;
    workspace.Record.Record = 1;
}

}  // namespace

bool Open_Project(Workspace& workspace, Ports& ports, const OpeningHooks& hooks, bool just_opened) {
    workspace.Fields.Text1.clear();
    // A copy, since the hooks may set another CurrentFile.
    const std::string path = workspace.Project.CurrentFile;
    const std::string refusal = Refusal_Of(path);
    if (!refusal.empty()) {
        ports.Ask.Say(refusal, workspace.AppTitle, Icon::Critical);
        return false;
    }
    Project read = workspace.Project;
    const ReadingReport report = Parse_Project(Read_File(path).value_or(""), read);
    if (!just_opened && !May_Be_Opened(workspace, ports, path, report)) return false;
    workspace.Fields.Caption = Last_Letters(path, caption_letters) + "  [" + workspace.AppTitle + "]";
    Erase_Project(workspace.Project);
    // A file cut before it names its records must not take those of the former line.
    workspace.Project.SuFile.clear();
    Check_Project_Name(workspace, ports, path);
    Read_Project(workspace, path);
    workspace.Fields.FirstTabCaption = path;
    Scale_Time_Grid(workspace);
    Reset_Views(workspace);
    Run(hooks.OfferSuFile);
    // A backup copy of what is left of a file would cost the whole one that may still stand there.
    const std::string reason =
        report.Missing.empty() ? Backup_Project(path) : Name_Of(path) + " is not whole";
    if (!reason.empty()) workspace.Fields.Status = "No backup copy: " + reason;
    Run(hooks.ReadGrmFile);
    ports.Show.Show_Grids();
    ports.Show.Show_Fields();
    return true;
}

bool Open_Named_Project(Workspace& workspace, Ports& ports, const OpeningHooks& hooks,
                        const std::string& path, bool agreed) {
    Project& project = workspace.Project;
    const std::string former_file = project.CurrentFile;
    const std::string former_folder = project.ProjectDir;
    const std::string former_name = project.ProjectName;
    project.CurrentFile = path;
    if (Open_Project(workspace, ports, hooks, agreed)) return true;
    project.CurrentFile = former_file;
    project.ProjectDir = former_folder;
    project.ProjectName = former_name;
    return false;
}

bool Select_Project(Workspace& workspace, Ports& ports, const OpeningHooks& hooks) {
    Clear_Selection(workspace.Curves);
    workspace.Curves.PickMoving = 0;
    const std::string path =
        ports.Ask.Open_File({"Tarnvik File selection", "File Tarnvik TV5 |*.TV5|File Tarnvik BAK |*.BAK|",
                             "*.TV5", workspace.Project.ProjectDir});
    if (path.empty() || Is_Untouched_Default(path)) return false;
    bool opened = false;
    if (Letter_Count(path) > longest_path) {
        ports.Ask.Say(path + " path is too long", workspace.AppTitle, Icon::Critical);
    } else {
        opened = Open_Named_Project(workspace, ports, hooks, path);
    }
    if (Letter_Count(path) >= shortest_recent_path) Add_Recent_File(workspace.Settings, path);
    workspace.Record.Record = 1;
    ports.Show.Show_Fields();
    return opened;
}

bool Backup_To_Project(Workspace& workspace, Ports& ports, const OpeningHooks& hooks) {
    const std::string backup = ports.Ask.Open_File(
        {"Tarnvik BAK TV5 selection", "File Tarnvik TV5 |*.BAK|", "*.BAK", workspace.Project.ProjectDir});
    if (backup.empty()) return false;
    // A copy that is no project, or cut, must not go over a whole file unasked.
    Project ignored;
    if (!May_Be_Opened(workspace, ports, backup, Parse_Project(Read_File(backup).value_or(""), ignored)))
        return false;
    const std::string path = Folder_Of(backup) + Replace_First(Name_Of(backup), ".bak", ".tv5");
    const std::string reason = path == backup ? std::string() : Copy_File(backup, path);
    if (!reason.empty()) {
        ports.Ask.Say(path + " cannot be written: " + reason, workspace.AppTitle, Icon::Critical);
        return false;
    }
    if (!Open_Named_Project(workspace, ports, hooks, path, true)) return false;
    Take_Records_Beside(workspace, hooks);
    return true;
}

bool Take_Records_Beside(Workspace& workspace, const OpeningHooks& hooks) {
    Project& project = workspace.Project;
    const std::string su_file = Derived_File(project.CurrentFile, ".tv5", ".su");
    if (su_file == project.CurrentFile || !File_Exists(su_file)) return false;
    // A name without a folder means this very file already and stays as short as it is.
    if (project.ProjectDir + project.SuFile == su_file) return true;
    // Of two files of one name the user has chosen when the project was opened.
    if (!Folder_Of(project.SuFile).empty() && Name_Of(project.SuFile) == Name_Of(su_file) &&
        File_Exists(project.SuFile)) {
        return true;
    }
    project.SuFile = su_file;
    workspace.Fields.Label16 = su_file;
    // What opening finds out by itself is no unsaved work.
    if (workspace.Edits.All().empty()) workspace.Edits.Start(project, workspace.Edits.Is_Saved());
    Run(hooks.OfferSuFile);
    return true;
}

}  // namespace tarnvik
