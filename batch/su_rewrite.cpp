#include "batch/su_rewrite.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <nlohmann/json.hpp>
#include <system_error>

#include "batch/option_checks.h"
#include "core/files.h"
#include "core/text/number.h"
#include "processing/fresh_file.h"
#include "records/su_file.h"
#include "records/su_loading.h"

namespace tarnvik {

namespace {

/// Takes the records up, with the channels that are told or else found. The reason of a refusal.
std::string Open(BatchRun& run, const std::string& path, int channels) {
    Workspace& work = run.Program.Work;
    if (!File_Exists(path)) return path + ": This file does not exist !";
    work.Project.SuFile = path;
    Start_With_SU_File(work, path);
    work.Record.TwinSuFile.clear();
    if (!Scan_Channels(work, path) || work.Record.NbTraces < 1)
        return path + ": no records found in this file";
    if (channels > 0) Store_If_It_Fits(work.Record.ChannelsPerRecord, channels);
    if (work.Record.ChannelsPerRecord > 0)
        work.Record.NbRecords = static_cast<std::int16_t>(
            CInt(double(work.Record.NbTraces) / work.Record.ChannelsPerRecord).value_or(0));
    return {};
}

/// The result under the name of the option; where it cannot be made nothing is left there.
std::string Write_Result(BatchRun& run, const CommonOptions& common, const std::string& source,
                         const MakeSuFile& make, SuReport& json) {
    const FreshFile fresh(run.Program.Work.Edits, std::filesystem::absolute(common.Out).string());
    std::string reason = make(run, source, fresh.Name(), json);
    if (reason.empty() && SuTraces(fresh.Name()).Length() == 0) reason = "no trace is kept";
    if (!reason.empty()) return reason;
    std::error_code failed;
    std::filesystem::rename(fresh.Name(), fresh.Path(), failed);
    if (failed) return common.Out + " cannot be written: " + failed.message();
    Flush_Folder_Of(fresh.Path());
    return {};
}

ExitStatus Rewrite(const CommonOptions& common, const std::string& folder, int channels,
                   const MakeSuFile& make) {
    BatchRun run(common, folder);
    SuReport json;
    const std::string source = std::filesystem::absolute(common.ProjectFile).string();
    bool done = false;
    std::string reason = Open(run, source, channels);
    if (!reason.empty()) {
        run.Refuse(reason);
    } else if (run.May_Write(common.Out)) {
        reason = Write_Result(run, common, source, make, json);
        done = reason.empty() || run.Refuse(reason);
    }
    if (common.Json) {
        json["file"] = done ? common.Out : std::string();
        json["messages"] = run.Prompts.Messages();
        std::cout << json.dump(1, ' ', false, SuReport::error_handler_t::replace) << "\n";
    } else if (done) {
        std::cout << common.Out << ": " << SuTraces(common.Out).Nb_Traces().value_or(0) << " traces\n";
    }
    return done ? Done : Refused;
}

}  // namespace

TraceNumbers Trace_Numbers(const std::string& text) {
    const auto colon = text.find(':');
    return {CLng(Val(text)).value_or(0), CLng(Val(text.substr(colon + 1))).value_or(0)};
}

CLI::App* Add_Su_Rewrite(CLI::App& app, Request& request, const std::string& name, const std::string& help) {
    CLI::App* command = app.add_subcommand(name, help);
    command->add_option("FILE", request.Common.ProjectFile, "field records (.su)")->required();
    command->add_option("--out", request.Common.Out, "SU file to write")
        ->required()
        ->check(Name_Ending_In({".su"}));
    Add_Answers(*command, request.Common);
    return command;
}

void Runs_Su_Rewrite(CLI::App* command, Request& request, MakeSuFile make, std::shared_ptr<int> channels) {
    command->callback([&request, make, channels] {
        request.Run = [make, channels](const CommonOptions& common, const std::string& folder) {
            return Rewrite(common, folder, channels ? *channels : 0, make);
        };
    });
}

}  // namespace tarnvik
