// velocity: the computation of the dialog SpeedF, and the recording of `confirm`.

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>

#include "batch/commands.h"
#include "batch/option_checks.h"
#include "core/text/letters.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

constexpr std::size_t most_eliminated = 4;

struct VelocityOptions {
    int Shot = 1;
    int From = 1;
    int To = 1;
    int Layer = 0;
    bool StartAtShot = false;
    std::string Eliminate;
    bool Record = false;
};

void Print_Velocity(const Workspace& work, const std::string& message, bool as_json) {
    const VelocityWork& found = work.Velocity;
    if (as_json) {
        nlohmann::ordered_json json;
        json["VelocityResult"] = found.VelocityResult;
        json["InterceptResult"] = found.InterceptResult;
        json["Correlation"] = found.Correlation;
        json["ShotSide"] = found.ShotSide;
        json["message"] = message;
        std::cout << json.dump(1) << "\n";
        return;
    }
    if (!message.empty()) return;
    std::cout << "Velocity:    " << CStr(found.VelocityResult) << (work.Settings.Metric() ? " m/s" : " f/s")
              << "\n"
              << "Intercept:   " << CStr(found.InterceptResult) << " ms\n"
              << "Correlation: " << CStr(found.Correlation) << "\n"
              << "Side:        "
              << (found.ShotSide == 1    ? "A"
                  : found.ShotSide == 24 ? "B"
                                         : "A and B")
              << "\n";
}

ExitStatus Velocity(const CommonOptions& common, const VelocityOptions& options, const std::string& folder) {
    if (options.Record && options.Layer < 1) {
        std::cerr << "--record: --layer 1 to 5 tells which layer the velocity belongs to\n";
        return WrongUsage;
    }
    BatchRun run(common, folder);
    Workspace& work = run.Program.Work;
    const auto refuse = [&] {
        Print_Velocity(work, run.Prompts.Texts(), common.Json);
        return Refused;
    };
    if (!run.Load() || !run.May_Write(common.Out)) return refuse();
    if (options.Shot < 1 || options.Shot > work.Project.NbShots) {
        run.Refuse("Wrong Shot number");
        return refuse();
    }
    // The dialog's own saving is left to --save and --out.
    FileRoutines files;
    files.SaveProject = [](Workspace&, Ports&) { return true; };
    SpeedF dialog(work, run.Program.Outside, files);
    dialog.Load();
    dialog.Shot = CStr(options.Shot);
    dialog.FirstReceiver = CStr(options.From);
    dialog.LastReceiver = CStr(options.To);
    if (options.Layer > 0) dialog.Layer = CStr(options.Layer);
    std::istringstream list(options.Eliminate);
    std::string receiver;
    for (std::string& field : dialog.Eliminated) {
        if (!std::getline(list, receiver, ',')) break;
        dialog.Eliminate = true;
        field = Trim(receiver);
    }
    dialog.ThroughShot = options.StartAtShot;
    run.Prompts.Forget();
    dialog.Command5();
    std::string message = run.Prompts.Texts();
    if (message.empty() && options.Record) {
        // Which layer is recorded is the user's word, also where the computation put the first one into the
        // box.
        Confirm record(work, run.Program.Outside, dialog, files);
        record.Load();
        record.Layer = CStr(options.Layer);
        if (CInt(Val(record.Velocity))) {
            record.Command1();
        } else {
            // Nearly level times: the dialog leaves such a velocity out and stores the intercept alone.
            run.Prompts.Say("Error, calcul not possible...", work.AppTitle);
        }
        message = run.Prompts.Texts();
    }
    Print_Velocity(work, message, common.Json);
    if (!message.empty()) return Refused;
    if ((common.Save || !common.Out.empty()) && !run.Store(common.Out)) return Refused;
    return Done;
}

}  // namespace

void Add_Velocity(CLI::App& app, Request& request) {
    CLI::App* command =
        Add_Project_Command(app, request, "velocity", "velocity of a stretch of a shot's curve");
    auto options = std::make_shared<VelocityOptions>();
    command->add_option("--shot", options->Shot, "shot, from 1")->required();
    command->add_option("--from", options->From, "first receiver")->required();
    command->add_option("--to", options->To, "last receiver")->required();
    command->add_option("--layer", options->Layer, "layer that the velocity belongs to")
        ->check(CLI::Range(1, 5));
    command->add_flag("--start-at-shot", options->StartAtShot, "layer 1: the line starts at the shot point");
    command
        ->add_option("--eliminate", options->Eliminate, "up to four receivers left out, separated by commas")
        ->check(List_Of_Receivers(most_eliminated));
    command->add_flag("--record", options->Record, "store the result in the project");
    Add_Project_Outputs(*command, request.Common);
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Velocity(common, *options, folder);
        };
    });
}

}  // namespace tarnvik
