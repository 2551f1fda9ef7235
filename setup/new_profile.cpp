#include "setup/new_profile.h"

#include "core/files.h"
#include "core/project_file.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "records/record_files.h"
#include "records/su_file.h"
#include "records/su_loading.h"
#include "setup/build_grid.h"
#include "setup/spread.h"

namespace tarnvik {

namespace {

constexpr const char* converter = "C:\\tarnvik\\SEG2SU.EXE";

/// No project in memory: what a flow leaves that was given up halfway.
bool Give_Up(Workspace& workspace, Ports& ports) {
    workspace.Project.CurrentFile.clear();
    ports.Show.Show_Grids();
    ports.Show.Show_Fields();
    return false;
}

/// Numbers the records just chosen and names their project file. False when the user gave up.
bool Take_Up_Records(Workspace& workspace, Ports& ports) {
    Project& project = workspace.Project;
    const std::string reason = Number_Traces(workspace, workspace.Record.ChannelsPerRecord);
    if (!reason.empty()) {
        ports.Ask.Say(project.SuFile + " cannot be written: " + reason, workspace.AppTitle, Icon::Warning);
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

/// The grid of a line without picks, with the captions that the entry of a line has.
void Build_Grid(Workspace& workspace) {
    Fill_Grid(workspace);
    Lay_Out_Grid(workspace.Grids.Buildgrid, BuildgridLayout(workspace.Project),
                 BuildgridCaptions::NewProfile);
    workspace.Grids.Buildgrid.CurrentRow = 1;
    workspace.Grids.Buildgrid.CurrentColumn = 1;
}

}  // namespace

std::string Number_Traces(Workspace& workspace, std::int32_t channels) {
    const EditScope edit(workspace, "Number the traces");
    RecordFiles files(workspace);
    if (!files.Is_Open()) return files.Traces().Reason();
    const int traces = files.Last_Trace();
    std::int32_t counter = 1;
    for (int trace = 1; trace <= traces; ++trace) {
        const auto channel = files.Traces().Word(trace, words::tracf);
        if (!channel) break;  // a fragment that only counts as a trace
        files.Set_Word(trace, words::ep, counter);
        files.Set_Word(trace, words::tracl, *channel);
        if (files.Failed()) return files.First_Fault();
        if (++counter > channels) counter = 1;
    }
    return {};
}

bool New_Profile(Workspace& workspace, Ports& ports, rechinfo& dialog) {
    Project& project = workspace.Project;
    const Answer converted = ports.Ask.Message("Did you already convert your field data to SU format",
                                               workspace.AppTitle, Icon::Question, Buttons::YesNoCancel);
    if (converted == Answer::Cancel) return false;
    if (converted == Answer::No) {
        if (ports.Launch.Start(converter, "412", ports.Launch.Program_Folder()) < launch_failure_below) {
            ports.Ask.Say(std::string(converter) + "Unable to shell application:", workspace.AppTitle,
                          Icon::Critical);
        }
        if (!ports.Ask.Ask_Yes("Now pick FBP ", workspace.AppTitle)) return false;
    }

    ports.Show.Canvas_Of(Canvas::Dromo).Clear();
    ports.Show.Canvas_Of(Canvas::Ecran).Clear();
    project.CurrentFile.clear();
    project.SuFile.clear();
    Erase_Project(project);
    // Counts without arrays would be believed by whoever comes next.
    project.NbShots = 0;
    project.NbReceivers = 0;
    workspace.Curves.FrameDrawn = 0;
    efface_grille(workspace);
    ports.Show.Select_Tab(Tab::Tables);
    workspace.Grids.Buildgrid.CurrentRow = 1;
    workspace.Grids.Buildgrid.CurrentColumn = 1;

    if (!Load_SU_File(workspace, ports)) return Give_Up(workspace, ports);
    if (!Take_Up_Records(workspace, ports)) return Give_Up(workspace, ports);
    const std::string numbered = project.SuFile;
    // Nothing of the line entered before.
    for (std::string* field : {&dialog.Text1, &dialog.Text2, &dialog.Text4, &dialog.Text5})
        field->clear();
    dialog.Check1 = false;
    dialog.Check2 = false;
    dialog.Affichage();
    ports.Show.Open_Dialog(Dialog::rechinfo, true);
    if (dialog.Cancelled) return Give_Up(workspace, ports);
    if (project.SuFile != numbered && !Take_Up_Records(workspace, ports)) return Give_Up(workspace, ports);

    const std::string refusal = Set_Up_Project(workspace, dialog.Read_Spread());
    if (!refusal.empty()) {
        ports.Ask.Say(refusal, workspace.AppTitle, Icon::Critical);
        return Give_Up(workspace, ports);
    }
    Build_Grid(workspace);
    workspace.Mode.Display(DisplayMode::Dromo);
    workspace.Fields.Caption = project.CurrentFile + " [" + workspace.AppTitle + "]";
    ports.Show.Show_Grids();
    ports.Show.Show_Fields();
    ports.Ask.Say(
        "Now you must pick FBP on screen, the Travel Time will be build automatically\r\n"
        "You can correct any FBP on FIELD RECORD Pannel",
        workspace.AppTitle, Icon::Information);
    return true;
}

}  // namespace tarnvik
