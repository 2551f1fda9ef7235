// forward: first arrivals through the interpreted ground, against the picks.

#include <CLI/CLI.hpp>
#include <iomanip>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "batch/commands.h"
#include "batch/option_checks.h"
#include "core/files.h"
#include "interpretation/forward_check.h"

namespace tarnvik {

namespace {

using Json = nlohmann::ordered_json;

struct ForwardOptions {
    std::string Source = "shot";
    std::string SuOut;
};

SectionSource Source_Named(const std::string& name) {
    return name == "abc" ? SectionSource::Abc : name == "grm" ? SectionSource::Grm : SectionSource::Shots;
}

Json Or_Null(const std::optional<double>& value) {
    return value ? Json(*value) : Json();
}

Json List_Of(const std::vector<std::optional<double>>& values) {
    Json list = Json::array();
    for (const auto& value : values)
        list.push_back(Or_Null(value));
    return list;
}

Json As_Json(const ForwardCheck& check) {
    Json json;
    json["times"] = Json::array();
    for (const auto& times : check.Times) {
        Json row = Json::array();
        for (const double time : times)
            row.push_back(time < 0 ? Json() : Json(time));
        json["times"].push_back(std::move(row));
    }
    json["residuals"] = Json::array();
    for (const auto& residuals : check.Residuals)
        json["residuals"].push_back(List_Of(residuals));
    json["rms"] = Or_Null(check.Rms);
    json["rms_shot"] = List_Of(check.ShotRms);
    json["rms_receiver"] = List_Of(check.ReceiverRms);
    return json;
}

void Print(const ForwardCheck& check) {
    std::cout << std::fixed << std::setprecision(2);
    const auto print = [](const char* what, std::size_t number, const std::optional<double>& rms) {
        if (rms) std::cout << what << ' ' << number << ": " << *rms << " ms\n";
    };
    for (std::size_t i = 0; i < check.ShotRms.size(); ++i)
        print("shot", i + 1, check.ShotRms[i]);
    for (std::size_t i = 0; i < check.ReceiverRms.size(); ++i)
        print("receiver", i + 1, check.ReceiverRms[i]);
    if (check.Rms) std::cout << "r.m.s. of picked less calculated times: " << *check.Rms << " ms\n";
}

ExitStatus Forward(const CommonOptions& common, const ForwardOptions& options, const std::string& folder) {
    BatchRun run(common, folder);
    ForwardCheck check;
    if (!run.Load()) {
        check.Refusal = "refused";
    } else if (options.SuOut.empty() || run.May_Write(options.SuOut)) {
        check = Check_Forward(run.Program.Work.Project, Source_Named(options.Source));
        if (!check.Refusal.empty()) {
            run.Refuse(check.Refusal);
        } else if (!options.SuOut.empty()) {
            const std::string reason =
                Replace_File(options.SuOut, Synthetic_Records(run.Program.Work.Project, check));
            if (!reason.empty()) run.Refuse(options.SuOut + " cannot be written: " + reason);
        }
    }
    if (common.Json) {
        Json json = As_Json(check);
        json["messages"] = run.Prompts.Messages();
        std::cout << json.dump(1) << "\n";
    } else {
        Print(check);
    }
    return run.Status();
}

}  // namespace

void Add_Forward(CLI::App& app, Request& request) {
    CLI::App* command =
        app.add_subcommand("forward", "first arrivals through the interpreted ground, against the picks");
    auto options = std::make_shared<ForwardOptions>();
    command->add_option("PROJECT", request.Common.ProjectFile, "project file (.tv5)")->required();
    command->add_option("--source", options->Source, "depths of shot, abc or grm")
        ->check(CLI::IsMember({"shot", "abc", "grm"}));
    command->add_option("--su-out", options->SuOut, "calculated times as field records (.su)")
        ->check(Name_Ending_In({".su"}));
    Add_Answers(*command, request.Common);
    command->callback([&request, options] {
        request.Run = [options](const CommonOptions& common, const std::string& folder) {
            return Forward(common, *options, folder);
        };
    });
}

}  // namespace tarnvik
