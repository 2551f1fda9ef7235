#include "processing/rewrite_su.h"

#include <optional>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "records/spread_layout.h"
#include "records/su_file.h"
#include "records/su_loading.h"

namespace tarnvik {

void Tell_Chain_End(Workspace& workspace, Ports& ports, const ChainEnd& end, const std::string& unable,
                    bool with_path) {
    if (end.Stopped) {
        workspace.Fields.Status = "Stopped: all files are as they were";
        ports.Show.Show_Fields();
        return;
    }
    if (end.Failure.empty()) return;
    const std::string text = end.Missing
                                 ? unable + (with_path ? end.Tool : std::string())
                                 : end.Failure + "\r\nNothing has been recorded, all files are as they were.";
    ports.Ask.Say(text, workspace.AppTitle, Icon::Critical);
}

void Note_Chain(Workspace& workspace, const std::string& text) {
    const std::string su_file = Su_Path(workspace.Project);
    if (!Note_In_Log(su_file, text)) workspace.Fields.Status = Log_Of(su_file) + " cannot be written";
}

std::string Marked_Name(const std::string& su_file) {
    constexpr std::string_view ending = ".su";
    constexpr std::string_view replacement = "_tmp.su";
    std::string name = LCase(su_file);
    // Each place, also within the name, as users know the name.
    for (auto at = name.find(ending); at != std::string::npos;
         at = name.find(ending, at + replacement.size()))
        name.replace(at, ending.size(), replacement);
    std::erase(name, ' ');
    return name;
}

ChainEnd Drop_Shot(Workspace& workspace, Ports& ports, int shot, const std::string& source,
                   const std::string& target) {
    const SpreadLayout layout(workspace);
    const bool several = workspace.Record.SeveralSpreads;
    DropPlan plan;
    plan.Drops = [&](std::int64_t trace) { return layout.Shot_Of(layout.Record_Of(trace)) == shot; };
    plan.Station = [&](std::int64_t trace) -> std::optional<std::int32_t> {
        const int record = layout.Record_Of(trace);
        if (!several || trace != layout.First_Trace(record)) return std::nullopt;
        const int station = layout.Shot_Of(record);
        return station > shot ? station - 1 : station;
    };
    return Drop_Traces({ports.Launch, workspace.Edits}, source, target, plan);
}

std::string Put_All(FreshFiles& files) {
    for (const auto& file : files) {
        const std::string reason = file->Put();
        if (!reason.empty()) return file->Path() + " cannot be written: " + reason;
    }
    return {};
}

FreshFiles Rewrite_SU(Workspace& workspace, Ports& ports, int shot) {
    FreshFiles fresh;
    if (!Locate_SU_File(workspace, ports)) return fresh;
    std::vector<std::string> sources = {Su_Path(workspace.Project)};
    const std::string& twin = workspace.Record.TwinSuFile;
    if (!twin.empty() && twin != sources[0] && File_Exists(twin)) sources.push_back(twin);
    for (const std::string& source : sources) {
        fresh.push_back(std::make_unique<FreshFile>(workspace.Edits, source));
        Note_Chain(workspace,
                   Cleaned_Up(Rewrite_Text(ports.Launch.Program_Folder(), Marked_Name(source), source)));
        const ChainEnd end = Drop_Shot(workspace, ports, shot, source, fresh.back()->Name());
        if (end.Well()) continue;
        Tell_Chain_End(workspace, ports, end);
        fresh.clear();
        return fresh;
    }
    return fresh;
}

}  // namespace tarnvik
