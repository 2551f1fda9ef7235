#include "setup/new_profile.h"

#include <utility>
#include <vector>

#include "core/files.h"
#include "core/project_file.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "records/record_files.h"
#include "records/renumbering.h"
#include "records/su_file.h"
#include "records/su_loading.h"
#include "setup/build_grid.h"
#include "setup/spread.h"

namespace tarnvik {

namespace {

constexpr const char* number_traces = "Number the traces";
constexpr const char* converter = "C:\\tarnvik\\SEG2SU.EXE";

/// The number that a trace gets as its `ep`: from 1 to `channels` and from 1 again.
std::int32_t Counter_Of(std::int32_t trace, std::int32_t channels) {
    return channels > 0 ? (trace - 1) % channels + 1 : 1;
}

/// Which words Number_Traces would change, and whether it may.
Numbering Ask_About_Numbers(Workspace& workspace, Ports& ports) {
    const std::string path = Su_Path(workspace.Project);
    SuTraces file(path);
    const std::int32_t channels = workspace.Record.ChannelsPerRecord;
    const NumberedWord numbering[] = {
        {words::tracl,
         [&file](std::int32_t trace) {
             return static_cast<std::int32_t>(file.Word_Or_Zero(trace, words::tracf));
         }},
        {words::ep, [channels](std::int32_t trace) { return Counter_Of(trace, channels); }}};
    return Ask_For_Numbering(workspace, ports, path, file.Nb_Traces().value_or(0), numbering);
}

/// Numbers the records just chosen and names their project file. False when the user gave up.
bool Take_Up_Records(Workspace& workspace, Ports& ports) {
    Project& project = workspace.Project;
    const Numbering numbering = Ask_About_Numbers(workspace, ports);
    if (numbering == Numbering::GiveUp) return false;
    if (numbering == Numbering::Renumber) {
        const std::string reason = Number_Traces(workspace, workspace.Record.ChannelsPerRecord);
        if (!reason.empty()) {
            ports.Ask.Say(project.SuFile + " cannot be written: " + reason, workspace.AppTitle,
                          Icon::Warning);
        }
    }
    project.CurrentFile.clear();
    Split_Project_Path(project, project.CurrentFile);
    std::string path = Derived_File(project.SuFile, ".su", ".tv5");
    // Records of another ending would be overwritten by their own project.
    if (path == project.SuFile) path += ".tv5";
    if (File_Exists(path) && !ports.Ask.Ask_Yes(path + " already exists, overwrite ?", workspace.AppTitle)) {
        path = ports.Ask.Save_File(
            {"Select a new Tarnvik File Name", "Fichier Tarnvik *.TV5", path, project.ProjectDir});
        if (path.empty()) return false;
        if (Name_Of(path).find('.') == std::string::npos) path += ".TV5";
    }
    project.CurrentFile = path;
    Split_Project_Path(project, path);
    return true;
}

/// Where a new line is set up while the one in memory still stands.
void Begin_Aside(Workspace& aside, const Workspace& workspace) {
    aside.AppTitle = workspace.AppTitle;
    aside.Settings = workspace.Settings;
    aside.NoOffsetShots = workspace.NoOffsetShots;
    aside.Fields = workspace.Fields;
    aside.Record = workspace.Record;
    aside.Grids.size_grid = workspace.Grids.size_grid;
    aside.Resize = workspace.Resize;
    aside.Convert = workspace.Convert;
    aside.Project.ProjectDir = workspace.Project.ProjectDir;  // where the file dialogs begin
    aside.Project.GeoSpace = workspace.Project.GeoSpace;      // offered as the spacing
}

/// Whether there are SU files to begin with; the converter is started where there are none yet. False when
/// the user gave up.
bool Ask_About_Conversion(const Workspace& workspace, Ports& ports) {
    const Answer converted = ports.Ask.Message("Did you already convert your field data to SU format",
                                               workspace.AppTitle, Icon::Question, Buttons::YesNoCancel);
    if (converted != Answer::No) return converted == Answer::Yes;
    if (ports.Launch.Start(converter, "412", ports.Launch.Program_Folder()) < launch_failure_below) {
        ports.Ask.Say(std::string(converter) + "Unable to shell application:", workspace.AppTitle,
                      Icon::Critical);
    }
    return ports.Ask.Ask_Yes("Now pick FBP ", workspace.AppTitle);
}

using FileChanges = std::vector<FileChange>;

/// What was written into the files so far becomes an edit of the line in memory.
void Note_File_Changes(Workspace& workspace, const std::string& name, const FileChanges& files) {
    const EditScope edit(workspace, name);
    for (const FileChange& file : files) {
        for (const ByteChanges::Run& run : file.Bytes.All())
            workspace.Edits.Note_File_Change(file.Path, run.Position, run.Before, run.After);
    }
}

/// The grid of a line without picks, with the captions that the entry of a line has.
void Build_Grid(Workspace& workspace) {
    Fill_Grid(workspace);
    Lay_Out_Grid(workspace.Grids.Buildgrid, BuildgridLayout(workspace.Project),
                 BuildgridCaptions::NewProfile);
    workspace.Grids.Buildgrid.CurrentRow = 1;
    workspace.Grids.Buildgrid.CurrentColumn = 1;
}

/// The questions of the flow from the choice of the SU file to the geometry. False when the user gave up.
bool Set_Up_Aside(Workspace& aside, Ports& ports, rechinfo& dialog, const std::string& records) {
    const bool loaded =
        records.empty() ? Load_SU_File(aside, ports) : Load_Chosen_SU_File(aside, ports, records);
    if (!loaded || !Take_Up_Records(aside, ports)) return false;
    const std::string numbered = aside.Project.SuFile;
    dialog.Clear();
    dialog.Affichage(aside);
    ports.Show.Open_Dialog(Dialog::rechinfo, true);
    if (dialog.Cancelled) return false;
    if (aside.Project.SuFile != numbered && !Take_Up_Records(aside, ports)) return false;
    const std::string refusal = Set_Up_Project(aside, dialog.Read_Spread());
    if (refusal.empty()) return true;
    ports.Ask.Say(refusal, aside.AppTitle, Icon::Critical);
    return false;
}

/// The new line replaces the one in memory, and its history begins.
void Take_Over(Workspace& workspace, Workspace&& aside, Ports& ports) {
    ports.Show.Canvas_Of(Canvas::Dromo).Clear();
    ports.Show.Canvas_Of(Canvas::Ecran).Clear();
    workspace.Project = std::move(aside.Project);
    workspace.Record = std::move(aside.Record);
    workspace.Fields = std::move(aside.Fields);
    workspace.Grids.size_grid = std::move(aside.Grids.size_grid);
    workspace.Velocity = {};
    workspace.Curves.FrameDrawn = 0;
    workspace.Curves.ZoomX = 1;
    workspace.Curves.ZoomY = 1;
    Clear_Selection(workspace.Curves);
    Scale_Time_Grid(workspace);
    efface_grille(workspace);
    Build_Grid(workspace);
    workspace.Mode.Display(DisplayMode::Dromo);
    workspace.Fields.Caption = workspace.Project.CurrentFile + " [" + workspace.AppTitle + "]";
    workspace.FileOnDisk = workspace.Project.CurrentFile;  // its replacement has been agreed to
    workspace.Edits.Start(workspace.Project, false);
    ports.Show.Select_Tab(Tab::Tables);
}

}  // namespace

std::string Number_Traces(Workspace& workspace, std::int32_t channels) {
    const EditScope edit(workspace, number_traces);
    RecordFiles files(workspace);
    if (!files.Is_Open()) return files.Traces().Reason();
    const int traces = files.Last_Trace();
    for (int trace = 1; trace <= traces; ++trace) {
        const auto channel = files.Traces().Word(trace, words::tracf);
        if (!channel) break;  // a fragment that only counts as a trace
        files.Set_Word(trace, words::ep, Counter_Of(trace, channels));
        files.Set_Word(trace, words::tracl, *channel);
        if (files.Failed()) return files.First_Fault();
    }
    return {};
}

bool New_Profile(Workspace& workspace, Ports& ports, rechinfo& dialog, const std::string& records) {
    if (records.empty() && !Ask_About_Conversion(workspace, ports)) return false;

    Workspace aside;
    Begin_Aside(aside, workspace);
    FileChanges numbered;
    aside.Edits.On_Change = [&](const ChangeNotice& notice) {
        FileChanges files;
        for (const FileChange* file : notice.Files)
            files.push_back(*file);
        if (files.empty()) return;
        numbered.insert(numbered.end(), files.begin(), files.end());
        Note_File_Changes(workspace, number_traces, files);
    };
    const bool made = Set_Up_Aside(aside, ports, dialog, records);
    dialog.Leave_Line();
    if (!made) return false;
    aside.Edits.On_Change = nullptr;
    Take_Over(workspace, std::move(aside), ports);
    if (!numbered.empty()) Note_File_Changes(workspace, number_traces, numbered);
    ports.Show.Show_Grids();
    ports.Show.Show_Fields();
    ports.Ask.Say(
        "Now you must pick FBP on screen, the Travel Time will be build automatically\r\n"
        "You can correct any FBP on FIELD RECORD Pannel",
        workspace.AppTitle, Icon::Information);
    return true;
}

}  // namespace tarnvik
