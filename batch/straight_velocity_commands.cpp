// truevelocity, handvelocity, apparent and dip: the dialogs SpeedF2, SpeedF3, vELINE and dip.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "batch/commands.h"
#include "batch/option_checks.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "traveltime/curve_axes.h"

namespace tarnvik {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t most_eliminated = 5;

void Print(const Json& json) {
    std::cout << json.dump(1, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
}

/// The dialogs' own saving is left to --save and --out.
FileRoutines No_Saving() {
    FileRoutines files;
    files.SaveProject = [](Workspace&, Ports&) { return true; };
    return files;
}

ExitStatus Store_If_Asked(BatchRun& run, const CommonOptions& common, bool done) {
    if (!done) return Refused;
    if ((common.Save || !common.Out.empty()) && !run.Store(common.Out)) return Refused;
    return Done;
}

/// A number as JSON; null for a field that nothing was computed for.
Json Number_Or_Null(const std::string& field) {
    return Trim(field).empty() ? Json() : Json(Val(field));
}

struct TrueVelocityOptions {
    std::string Shots;
    int From = 0;
    int To = 0;
    std::string Eliminate;
    std::string Layer;
    std::string For;
    bool Record = false;
};

void Print_True_Velocity(const Workspace& work, const DifferenceLine& line, const std::string& message,
                         bool as_json) {
    const VelocityWork& found = work.Velocity;
    const bool drawn = !line.Points.empty();
    const auto height = [&work](double time) {
        return Height_Of_Half_Difference(DifferenceMode::Curves, time / 2, work.Curves.TimeFactor);
    };
    if (as_json) {
        Json json;
        json["VelocityResult"] = found.VelocityResult;
        json["Correlation"] = found.Correlation;
        json["x1"] = drawn ? Json(line.X1) : Json();
        json["y1"] = drawn ? Json(height(line.T1)) : Json();
        json["x2"] = drawn ? Json(line.X2) : Json();
        json["y2"] = drawn ? Json(height(line.T2)) : Json();
        json["message"] = message;
        Print(json);
    } else if (drawn) {
        std::cout << "True velocity: " << CStr(found.VelocityResult)
                  << (work.Settings.Metric() ? " m/s" : " f/s") << "\n"
                  << "Correlation:   " << CStr(found.Correlation) << "\n";
    }
}

ExitStatus True_Velocity(const CommonOptions& common, const TrueVelocityOptions& options,
                         const std::string& folder) {
    BatchRun run(common, folder);
    Workspace& work = run.Program.Work;
    SpeedF2 dialog(work, run.Program.Outside, No_Saving());
    bool done = run.Load() && run.May_Write(common.Out);
    if (done) {
        dialog.Load();
        const std::vector<double> shots = Numbers(options.Shots);
        dialog.FirstShot = CStr(shots.at(0));
        dialog.LastShot = CStr(shots.at(1));
        dialog.FirstReceiver = CStr(options.From);
        dialog.LastReceiver = CStr(options.To);
        const std::vector<double> eliminated = Numbers(options.Eliminate);
        dialog.Eliminate = !eliminated.empty();
        for (std::size_t place = 0; place < std::min(eliminated.size(), most_eliminated); ++place)
            dialog.Eliminated.at(place) = CStr(eliminated[place]);
        run.Prompts.Forget();
        done = dialog.Command2();
        if (done && options.Record) {
            dialog.Layer = options.Layer;
            const std::vector<double> range = Numbers(options.For);
            dialog.RecordFrom = range.empty() ? std::string() : CStr(range.at(0));
            dialog.RecordTo = range.empty() ? std::string() : CStr(range.at(1));
            done = dialog.Command3();
        }
    }
    Print_True_Velocity(work, dialog.Line(), run.Prompts.Texts(), common.Json);
    return Store_If_Asked(run, common, done);
}

struct HandVelocityOptions {
    std::string Shot;
    std::string Layer;
    std::string Velocity;
    std::string Intercept;
    std::string Band;
    bool Record = false;
};

/// The band as the mouse would leave it: whole distance units and ms at the press, whole picture units at the
/// end. False when a value is beyond what the picture holds.
bool Band_Of(const Workspace& work, const std::vector<double>& ends, HandBand& band) {
    const double length = work.Project.LineLength;
    const double factor = work.Curves.TimeFactor;
    if (length == 0 || factor == 0) return false;
    const double across = curve_picture_width / length;
    band.X1 = ends.at(0) * across;
    band.T1 = ends.at(1);
    band.X2 = ends.at(2) * across;
    band.T2 = ends.at(3);
    const double latest = Rounded(Pick_Factor(work.Curves.MaxTime) * curve_picture_height);
    const double distance = std::clamp(Int(100 * ends.at(0)) / 100, 0.0, std::max(0.0, length));
    const double time = std::clamp(Int(ends.at(1)), 0.0, latest);
    return Store_If_It_Fits(band.DownDistance, distance) && Store_If_It_Fits(band.DownTime, time) &&
           Store_If_It_Fits(band.EndX, band.X2) && Store_If_It_Fits(band.EndY, band.T2 / factor);
}

ExitStatus Hand_Velocity(const CommonOptions& common, const HandVelocityOptions& options,
                         const std::string& folder) {
    BatchRun run(common, folder);
    Workspace& work = run.Program.Work;
    SpeedF3 dialog(work, run.Program.Outside, No_Saving());
    HandBand band;
    bool done = run.Load() && run.May_Write(common.Out);
    if (done && !Band_Of(work, Numbers(options.Band), band)) done = run.Refuse("Calculation not possible");
    if (done) {
        dialog.Load();
        dialog.Take_Band(band);
        dialog.Shot = options.Shot;
        dialog.Layer = options.Layer;
        dialog.Velocity = options.Velocity;
        dialog.Intercept = options.Intercept;
        run.Prompts.Forget();
        done = options.Record ? dialog.Command1() : dialog.Check();
    }
    if (common.Json) {
        Json json;
        json["ShotSide"] = work.Velocity.ShotSide;
        json["message"] = run.Prompts.Texts();
        Print(json);
    } else if (done) {
        const int side = work.Velocity.ShotSide;
        std::cout << "Side: " << (side == 1 ? "A" : side == 24 ? "B" : "A and B") << "\n";
    }
    return Store_If_Asked(run, common, done);
}

/// The three numbers of a command that needs no project.
struct ThreeNumbers {
    double V1 = 0;
    double Second = 0;
    double Third = 0;
};

ExitStatus Apparent(const CommonOptions& common, const ThreeNumbers& numbers, const std::string& folder) {
    BatchRun run(common, folder);
    VelocityLine& dialog = run.Program.RulerVelocities;
    dialog.Velocity1 = CStr(numbers.V1);
    dialog.Velocity2 = CStr(numbers.Second);
    dialog.Dip = CStr(numbers.Third);
    dialog.compute_dip();
    const bool done = !dialog.DownDip.empty();
    if (common.Json) {
        Json json;
        json["down"] = Number_Or_Null(dialog.DownDip);
        json["up"] = Number_Or_Null(dialog.UpDip);
        json["message"] = run.Prompts.Texts();
        Print(json);
    } else if (done) {
        std::cout << "Down-dip: " << dialog.DownDip << "\nUp-dip:   " << dialog.UpDip << "\n";
    }
    return done ? Done : Refused;
}

ExitStatus Dip(const CommonOptions& common, const ThreeNumbers& numbers, const std::string& folder) {
    BatchRun run(common, folder);
    DipComputation& dialog = run.Program.Dip;
    dialog.Velocity1 = CStr(numbers.V1);
    dialog.UpDip = CStr(numbers.Second);
    dialog.DownDip = CStr(numbers.Third);
    dialog.Calcul_dip();
    const bool done = !dialog.Dip.empty();
    if (common.Json) {
        Json json;
        json["dip"] = Number_Or_Null(dialog.Dip);
        json["message"] = run.Prompts.Texts();
        Print(json);
    } else if (done) {
        std::cout << "Dip: " << dialog.Dip << " degrees\n";
    }
    return done ? Done : Refused;
}

using RunThree = ExitStatus (*)(const CommonOptions&, const ThreeNumbers&, const std::string&);

void Add_Three_Numbers(CLI::App& app, Request& request, const std::string& name, const std::string& help,
                       const std::array<const char*, 3>& names, const std::array<const char*, 3>& meanings,
                       RunThree run) {
    CLI::App* command = app.add_subcommand(name, help);
    auto numbers = std::make_shared<ThreeNumbers>();
    double* const values[] = {&numbers->V1, &numbers->Second, &numbers->Third};
    for (std::size_t place = 0; place < names.size(); ++place) {
        command->add_option(names.at(place), *values[place], meanings.at(place))
            ->required()
            ->check(Any_Number());
    }
    Add_Answers(*command, request.Common);
    command->callback([&request, numbers, run] {
        request.Run = [numbers, run](const CommonOptions& common, const std::string& folder) {
            return run(common, *numbers, folder);
        };
    });
}

}  // namespace

void Add_True_Velocity(CLI::App& app, Request& request) {
    CLI::App* command = Add_Project_Command(app, request, "truevelocity",
                                            "true velocity of a refractor from two reversed shots");
    auto options = std::make_shared<TrueVelocityOptions>();
    command->add_option("--shots", options->Shots, "the two shots")->required()->check(So_Many_Numbers(2));
    command->add_option("--from", options->From, "first receiver")->required();
    command->add_option("--to", options->To, "last receiver")->required();
    command
        ->add_option("--eliminate", options->Eliminate, "up to five receivers left out, separated by commas")
        ->check(List_Of_Receivers(most_eliminated));
    command->add_option("--layer", options->Layer, "layer that the velocity belongs to")
        ->check(CLI::Range(1, 5));
    command->add_option("--for", options->For, "first and last shot that the velocity is recorded for")
        ->check(So_Many_Numbers(2));
    command->add_flag("--record", options->Record, "store the velocity in the project");
    Add_Project_Outputs(*command, request.Common);
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return True_Velocity(common, *options, folder);
        };
    });
}

