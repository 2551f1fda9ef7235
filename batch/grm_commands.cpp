// grm and grm-depth: the dialogs GRM and GRM_depth.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>

#include "batch/commands.h"
#include "batch/option_checks.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "depth/grm.h"
#include "depth/grm_depth.h"
#include "depth/grm_picture.h"

namespace tarnvik {

namespace {

using Json = nlohmann::ordered_json;

void Print(const Json& json) {
    std::cout << json.dump(1, ' ', false, Json::error_handler_t::replace) << "\n";
}

struct CurveOptions {
    std::string Curves;
    std::string XY;
    double Factor = 0;
    std::string Vref;
};

Json Curves_Json(const BatchRun& run, const std::string& message) {
    const Workspace& work = run.Program.Work;
    Json curves = Json::array();
    for (std::size_t place = 0; place < work.Grm.Curves.size(); ++place) {
        const GrmCurve& own = work.Grm.Curves[place];
        Json receivers = Json::array();
        Json values = Json::array();
        Json heights = Json::array();
        for (const GrmPoint& point : own.Points) {
            receivers.push_back(point.Receiver);
            values.push_back(point.Value);
            heights.push_back(Height_Of_Grm_Value(work, place, point.Value));
        }
        curves.push_back({{"XY", own.XY}, {"receivers", receivers}, {"values", values}, {"y", heights}});
    }
    return {{"curves", curves}, {"VelocityResult", work.Velocity.VelocityResult}, {"message", message}};
}

void Print_Curves(const BatchRun& run) {
    for (const GrmCurve& curve : run.Program.Work.Grm.Curves) {
        std::cout << "XY " << curve.XY << "\n";
        for (const GrmPoint& point : curve.Points)
            std::cout << "  receiver " << point.Receiver << ": " << Format(point.Value, "0.00") << " ms\n";
    }
}

ExitStatus Grm(const CommonOptions& common, const CurveOptions& options, const std::string& folder) {
    BatchRun run(common, folder);
    const auto end = [&](ExitStatus status) {
        if (common.Json) {
            Print(Curves_Json(run, run.Prompts.Texts()));
        } else {
            Print_Curves(run);
        }
        return status;
    };
    if (!run.Load() || !run.May_Write(common.Out)) return end(Refused);
    GRM& dialog = run.Program.GrmAnalysis;
    if (!dialog.Delay_Times_Known()) return end(Refused);
    dialog.Load();
    const std::vector<double> bounds = Numbers(options.XY);
    dialog.Minimum = CStr(bounds.at(0));
    dialog.Maximum = CStr(bounds.at(1));
    dialog.ReferenceVelocity = options.Vref;
    dialog.TimeShift = CStr(options.Factor);
    dialog.GrmOption = options.Curves == "velocity" ? GRM::VelocityFunction : GRM::TimeDepthCurves;
    dialog.Command1();
    if (run.Prompts.Refused()) return end(Refused);
    if (common.Out.empty()) return end(Done);
    const std::string reason = run.Display.Save_Page(Page::Curves, common.Out, run.Display.Format);
    if (!reason.empty()) run.Refuse(common.Out + " cannot be written: " + reason);
    return end(run.Status());
}

struct DepthOptions {
    std::string XY;
    std::string TotalTime;
    std::string Vref;
    std::vector<std::string> Cells;
    bool Record = false;
};

Json Cell_Json(const GRM_depth& dialog, int row, int column) {
    const std::string text = Trim(dialog.GRM_Grid.Text(row, column));
    if (text.empty()) return nullptr;
    return Val(text);
}

Json Depth_Json(const Workspace& work, const GRM_depth& dialog, const std::string& texts) {
    Json grid = Json::array();
    Json reference = Json::array();
    for (int row = 1; row < dialog.GRM_Grid.Rows(); ++row) {
        Json line = Json::array();
        for (int column = GRM_depth::Offset1; column <= GRM_depth::Elevation; ++column)
            line.push_back(Cell_Json(dialog, row, column));
        grid.push_back(line);
        reference.push_back(Cell_Json(dialog, row, GRM_depth::Vref));
    }
    Json data = Json::array();
    for (int row = 1; row <= GRM_depth::Bedrock && work.Project.GrmData.Has(row, 0); ++row) {
        Json line = Json::array();
        for (int receiver = 1; receiver <= work.Project.NbReceivers; ++receiver)
            line.push_back(work.Project.GrmData(row, receiver));
        data.push_back(line);
    }
    Json messages = Json::array();
    std::istringstream lines(texts);
    for (std::string text; std::getline(lines, text);)
        messages.push_back(text);
    return {{"XY", Val(dialog.XYDistance)},
            {"grid", grid},
            {"Vref", reference},
            {"GrmData", data},
            {"messages", messages}};
}

void Print_Grid(const GRM_depth& dialog) {
    for (int row = 1; row < dialog.GRM_Grid.Rows(); ++row) {
        std::cout << "receiver " << row << ":";
        for (int column = GRM_depth::Offset1; column <= GRM_depth::Vref; ++column)
            std::cout << "\t" << Trim(dialog.GRM_Grid.Text(row, column));
        std::cout << "\n";
    }
}

/// The cells of the command line into the grid; false after a message.
bool Type_Cells(BatchRun& run, GRM_depth& dialog, const std::vector<std::string>& cells) {
    for (const std::string& cell : cells) {
        const std::vector<double> parts = Numbers(cell);
        const auto row = CInt(parts.at(1));
        const std::string value = Trim(cell.substr(cell.rfind(',') + 1));
        if (!row || !dialog.Type(*row, static_cast<int>(parts.at(0)), value))
            return run.Refuse("--cell " + cell + ": the line has no such receiver");
    }
    return true;
}

ExitStatus Grm_Depth(const CommonOptions& common, const DepthOptions& options, const std::string& folder) {
    BatchRun run(common, folder);
    Workspace& work = run.Program.Work;
    // No profile is drawn: it would correct the distances of the line.
    GRM_depth dialog(work, run.Program.Outside);
    const auto end = [&](ExitStatus status) {
        if (common.Json) {
            Print(Depth_Json(work, dialog, run.Prompts.Texts()));
        } else {
            Print_Grid(dialog);
        }
        return status;
    };
    if (!run.Load() || !run.May_Write(common.Out)) return end(Refused);
    const Project before = work.Project;
    dialog.Load();
    if (!Type_Cells(run, dialog, options.Cells)) return end(Refused);
    dialog.XYDistance = options.XY;
    dialog.ReferenceVelocity = options.Vref;
    if (!options.TotalTime.empty()) dialog.TotalTime = options.TotalTime;
    dialog.Command2();
    if (!dialog.GrmReady || run.Prompts.Refused()) return end(Refused);
    if (options.Record) dialog.Command1();
    const ExitStatus status = end(run.Status());
    if (status != Done) return status;
    if (!options.Record) work.Project = before;
    if ((common.Save || !common.Out.empty()) && !run.Store(common.Out)) return Refused;
    return Done;
}

void Add_Reference_Velocity(CLI::App& command, std::string& vref) {
    command
        .add_option("--vref", vref, "velocity of the refractor for all receivers; without it each pair's own")
        ->check(CLI::PositiveNumber);
}

CLI::Validator Two_Numbers() {
    return CLI::Validator(
        [](const std::string& text) -> std::string {
            return std::count(text.begin(), text.end(), ',') == 1 ? "" : text + " is no MIN,MAX";
        },
        "MIN,MAX");
}

CLI::Validator Cell_Of_Grid() {
    return CLI::Validator(
        [](const std::string& text) -> std::string {
            const bool three = std::count(text.begin(), text.end(), ',') == 2;
            const std::vector<double> parts = three ? Numbers(text) : std::vector<double>();
            constexpr int last_column = GRM_depth::Elevation;
            const bool column =
                three && parts[0] >= 1 && parts[0] <= last_column && parts[0] == Int(parts[0]);
            return column && parts[1] >= 1 && parts[1] == Int(parts[1])
                       ? ""
                       : text + " is no COLUMN,RECEIVER,VALUE with a column from 1 to 10";
        },
        "COLUMN,RECEIVER,VALUE");
}

}  // namespace

void Add_Grm(CLI::App& app, Request& request) {
    CLI::App* command = Add_Project_Command(
        app, request, "grm", "velocity function or time-depth curves of the generalised reciprocal method");
    auto options = std::make_shared<CurveOptions>();
    command->add_option("--curves", options->Curves, "velocity or depth")
        ->required()
        ->check(CLI::IsMember({"velocity", "depth"}));
    command->add_option("--xy", options->XY, "least and largest XY in receivers, MIN,MAX")
        ->required()
        ->check(List_Of_Numbers())
        ->check(Two_Numbers());
    command->add_option("--factor", options->Factor, "units of the picture from one curve to the next")
        ->check(Number_Between(-100, 100));
    Add_Reference_Velocity(*command, options->Vref);
    command->add_option("--out", request.Common.Out, "picture of the curves (.png, .jpg, .svg, .pdf or .wmf)")
        ->check(Picture_Name());
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Grm(common, *options, folder);
        };
    });
}

void Add_Grm_Depth(CLI::App& app, Request& request) {
    CLI::App* command =
        Add_Project_Command(app, request, "grm-depth", "depths by the generalised reciprocal method");
    auto options = std::make_shared<DepthOptions>();
    command->add_option("--xy", options->XY, "XY in receivers")->required()->check(Any_Number());
    command->add_option("--total-time", options->TotalTime, "reciprocal time, ms")->check(Any_Number());
    Add_Reference_Velocity(*command, options->Vref);
    command
        ->add_option("--cell", options->Cells,
                     "a cell typed into the grid: COLUMN,RECEIVER,VALUE; value 0 empties it")
        ->check(List_Of_Numbers())
        ->check(Cell_Of_Grid())
        ->take_all();
    command->add_flag("--record", options->Record, "keep the results, and write the GRM file");
    Add_Project_Outputs(*command, request.Common);
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Grm_Depth(common, *options, folder);
        };
    });
}

}  // namespace tarnvik
