// depth: the dialog Fcalcul for one shot or all.

#include <CLI/CLI.hpp>
#include <iomanip>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <utility>

#include "batch/commands.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

using Json = nlohmann::ordered_json;

struct DepthOptions {
    std::string Method;
    int Shot = 0;
    int Layers = 0;
    bool Record = false;
};

/// What one shot gave.
struct ShotDepths {
    int Shot = 0;
    int Layers = 0;
    std::vector<double> TrueV;
    std::vector<double> Thick;
    std::vector<double> Depth;
    std::string Message;
};

/// Keeps the deepest layers out of the computation, as a user does who empties their fields.
void Keep_Layers(Fcalcul& dialog, int layers) {
    for (auto layer = static_cast<std::size_t>(layers) + 1; layer < dialog.VelocityA.size(); ++layer) {
        dialog.VelocityA[layer].clear();
        dialog.VelocityB[layer].clear();
    }
}

/// One shot through the dialog. A shot that is refused leaves the project as it stood, also what the dialog
/// fills in where it displays one.
ShotDepths Compute_Shot(BatchRun& run, Fcalcul& dialog, const DepthOptions& options, int shot) {
    ShotDepths found;
    found.Shot = shot;
    run.Prompts.Forget();
    Project& project = run.Program.Work.Project;
    // What the dialog stores while it shows and computes a shot stays only where it is to be recorded.
    Project before = project;
    if (!dialog.Display_Shot(shot)) {
        run.Prompts.Say(dialog.OffsetText, run.Program.Work.AppTitle);
        found.Message = run.Prompts.Texts();
        project = std::move(before);
        return found;
    }
    if (options.Layers > 0) {
        Keep_Layers(dialog, options.Layers);
        dialog.Enregistre_Tir();
        dialog.Display_Shot(shot);
    }
    options.Method == "intercept" ? dialog.Command1() : dialog.Command3();
    found.Message = run.Prompts.Texts();
    found.Layers = static_cast<int>(Val(dialog.Layers));
    if (!dialog.Computed) {
        // A question about a value that was not corrected ends the method without a word.
        if (found.Message.empty()) found.Message = run.Prompts.Last_Input();
        project = std::move(before);
        return found;
    }
    const DepthWork& work = run.Program.Work.Depth;
    for (int layer = 1; layer <= found.Layers; ++layer) {
        const auto row = static_cast<std::size_t>(layer);
        found.TrueV.push_back(work.TrueV[row]);
        if (layer == found.Layers) break;
        found.Thick.push_back(work.Thick[row]);
        found.Depth.push_back(Val(dialog.Depth[row]));
    }
    if (options.Record) {
        dialog.Enregistre_Tir();
    } else {
        project = std::move(before);
    }
    return found;
}

Json To_Json(const ShotDepths& found) {
    Json json;
    json["shot"] = found.Shot;
    json["layers"] = found.Layers;
    json["TrueV"] = found.TrueV;
    json["Thick"] = found.Thick;
    json["Depth"] = found.Depth;
    json["message"] = found.Message;
    return json;
}

void Print_Shot(const ShotDepths& found) {
    std::cout << "Shot " << found.Shot << ": ";
    if (found.Depth.empty()) {
        std::cout << (found.Message.empty() ? "no intercepts or critical distances" : found.Message) << "\n";
        return;
    }
    std::cout << found.Layers << " layers\n  layer    velocity   thickness       depth\n";
    for (std::size_t layer = 0; layer < found.TrueV.size(); ++layer) {
        std::cout << std::setw(7) << layer + 1 << std::setw(12) << Format(found.TrueV[layer], "0");
        if (layer < found.Thick.size()) {
            std::cout << std::setw(12) << Format(found.Thick[layer], "0.00") << std::setw(12)
                      << Format(found.Depth[layer], "0.00");
        }
        std::cout << "\n";
    }
}

ExitStatus Depth(const CommonOptions& common, const DepthOptions& options, const std::string& folder) {
    BatchRun run(common, folder);
    Workspace& work = run.Program.Work;
    const auto print = [&common](const Json& list) {
        if (common.Json) std::cout << list.dump(1) << "\n";
    };
    if (!run.Load() || !run.May_Write(common.Out) ||
        (options.Shot > work.Project.NbShots && !run.Refuse("Wrong Shot number"))) {
        print(Json::array());
        return Refused;
    }
    const int shots = work.Project.NbShots;
    FileRoutines files;
    files.SaveProject = [](Workspace&, Ports&) { return true; };
    Fcalcul dialog(work, run.Program.Outside, files);
    Json list = Json::array();
    bool computed = false;
    bool silent = shots < 1;
    for (int shot = 1; shot <= shots; ++shot) {
        if (options.Shot != 0 && shot != options.Shot) continue;
        const ShotDepths found = Compute_Shot(run, dialog, options, shot);
        computed |= !found.Depth.empty();
        silent |= found.Depth.empty() && found.Message.empty();
        if (common.Json) {
            list.push_back(To_Json(found));
        } else {
            Print_Shot(found);
        }
    }
    print(list);
    if (!computed) {
        // A line that nothing was entered for ends in silence in the dialog.
        if (silent) run.Prompts.Say(shots < 1 ? " No data.." : "Intercepts are missing", work.AppTitle);
        return Refused;
    }
    if ((common.Save || !common.Out.empty()) && !run.Store(common.Out)) return Refused;
    return Done;
}

}  // namespace

void Add_Depth(CLI::App& app, Request& request) {
    CLI::App* command = Add_Project_Command(app, request, "depth", "depths under the shots");
    auto options = std::make_shared<DepthOptions>();
    command->add_option("--method", options->Method, "intercept or critical")
        ->required()
        ->check(CLI::IsMember({"intercept", "critical"}));
    command->add_option("--shot", options->Shot, "shot, from 1; all without it")->check(CLI::Range(1, 32767));
    command->add_option("--layers", options->Layers, "layers to compute with")->check(CLI::Range(2, 5));
    command->add_flag("--record", options->Record, "store the results in the project");
    Add_Project_Outputs(*command, request.Common);
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Depth(common, *options, folder);
        };
    });
}

}  // namespace tarnvik
