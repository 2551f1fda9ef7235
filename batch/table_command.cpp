// table: the results of a line as a table.

#include <CLI/CLI.hpp>
#include <iomanip>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "batch/commands.h"
#include "batch/option_checks.h"

namespace tarnvik {

namespace {

using Json = nlohmann::ordered_json;

Json To_Json(const TextGrid& table) {
    Json rows = Json::array();
    for (int row = 1; row < table.Rows(); ++row) {
        Json cells = Json::array();
        for (int column = 1; column < table.Columns(); ++column)
            cells.push_back(table.Value(row, column));
        rows.push_back(std::move(cells));
    }
    return rows;
}

void Print_Table(const TextGrid& table) {
    constexpr int width = 10;
    for (int row = 0; row < table.Rows(); ++row) {
        for (int column = 0; column < table.Columns(); ++column)
            std::cout << std::setw(column == 0 ? 4 : width) << table.Text(row, column);
        std::cout << "\n";
    }
}

ExitStatus Table(const CommonOptions& common, const std::string& folder) {
    BatchRun run(common, folder);
    resu& table = run.Program.Results;
    bool made = run.Load() && run.May_Write(common.Out);
    if (made) table.Load();
    if (made && !common.Out.empty()) {
        const std::string reason =
            Write_Results(common.Out, table.resultat_grid, run.Program.Work.Project.ProjectName);
        made = reason.empty() || run.Refuse(common.Out + " cannot be written: " + reason);
    }
    if (common.Json) {
        Json json;
        json["columns"] = Result_Headings();
        json["rows"] = made ? To_Json(table.resultat_grid) : Json::array();
        json["file"] = made ? common.Out : std::string();
        json["messages"] = run.Prompts.Messages();
        std::cout << json.dump(1, ' ', false, Json::error_handler_t::replace) << "\n";
    } else if (made) {
        Print_Table(table.resultat_grid);
    }
    return made ? Done : Refused;
}

}  // namespace

void Add_Table(CLI::App& app, Request& request) {
    CLI::App* command = Add_Project_Command(app, request, "table", "the results of a line as a table");
    auto which = std::make_shared<std::string>();
    command->add_option("TABLE", *which, "resu: velocities and thicknesses below the shots")
        ->required()
        ->check(CLI::IsMember({"resu"}));
    command->add_option("--out", request.Common.Out, "file to write (.csv or .xlsx)")
        ->check(Name_Ending_In({".csv", ".xlsx"}));
    // The name outlives the reading of the command line.
    command->callback([&request, which] { request.Run = Table; });
}

}  // namespace tarnvik
