#include "processing/new_su_files.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <system_error>

#include "core/files.h"
#include "core/text/number.h"
#include "processing/rewrite_su.h"
#include "records/su_file.h"
#include "records/su_loading.h"

namespace tarnvik {

namespace {

/// The path less ".su" and with another ending.
std::string Beside(const std::string& path, const std::string& ending) {
    return path.substr(0, path.size() - std::min<std::size_t>(path.size(), 3)) + ending;
}

bool May_Replace(Workspace& workspace, Ports& ports, const std::string& path) {
    return !File_Exists(path) || ports.Ask.Ask_Yes(path + " already exists, overwrite ?", workspace.AppTitle);
}

/// Puts the new file under its name as an edit. False after a message.
bool Record(Workspace& workspace, Ports& ports, FreshFile& file, const std::string& edit_name) {
    EditScope edit(workspace, edit_name);
    const std::string reason = file.Put();
    if (reason.empty()) return true;
    edit.Give_Up();
    ports.Ask.Say(file.Path() + " cannot be written: " + reason, workspace.AppTitle, Icon::Critical);
    return false;
}

/// The largest time of the table, ms.
double Latest_Pick(const Workspace& workspace) {
    const TextGrid& grid = workspace.Grids.Buildgrid;
    double latest = 0;
    for (int shot = 1; shot <= workspace.Project.NbShots; ++shot) {
        for (int receiver = 1; receiver <= workspace.Project.NbReceivers; ++receiver)
            latest = std::max(latest, grid.Value(receiver, shot));
    }
    return latest;
}

}  // namespace

void Extract_Traces(Workspace& workspace, Ports& ports) {
    const std::string& title = workspace.AppTitle;
    const int first =
        CInt(Val(ports.Ask.Input("Enter the first trace to keep (0=exit)", title, "1"))).value_or(0);
    if (first == 0) return;
    const int last =
        CInt(Val(ports.Ask.Input("Enter the Last trace to keep (0=exit)", title, ""))).value_or(0);
    if (last == 0 || !Locate_SU_File(workspace, ports)) return;
    const std::string source = Su_Path(workspace.Project);
    const int count = Channels_Kept(source, first, last);
    if (count < 1) {
        ports.Ask.Say("No trace of " + source + " has a channel from " + CStr(first) + " to " + CStr(last),
                      title, Icon::Critical);
        return;
    }
    const std::string out_file = Beside(source, "_Xtract.su");
    if (!May_Replace(workspace, ports, out_file)) return;
    Note_Chain(workspace, Tightened(Extract_Text(ports.Launch.Program_Folder(), source,
                                                 Beside(source, "_tmp.su"), out_file, first, last, count)));
    FreshFile fresh(workspace.Edits, out_file);
    const ChainEnd end =
        Extract_Channels({ports.Launch, workspace.Edits}, source, fresh.Name(), first, last, count);
    if (!end.Well()) {
        Tell_Chain_End(workspace, ports, end);
        return;
    }
    if (!Record(workspace, ports, fresh, "Extract traces " + CStr(first) + " to " + CStr(last))) return;
    ports.Ask.Say("Trace extraction OK ! New SU file has been recorded as " + out_file, title,
                  Icon::Information);
}

void Resize_Channels(Workspace& workspace, Ports& ports) {
    const std::string& title = workspace.AppTitle;
    if (!Locate_SU_File(workspace, ports)) return;
    const std::string source = Su_Path(workspace.Project);
    const double latest = Rounded(Latest_Pick(workspace));
    const auto samples = CInt(latest * 1.5);
    if (!samples || *samples < 1) {
        ports.Ask.Say(samples ? "The table holds no first break: the new length of the records is one and a "
                                "half times the latest one"
                              : "The new records would be too long for an SU file",
                      title, Icon::Critical);
        return;
    }
    const std::string out_file = Beside(source, "_RS.SU");
    if (!May_Replace(workspace, ports, out_file)) return;
    Note_Chain(workspace,
               Tightened(Resample_Text(ports.Launch.Program_Folder(), source, out_file, *samples)));
    FreshFile fresh(workspace.Edits, out_file);
    constexpr double interval_us = 1000;
    const ChainEnd end =
        Resample({ports.Launch, workspace.Edits}, source, fresh.Name(), *samples, interval_us, 0);
    if (!end.Well()) {
        Tell_Chain_End(workspace, ports, end, "Unable to shell SURESAMP", false);
        return;
    }
    if (!Record(workspace, ports, fresh, "Resize channels to " + CStr(int{*samples}) + " samples")) return;
    ports.Ask.Say(out_file + " has been recorded ", title, Icon::Information);
}

}  // namespace tarnvik
