// delay, abc: the dialogs DelayF and ABCGridF.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iomanip>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "batch/commands.h"
#include "batch/option_checks.h"
#include "batch/project_report.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "depth/grm_storage.h"

namespace tarnvik {

namespace {

using Json = nlohmann::ordered_json;

struct DelayOptions {
    std::string Fixed;
    std::string Moving;
    std::string Shifts;
    double TotalTime = 0;
    std::string EndShots;
    bool Record = false;
    bool GrmFile = false;
};

/// The questions of DelayF, answered by the options of the command; all else goes to the terminal.
class DelayAnswers : public Prompts {
  public:
    DelayAnswers(Prompts& terminal, std::vector<double> limits, bool save)
        : Terminal(terminal), Limits(std::move(limits)), Save(save) {}

    Answer Message(const std::string& text, const std::string& title, Icon icon, Buttons buttons) override {
        if (buttons == Buttons::Ok || buttons == Buttons::SaveDiscardCancel)
            return Terminal.Message(text, title, icon, buttons);
        std::cerr << "[" << title << "] " << text << "\n";
        const bool limits = text.starts_with("Do you want to use the First Breaks");
        const bool save = text.starts_with("Do you want to save");
        return (limits && !Limits.empty()) || (save && Save) ? Answer::Yes : Answer::No;
    }
    std::string Input(const std::string& prompt, const std::string& title,
                      const std::string& initial) override {
        std::cerr << "[" << title << "] " << prompt << "\n";
        return Asked < Limits.size() ? CStr(Limits[Asked++]) : initial;
    }
    std::string Open_File(const FileRequest& request) override { return Terminal.Open_File(request); }
    std::string Save_File(const FileRequest& request) override { return Terminal.Save_File(request); }
    std::optional<Colour> Choose_Colour(Colour) override { return std::nullopt; }
    std::optional<std::string> Choose_Font(const std::string&) override { return std::nullopt; }

  private:
    Prompts& Terminal;
    std::vector<double> Limits;
    std::size_t Asked = 0;
    bool Save;
};

template <class Value>
Json Receiver_List(const Project& project, Value value) {
    Json list = Json::array();
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver)
        list.push_back(value(receiver));
    return list;
}

Json Row_Json(const Project& project, int row) {
    return Receiver_List(project,
                         [&](int receiver) { return Json_Number(project.ReceiverData(row, receiver)); });
}

/// What DelayF found, and the project as it then was.
struct DelayResult {
    std::vector<ReceiverDelay> Delays;  ///< empty when it was refused
    Project Line;
    double TimeFactor = 1;
};

void Print_Delays(const DelayResult& found, const std::string& message, bool as_json) {
    const Project& project = found.Line;
    const bool any = !found.Delays.empty();
    const auto of = [&found](int receiver) -> const ReceiverDelay& {
        return found.Delays[static_cast<std::size_t>(receiver)];
    };
    if (as_json) {
        Json json;
        for (const char* name : {"D", "ReceiverData1", "GrmData1", "GrmData2"})
            json[name] = Json::array();
        if (any) {
            json["D"] = Receiver_List(project, [&](int r) { return of(r).D ? Json(*of(r).D) : Json(); });
            json["ReceiverData1"] = Row_Json(project, ReceiverIntercept);
            json["GrmData1"] = Receiver_List(project, [&](int r) { return project.GrmData(1, r); });
            json["GrmData2"] = Receiver_List(project, [&](int r) { return project.GrmData(2, r); });
        }
        json["TotalTime"] = project.TotalTime;
        json["TimeFactor"] = found.TimeFactor;
        json["message"] = message;
        std::cout << json.dump(1) << "\n";
        return;
    }
    if (!any) return;
    std::cout << "Total time: " << CStr(project.TotalTime) << " ms\nreceiver       delay, ms\n";
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        std::cout << std::setw(8) << receiver << std::setw(16)
                  << Format(project.ReceiverData(ReceiverIntercept, receiver), "0.0") << "\n";
    }
}

ExitStatus Delay(const CommonOptions& common, const DelayOptions& options, const std::string& folder) {
    BatchRun run(common, folder);
    Workspace& work = run.Program.Work;
    const bool store = common.Save || !common.Out.empty();
    DelayAnswers answers(run.Prompts, Numbers(options.EndShots), store && options.Record);
    Ports outside{answers, run.Display, run.Launcher};
    bool stored = true;
    FileRoutines files;
    files.SaveProject = [&](Workspace&, Ports&) {
        // The two moved curves stand in no project file. Before the save, which raises the total time.
        if (options.GrmFile) stored = Write_GRM_File(work, outside, CStr(int{work.Grm.GrmXY}));
        return stored = run.Store(common.Out) && stored;
    };
    DelayF dialog(work, outside, files);
    DelayResult found;
    const auto end = [&](ExitStatus status) {
        Print_Delays(found, run.Prompts.Texts(), common.Json);
        return status;
    };
    if (!run.Load() || !run.May_Write(common.Out)) return end(Refused);
    run.Prompts.Forget();
    const Project before = work.Project;
    dialog.On_Computed = [&] { found = {dialog.Found(), work.Project, work.Curves.TimeFactor}; };
    dialog.Load();
    if (run.Prompts.Texts().empty()) {
        const std::vector<double> fixed = Numbers(options.Fixed);
        const std::vector<double> moving = Numbers(options.Moving);
        const std::vector<double> shifts = Numbers(options.Shifts);
        dialog.FixedLeft = CStr(fixed[0]);
        dialog.FixedRight = CStr(fixed[1]);
        dialog.MovingLeft = CStr(moving[0]);
        dialog.MovingRight = CStr(moving[1]);
        if (dialog.Shift(DelayF::Handle::LeftCurve, shifts[0]) &&
            dialog.Shift(DelayF::Handle::RightCurve, shifts[1])) {
            dialog.Set_Total_Time(options.TotalTime);
            dialog.Command2();
            // The dialog ends without a message where nothing was moved.
            if (found.Delays.empty()) run.Refuse(work.Fields.Status);
        }
    }
    if (found.Delays.empty()) {
        found.Line.TotalTime = before.TotalTime;
        found.TimeFactor = work.Curves.TimeFactor;
        return end(Refused);
    }
    if (!options.Record) {
        work.Project = before;
        if (store) stored = run.Store(common.Out);
    }
    return end(stored ? Done : Refused);
}

