#include "setup/stack_shots.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/files.h"
#include "core/text/number.h"
#include "processing/rewrite_su.h"
#include "records/spread_layout.h"
#include "records/su_file.h"
#include "records/su_loading.h"
#include "setup/remove_shot.h"

namespace tarnvik {

namespace {

void Say_Error(Workspace& workspace, Ports& ports, const std::string& text) {
    ports.Ask.Say(text, workspace.AppTitle, Icon::Critical);
}

int Asked(Ports& ports, const Workspace& workspace, const std::string& prompt, const std::string& initial) {
    return CInt(Val(ports.Ask.Input(prompt, workspace.AppTitle, initial))).value_or(0);
}

/// The shots that the user wants to stack; nothing after a refusal.
std::optional<StackPlan> Asked_Plan(Workspace& workspace, Ports& ports) {
    const SpreadLayout layout(workspace);
    StackPlan plan;
    plan.Channels = layout.Channels();
    // Records beyond those of the project are kept too.
    plan.Records = std::max<int>(layout.Records(), workspace.Project.NbShots);
    plan.First = Asked(ports, workspace, " First shot to stack ", "1");
    plan.Last = Asked(ports, workspace, " Last shot to stack ", "2");
    if (plan.First > plan.Last) std::swap(plan.First, plan.Last);
    if (plan.First < 1 || plan.Last > workspace.Project.NbShots || plan.Last > layout.Records()) {
        Say_Error(workspace, ports, "wrong shots number to stack");
        return std::nullopt;
    }
    return plan;
}

/// The original records under "_bak.su", once. False after a message.
bool Keep_Original(Workspace& workspace, Ports& ports, const std::string& source) {
    const std::string copy = Derived_File(source, ".su", "_bak.su");
    if (copy == source || File_Exists(copy)) return true;
    const std::string reason = Copy_File(source, copy);
    if (!reason.empty()) {
        Say_Error(workspace, ports, copy + " cannot be written: " + reason);
        return false;
    }
    ports.Ask.Say("Original SU file saved as " + copy, workspace.AppTitle, Icon::Information);
    return true;
}

/// Folder of the files between the commands, as the composed text names it.
std::string Temporary_Folder(const Workspace& workspace, const std::string& source) {
    const std::string& folder = workspace.Project.ProjectDir;
    if (!File_Exists(folder)) return Folder_Of(source);
    return folder.back() == '/' || folder.back() == '\\' ? folder : folder + "/";
}

}  // namespace

void Stack_Shots(Workspace& workspace, Ports& ports, const std::function<void()>& changing) {
    if (ports.Ask.Message("Use this module to add (stack) some ADJACENT shots having the same shot point",
                          workspace.AppTitle, Icon::Information, Buttons::OkCancel) != Answer::Ok) {
        return;
    }
    if (!Locate_SU_File(workspace, ports)) return;
    if (workspace.Record.SeveralSpreads) {
        Say_Error(workspace, ports,
                  "A shot of several spreads has several records: they cannot be stacked in one");
        return;
    }
    const auto plan = Asked_Plan(workspace, ports);
    if (!plan) return;
    const std::string shots = CStr(plan->First) + " to " + CStr(plan->Last);
    // The blank behind "shots" is missing, as users know it.
    if (!ports.Ask.Ask_Yes("Stack shots" + shots, workspace.AppTitle)) return;

    const std::string source = Su_Path(workspace.Project);
    if (!Keep_Original(workspace, ports, source)) return;
    const std::string folder = Temporary_Folder(workspace, source);
    Note_Chain(workspace, Cleaned_Up(Stack_Text(ports.Launch.Program_Folder(), folder, source, *plan)));
    const ChainTools tools{ports.Launch, workspace.Edits};
    FreshFiles fresh;
    fresh.push_back(std::make_unique<FreshFile>(workspace.Edits, source));
    {
        ChainFolder between(workspace.Edits, folder);
        ChainEnd end = Stack_Records(tools, source, fresh[0]->Name(), *plan, between);
        const std::string& twin = workspace.Record.TwinSuFile;
        if (end.Well() && !twin.empty() && twin != source && File_Exists(twin)) {
            ChainFolder between_twins(workspace.Edits, folder);
            fresh.push_back(std::make_unique<FreshFile>(workspace.Edits, twin));
            end = Stack_Records(tools, twin, fresh[1]->Name(), *plan, between_twins);
        }
        if (!end.Well()) {
            Tell_Chain_End(workspace, ports, end);
            return;
        }
        if (ports.Ask.Ask_Yes("Keep temporary SU files ", workspace.AppTitle)) {
            const std::string reason = between.Move_All_To(folder);
            if (!reason.empty()) Say_Error(workspace, ports, reason);
        }
    }
    if (changing) changing();
    EditScope edit(workspace, "Stack shots " + shots);
    const std::string reason = Put_All(fresh);
    if (!reason.empty()) {
        edit.Give_Up();
        Say_Error(workspace, ports, reason);
        return;
    }
    for (int shot = plan->First + 1; shot <= plan->Last; ++shot)
        Remove_Colonne(workspace, ports, plan->First + 1);
    edit.End();
    ports.Ask.Say("OK, Stack shots" + shots + " in " + source, workspace.AppTitle, Icon::Information);
}

}  // namespace tarnvik
