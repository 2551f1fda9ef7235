// quick: the dialog quick_interpret for one shot.

#include <CLI/CLI.hpp>
#include <iomanip>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "batch/commands.h"
#include "batch/option_checks.h"
#include "core/text/letters.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

using Json = nlohmann::ordered_json;

constexpr int first_column = QuickInterpret::VelocityLeft;
constexpr int last_column = QuickInterpret::Depth;

struct QuickOptions {
    int Shot = 1;
    int Layers = 2;
    std::string Limits;
    std::string Side;
    std::string ShotDepth;
    bool Record = false;
};

/// "[[x11,x12],[x21,x22]]", one number a limit, into rows 1 and 2; false for anything else.
bool Parse_Limits(const std::string& text, int layers, QuickLimits& limits) {
    const Json rows = Json::parse(text, nullptr, false);
    if (!rows.is_array() || rows.size() != 2) return false;
    for (std::size_t side = 1; side <= 2; ++side) {
        const Json& row = rows.at(side - 1);
        if (!row.is_array() || row.size() + 1 != static_cast<std::size_t>(layers)) return false;
        for (std::size_t k = 1; k <= row.size(); ++k) {
            if (!row.at(k - 1).is_number()) return false;
            limits.at(side).at(k) = row.at(k - 1).get<double>();
        }
    }
    return true;
}

Json Limits_Of(const QuickInterpret& dialog) {
    Json rows = Json::array();
    for (std::size_t side = 1; side <= 2; ++side) {
        Json row = Json::array();
        for (int k = 1; k < dialog.Layers(); ++k)
            row.push_back(dialog.Limits.at(side).at(static_cast<std::size_t>(k)));
        rows.push_back(row);
    }
    return rows;
}

Json Grid_Of(const QuickInterpret& dialog) {
    Json rows = Json::array();
    for (int layer = 1; layer <= dialog.Layers(); ++layer) {
        Json row = Json::array();
        for (int column = first_column; column <= last_column; ++column) {
            const bool empty = Trim(dialog.Grid1.Text(layer, column)).empty();
            row.push_back(empty ? Json() : Json(dialog.Grid1.Value(layer, column)));
        }
        rows.push_back(row);
    }
    return rows;
}

void Print_Grid(const QuickInterpret& dialog, const std::vector<std::string>& labels) {
    constexpr int width = 10;
    for (int row = 0; row <= dialog.Layers(); ++row) {
        for (int column = 0; column <= last_column; ++column)
            std::cout << std::setw(width) << dialog.Grid1.Text(row, column);
        std::cout << "\n";
    }
    for (const std::string& label : labels)
        std::cout << label << "\n";
}

ExitStatus Quick(const CommonOptions& common, const QuickOptions& options, const std::string& folder) {
    QuickLimits limits{};
    if (!options.Limits.empty() && !Parse_Limits(options.Limits, options.Layers, limits)) {
        std::cerr << "--limits: [[x11,...],[x21,...]], in each row one number fewer than layers\n";
        return WrongUsage;
    }
    BatchRun run(common, folder);
    Workspace& work = run.Program.Work;
    // The dialog's own saving is left to --save and --out.
    FileRoutines files;
    files.SaveProject = [](Workspace&, Ports&) { return true; };
    QuickInterpret dialog(work, run.Program.Outside, files);
    std::vector<std::string> labels;
    const auto finish = [&](bool done) {
        if (common.Json) {
            Json json;
            json["limits"] = done ? Limits_Of(dialog) : Json::array();
            json["grid"] = done ? Grid_Of(dialog) : Json::array();
            json["labels"] = labels;
            json["message"] = run.Prompts.Texts();
            std::cout << json.dump(1) << "\n";
        } else if (done) {
            Print_Grid(dialog, labels);
        }
        return done && run.Prompts.Texts().empty() ? Done : Refused;
    };
    if (!run.Load() || !run.May_Write(common.Out)) return finish(false);
    if (options.Shot < 1 || options.Shot > work.Project.NbShots) {
        run.Refuse("Wrong Shot number");
        return finish(false);
    }
    run.Prompts.Forget();
    work.Velocity.CurrentShot = static_cast<std::int16_t>(options.Shot);
    dialog.Load();
    // The computation asked for takes nothing over from the one that the dialog opens with.
    work.Velocity.VelocityResult = 0;
    if (!options.ShotDepth.empty()) dialog.ShotDepth = options.ShotDepth;
    dialog.LayerCount = CStr(options.Layers);
    dialog.Depart_Quick();
    if (!options.Limits.empty()) {
        work.Velocity.VelocityResult = 0;
        dialog.Take_Limits(limits);
    }
    labels = dialog.Labels;
    if (!options.Side.empty()) {
        dialog.SideChoice = options.Side == "left" ? QuickInterpret::Left : QuickInterpret::Right;
        dialog.Side_Changed();
        labels.insert(labels.end(), dialog.Labels.begin(), dialog.Labels.end());
    }
    if (options.Record) dialog.Command1();
    const ExitStatus status = finish(true);
    if (status == Done && (common.Save || !common.Out.empty()) && !run.Store(common.Out)) return Refused;
    return status;
}

}  // namespace

void Add_Quick(CLI::App& app, Request& request) {
    CLI::App* command =
        Add_Project_Command(app, request, "quick", "first model of a shot from limits on its curve");
    auto options = std::make_shared<QuickOptions>();
    command->add_option("--shot", options->Shot, "shot, from 1")->required();
    command->add_option("--layers", options->Layers, "number of layers")
        ->required()
        ->check(CLI::Range(1, most_quick_layers));
    command->add_option("--limits", options->Limits,
                        "limits left and right of the shot, [[x11,...],[x21,...]] from 0 to 96");
    command->add_option("--side", options->Side, "the side that counts alone: left or right")
        ->check(CLI::IsMember({"left", "right"}));
    command->add_option("--shot-depth", options->ShotDepth, "depth of the shot; the project's without it")
        ->check(Any_Number());
    command->add_flag("--record", options->Record, "store the model in the project");
    Add_Project_Outputs(*command, request.Common);
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Quick(common, *options, folder);
        };
    });
}

}  // namespace tarnvik