struct AbcOptions {
    std::optional<int> Layers;
    std::optional<double> HalfShotDepth;
    bool GridValues = false;
    bool Record = false;
};

constexpr int abc_rows[] = {1, 2, 3, 4, 5, 6, 8, 9, 11, 12, 13};

void Print_Abc(const Project& project, bool computed, double rock, const std::string& message, bool as_json) {
    if (as_json) {
        Json json;
        for (const int row : abc_rows)
            json[CStr(row)] = computed ? Row_Json(project, row) : Json::array();
        json["rock"] = rock;
        json["message"] = message;
        std::cout << json.dump(1) << "\n";
        return;
    }
    if (!computed) return;
    std::cout << "receiver   delay, ms      depth 1      depth 2      depth 3         rock\n";
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        std::cout << std::setw(8) << receiver << std::setw(12)
                  << Format(project.ReceiverData(ReceiverIntercept, receiver), "0.0");
        for (const int row : {ReceiverDepth1, ReceiverDepth2, ReceiverScratch, ReceiverRockDepth})
            std::cout << std::setw(13) << Format(project.ReceiverData(row, receiver), "0.00");
        std::cout << "\n";
    }
    std::cout << "Largest rock depth: " << CStr(rock) << "\n";
}

ExitStatus Abc(const CommonOptions& common, const AbcOptions& options, const std::string& folder) {
    BatchRun run(common, folder);
    Workspace& work = run.Program.Work;
    ABCGridF dialog(work, run.Program.Outside);
    const auto refuse = [&] {
        Print_Abc(work.Project, false, 0, run.Prompts.Texts(), common.Json);
        return Refused;
    };
    if (!run.Load() || !run.May_Write(common.Out)) return refuse();
    run.Prompts.Forget();
    const Project before = work.Project;
    dialog.Load();
    if (options.Layers) dialog.Layers = CStr(*options.Layers);
    if (options.GridValues) dialog.AbcOption = ABCGridF::grid_values;
    if (options.HalfShotDepth) work.Fields.Text23 = CStr(*options.HalfShotDepth);
    dialog.CalculBt();
    if (!dialog.Computed) return refuse();
    if (!work.Fields.Status.empty()) std::cerr << work.Fields.Status << "\n";
    const Project computed = work.Project;
    if (!options.Record) work.Project = before;
    const bool stored = (!common.Save && common.Out.empty()) || run.Store(common.Out);
    Print_Abc(computed, true, dialog.LargestRock, run.Prompts.Texts(), common.Json);
    return stored ? Done : Refused;
}

/// Two numbers separated by a comma.
CLI::Validator Two_Numbers() {
    return CLI::Validator(
        [](const std::string& text) -> std::string {
            return Numbers(text).size() == 2 ? "" : text + " is no A,B";
        },
        "A,B");
}

}  // namespace

void Add_Delay(CLI::App& app, Request& request) {
    CLI::App* command =
        Add_Project_Command(app, request, "delay", "delay times below the receivers by two offset shots");
    auto options = std::make_shared<DelayOptions>();
    const auto pair = [command](const char* name, std::string& value, const char* help) {
        return command->add_option(name, value, help)->check(List_Of_Numbers() & Two_Numbers());
    };
    pair("--fixed", options->Fixed, "end shots, left and right")->required();
    pair("--moving", options->Moving, "offset shots, left and right")->required();
    pair("--shifts", options->Shifts, "how far each is slid down, units of the picture")->required();
    command->add_option("--total-time", options->TotalTime, "reciprocal time, ms; cut to a tenth")
        ->required()
        ->check(Any_Number());
    pair("--end-shots", options->EndShots,
         "the end shots' own first breaks count between these receivers, where they show the bedrock");
    CLI::Option* record = command->add_flag("--record", options->Record, "store the delays in the project");
    Add_Project_Outputs(*command, request.Common);
    command->add_flag("--grm-file", options->GrmFile, "write the GRM file beside the project too")
        ->needs(record)
        ->needs(command->get_option("--save"));
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Delay(common, *options, folder);
        };
    });
}

void Add_Abc(CLI::App& app, Request& request) {
    CLI::App* command = Add_Project_Command(app, request, "abc", "depths below the receivers by delay times");
    auto options = std::make_shared<AbcOptions>();
    command->add_option("--layers", options->Layers,
                        "number of layers, 2 to 4; as the shots have without it");
    command->add_option("--half-shot-depth", options->HalfShotDepth, "added to the first depth")
        ->check(Any_Number());
    command->add_flag("--grid-values", options->GridValues,
                      "compute with the receivers' own values, without interpolation between the shots");
    command->add_flag("--record", options->Record, "store the depths in the project");
    Add_Project_Outputs(*command, request.Common);
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Abc(common, *options, folder);
        };
    });
}

}  // namespace tarnvik