void Add_Hand_Velocity(CLI::App& app, Request& request) {
    CLI::App* command = Add_Project_Command(app, request, "handvelocity",
                                            "records the velocity of a line drawn on the curves by hand");
    auto options = std::make_shared<HandVelocityOptions>();
    command->add_option("--shot", options->Shot, "shot, from 1")->required()->check(Any_Number());
    command->add_option("--layer", options->Layer, "layer that the velocity belongs to")
        ->required()
        ->check(Any_Number());
    command->add_option("--velocity", options->Velocity, "velocity of the line")
        ->required()
        ->check(Any_Number());
    command->add_option("--intercept", options->Intercept, "intercept time, ms; from layer 2 on")
        ->check(Any_Number());
    command
        ->add_option("--band", options->Band, "X1,T1,X2,T2: the line from (distance, ms) to (distance, ms)")
        ->required()
        ->check(So_Many_Numbers(4));
    command->add_flag("--record", options->Record, "store the velocity in the project, after a question");
    Add_Project_Outputs(*command, request.Common);
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Hand_Velocity(common, *options, folder);
        };
    });
}

void Add_Apparent(CLI::App& app, Request& request) {
    Add_Three_Numbers(
        app, request, "apparent", "apparent velocities of a dipping refractor", {"V1", "V2", "DIP"},
        {"velocity of the layer above", "velocity of the refractor", "its dip in degrees"}, Apparent);
}

void Add_Dip(CLI::App& app, Request& request) {
    Add_Three_Numbers(app, request, "dip", "dip of a refractor from its apparent velocities",
                      {"V1", "VU", "VD"},
                      {"velocity of the layer above", "up-dip apparent velocity of the refractor",
                       "down-dip apparent velocity of the refractor"},
                      Dip);
}

}  // namespace tarnvik
