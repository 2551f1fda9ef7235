// phantom: the dialog FantomF. theoretic: the dialog Theoric_F.

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>

#include "batch/commands.h"
#include "batch/option_checks.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

using Json = nlohmann::ordered_json;

constexpr double lowest_shift = FantomF::range_low / 10.0;
constexpr double highest_shift = FantomF::range_high / 10.0;

void Print(const Json& json, const CommonOptions& common) {
    if (common.Json) std::cout << json.dump(1, ' ', false, Json::error_handler_t::replace) << "\n";
}

struct PhantomOptions {
    int Fixed = 0;
    int Moving = 0;
    double Shift = 0;
    int Number = 0;
    double Intercept = 0;
    std::string Slope;
    bool Record = false;
};

Json To_Json(const std::vector<std::optional<double>>& times, const Workspace& work,
             const std::string& message) {
    Json json;
    json["times"] = Json::array();
    for (const auto& time : times)
        json["times"].push_back(time ? Json(*time) : Json());
    json["ShotSide"] = work.Velocity.ShotSide;
    json["message"] = message;
    return json;
}

void Print_Times(const std::vector<std::optional<double>>& times, int slope) {
    std::cout << "Receiver  Time (ms)\n";
    int receiver = 0;
    for (const auto& time : times)
        std::cout << ++receiver << "  " << (time ? Format(*time, "0.00") : "-") << "\n";
    std::cout << "Slope inclination from receiver: " << slope << "\n";
}

ExitStatus Phantom(const CommonOptions& common, const PhantomOptions& options, const std::string& folder) {
    BatchRun run(common, folder);
    Workspace& work = run.Program.Work;
    if (!run.Load() || !run.May_Write(common.Out)) {
        work.Velocity.ShotSide = 0;
        Print(To_Json({}, work, run.Prompts.Texts()), common);
        return Refused;
    }
    // The dialog's own saving is left to --save and --out.
    FileRoutines files;
    files.SaveProject = [](Workspace&, Ports&) { return true; };
    FantomF dialog(work, run.Program.Outside, files);
    dialog.Load();
    run.Prompts.Forget();
    dialog.FixedShot = CStr(options.Fixed);
    dialog.MovingShot = CStr(options.Moving);
    dialog.Slide_To(options.Shift);
    const auto times = Times_As_Drawn(work, dialog.Curve());
    if (!options.Slope.empty()) {
        dialog.Slope = options.Slope == "left" ? FantomF::slope_left : FantomF::slope_right;
        dialog.Slope_Changed();
    }
    std::string message = run.Prompts.Texts();
    if (options.Record) {
        if (options.Number > 0) dialog.InterceptNumber = CStr(options.Number);
        dialog.InterceptTime = CStr(options.Intercept);
        dialog.Command2();
        // A question that was answered is no reason; one that was not tells why nothing is recorded.
        if (!dialog.Recorded()) message = run.Prompts.Texts();
    }
    const int slope = dialog.Slope;
    Print(To_Json(times, work, message), common);
    if (!common.Json) Print_Times(times, slope);
    const bool refused = times.empty() || (options.Record && !dialog.Recorded());
    dialog.Close();
    if (refused) return Refused;
    if ((common.Save || !common.Out.empty()) && !run.Store(common.Out)) return Refused;
    return Done;
}

struct TheoreticOptions {
    double At = 0;
    double ShotDepth = 0;
    std::vector<std::string> Layers;  ///< "velocity,thickness"
};

Json To_Json(const TheoricF& dialog, const std::string& message) {
    Json json;
    json["NbLayers"] = dialog.NbLayers;
    json["IT"] = dialog.IT;
    json["branches"] = Json::array();
    for (const CurveBranch& branch : dialog.Branches)
        json["branches"].push_back({branch.X1, branch.Y1, branch.X2, branch.Y2});
    json["message"] = message;
    return json;
}

