// timebreak: the trigger correction of the dialog Erase_TT.

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "batch/commands.h"
#include "batch/option_checks.h"
#include "core/project_save.h"
#include "core/text/number.h"
#include "records/su_loading.h"

namespace tarnvik {

namespace {

struct TimebreakOptions {
    int Shot = 1;
    double Shift = 0;
};

void Print_Plan(const TriggerPlan& plan, const std::string& message, bool as_json) {
    if (as_json) {
        nlohmann::ordered_json json;
        json["words"] = plan.Words;
        json["ShiftSamples"] = plan.ShiftSamples;
        json["FirstTrace"] = plan.FirstTrace;
        json["LastTrace"] = plan.LastTrace;
        json["message"] = message;
        std::cout << json.dump(1, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
        return;
    }
    if (plan.Words.empty()) return;
    std::cout << "Traces:  " << plan.FirstTrace << " to " << plan.LastTrace << "\n"
              << "Samples: " << plan.ShiftSamples << "\n"
              << "Words:  ";
    for (const std::int16_t word : plan.Words)
        std::cout << " " << word;
    std::cout << "\n";
}

/// Project and records are both written or neither.
bool Save(BatchRun& run, const TimebreakOptions& options) {
    Workspace& work = run.Program.Work;
    bool stored = false;
    FileRoutines files;
    files.SaveProject = [&stored](Workspace& workspace, Ports& ports) {
        stored = Write_Project(workspace, ports);
        return stored;
    };
    Erase_TT dialog(work, run.Program.Outside, files);
    dialog.Load();
    dialog.Shot = CStr(options.Shot);
    dialog.Shift = CStr(options.Shift);
    if (!dialog.Save_TT_Translation()) return false;
    if (stored) return true;
    const std::string reason = work.Edits.Undo(work.Project);
    if (!reason.empty()) return run.Refuse(reason);
    Forget_Shift_Note(work, options.Shot);
    return false;
}

ExitStatus Timebreak(const CommonOptions& common, const TimebreakOptions& options,
                     const std::string& folder) {
    BatchRun run(common, folder);
    Workspace& work = run.Program.Work;
    TriggerPlan plan;
    ExitStatus status = Refused;
    if (run.Load()) {
        // The channels of a record tell where its traces stand.
        Start_With_SU_File(work, Su_Path(work.Project));
        Scan_Channels(work, Su_Path(work.Project));
        // A save without a shift ends at once.
        if (options.Shift != 0) plan = Plan_Trigger_Correction(work, options.Shot, options.Shift);
        if (options.Shift == 0) {
            status = Done;
        } else if (common.Save) {
            status = Save(run, options) ? Done : Refused;
        } else if (!plan.Refusal.empty()) {
            run.Refuse(plan.Refusal);
        } else {
            if (!plan.NoRecords.empty()) run.Prompts.Say(plan.NoRecords, work.AppTitle, Icon::Warning);
            status = Done;
        }
    }
    Print_Plan(plan, run.Prompts.Texts(), common.Json);
    return status;
}

}  // namespace

void Add_Timebreak(CLI::App& app, Request& request) {
    CLI::App* command =
        Add_Project_Command(app, request, "timebreak", "a shot's times and samples moved by a shift");
    auto options = std::make_shared<TimebreakOptions>();
    command->add_option("--shot", options->Shot, "shot, from 1")->required();
    command->add_option("--shift", options->Shift, "ms taken from the times; a positive shift lowers them")
        ->required()
        ->check(Any_Number());
    command->add_flag("--save", request.Common.Save, "write the project and the SU file");
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Timebreak(common, *options, folder);
        };
    });
}

}  // namespace tarnvik