void Print_Branches(const TheoricF& dialog) {
    std::cout << "Layers: " << dialog.NbLayers << "\n";
    for (const double intercept : dialog.IT)
        std::cout << "Intercept: " << CStr(intercept) << " ms\n";
    for (const CurveBranch& branch : dialog.Branches) {
        std::cout << "(" << Format(branch.X1, "0.00") << ", " << Format(branch.Y1, "0.00") << ") to ("
                  << Format(branch.X2, "0.00") << ", " << Format(branch.Y2, "0.00") << ")\n";
    }
}

ExitStatus Theoretic(const CommonOptions& common, const TheoreticOptions& options,
                     const std::string& folder) {
    if (options.Layers.size() > Project::MaxLayers) {
        std::cerr << "--layer: a model has five layers at most\n";
        return WrongUsage;
    }
    BatchRun run(common, folder);
    TheoricF dialog(run.Program.Work, run.Program.Outside);
    if (!run.Load()) {
        Print(To_Json(dialog, run.Prompts.Texts()), common);
        return Refused;
    }
    dialog.Load();
    run.Prompts.Forget();
    dialog.ShotLocation = CStr(options.At);
    dialog.ShotDepth = CStr(options.ShotDepth);
    for (std::size_t row = 1; row <= options.Layers.size(); ++row) {
        const std::vector<double> values = Numbers(options.Layers[row - 1]);
        dialog.Velocity.at(row) = CStr(values.at(0));
        if (values.size() > 1) dialog.Thickness.at(row) = CStr(values[1]);
    }
    dialog.Command2();
    Print(To_Json(dialog, run.Prompts.Texts()), common);
    if (!common.Json && dialog.NbLayers > 0) Print_Branches(dialog);
    const bool drawn = dialog.NbLayers > 0;
    dialog.Close();
    return drawn ? Done : Refused;
}

/// A velocity, and the thickness where the layer has one.
CLI::Validator Velocity_And_Thickness() {
    CLI::Validator check(
        [](std::string& text) -> std::string {
            const std::string fault = List_Of_Numbers()(text);
            if (!fault.empty()) return fault;
            const std::size_t count = Numbers(text).size();
            return count == 1 || count == 2 ? "" : text + ": a velocity and a thickness, V,Z";
        },
        "V,Z");
    return check;
}

}  // namespace

void Add_Phantom(CLI::App& app, Request& request) {
    CLI::App* command =
        Add_Project_Command(app, request, "phantom", "slides the curve of one shot over that of another");
    auto options = std::make_shared<PhantomOptions>();
    command->add_option("--fixed", options->Fixed, "shot whose curve stays, from 1")->required();
    command->add_option("--moving", options->Moving, "shot whose curve slides")->required();
    command
        ->add_option("--shift", options->Shift,
                     "units of the picture (a hundredth of its height) taken from each point")
        ->required()
        ->check(Number_Between(lowest_shift, highest_shift));
    command->add_option("--intercept-number", options->Number,
                        "which intercept is recorded; 1 belongs to layer 2");
    command->add_option("--intercept", options->Intercept, "intercept time recorded, ms")
        ->check(Any_Number());
    command
        ->add_option("--slope", options->Slope,
                     "left: side A, right: side B; by the places of the shots without it")
        ->check(CLI::IsMember({"left", "right"}));
    command->add_flag("--record", options->Record,
                      "store the intercept time in the project; its question needs --yes or an answer");
    Add_Project_Outputs(*command, request.Common);
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Phantom(common, *options, folder);
        };
    });
}

void Add_Theoretic(CLI::App& app, Request& request) {
    CLI::App* command =
        Add_Project_Command(app, request, "theoretic", "travel-time branches of plane layers under a shot");
    auto options = std::make_shared<TheoreticOptions>();
    command->add_option("--at", options->At, "distance of the shot along the line")
        ->required()
        ->check(Any_Number());
    command->add_option("--shot-depth", options->ShotDepth, "depth of the shot below the ground")
        ->check(Any_Number());
    command
        ->add_option("--layer", options->Layers,
                     "velocity and thickness of a layer, from the top; once a layer")
        ->required()
        ->allow_extra_args(false)  // the project's name may stand behind it
        ->check(Velocity_And_Thickness());
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Theoretic(common, *options, folder);
        };
    });
}

}  // namespace tarnvik
