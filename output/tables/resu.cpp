#include "output/tables/resu.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "depth/shot_velocities.h"
#include "output/exports/export_files.h"

namespace tarnvik {

namespace {

constexpr std::array headings = {"X", "Y", "Z", "V1", "E1", "V2", "E2", "V3", "E3", "V4", "E4", "V5"};

/// Velocities are means of two sides, thicknesses have two digits behind the point as they were stored.
std::vector<double> Results_Of_Shot(const Project& project, int shot) {
    std::vector<double> row = {project.ShotDistance(shot), 0, project.ShotElevation(shot)};
    int count = 0;
    std::array<double, Project::MaxLayers + 1> velocities{};
    Shot_Velocities(project, shot, count, velocities);
    for (int layer = 1; layer <= Project::MaxLayers; ++layer) {
        row.push_back(velocities[static_cast<std::size_t>(layer)]);
        if (layer <= Project::MaxRefractors) row.push_back(std::max(0.0, project.ShotThickness(shot, layer)));
    }
    return row;
}

bool Has_Depths(const Project& project) {
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        for (int layer = 1; layer <= Project::MaxRefractors; ++layer) {
            if (project.ShotThickness(shot, layer) > 0) return true;
        }
    }
    return false;
}

/// A text as a cell shows it; nothing where it is no number.
std::optional<std::string> As_Number(std::string_view typed) {
    std::string text = Trim(typed);
    std::replace(text.begin(), text.end(), ',', '.');
    if (text.empty()) return text;
    const bool digits = text.find_first_of("0123456789") != std::string::npos;
    if (!digits || text.find_first_not_of("0123456789+-.eE") != std::string::npos) return std::nullopt;
    const auto number = Number_In(text);
    if (!number) return std::nullopt;
    return CStr(*number);
}

std::string Csv_Line(const TextGrid& table, int row) {
    std::string line;
    for (int column = 1; column < table.Columns(); ++column)
        line += (column > 1 ? ";" : "") + table.Text(row, column);
    return line + "\r\n";
}

}  // namespace

std::vector<std::string> Result_Headings() {
    return {headings.begin(), headings.end()};
}

TextGrid Result_Table(const Project& project) {
    TextGrid table(project.NbShots + 1, static_cast<int>(headings.size()) + 1);
    table.Set_Text(0, 0, "Shot");
    int column = 1;
    for (const char* heading : headings)
        table.Set_Text(0, column++, heading);
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        table.Set_Text(shot, 0, CStr(shot));
        column = 1;
        for (const double value : Results_Of_Shot(project, shot)) {
            table.At(shot, column).Align = TextGrid::Alignment::Right;
            table.Set_Text(shot, column++, CStr(value));
        }
    }
    return table;
}

std::string Result_Csv(const TextGrid& table) {
    std::string text;
    for (int row = 0; row < table.Rows(); ++row)
        text += Csv_Line(table, row);
    return text;
}

XlsxSheet Result_Sheet(const TextGrid& table, const std::string& title) {
    XlsxSheet sheet{"Seismic Profile", title, Result_Headings(), {}};
    for (int row = 1; row < table.Rows(); ++row) {
        std::vector<XlsxCell>& cells = sheet.Rows.emplace_back();
        for (int column = 1; column < table.Columns(); ++column) {
            if (table.Text(row, column).empty()) {
                cells.emplace_back();
            } else {
                cells.emplace_back(table.Value(row, column));
            }
        }
    }
    return sheet;
}

std::string Write_Results(const std::string& path, const TextGrid& table, const std::string& title) {
    if (LCase(Right(path, 5)) == ".xlsx") return Write_Xlsx(path, Result_Sheet(table, title));
    return Replace_File(path, To_Windows_1252(Result_Csv(table)));
}

resu::resu(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

void resu::Load() {
    const Project& project = Work.Project;
    resultat_grid = Filled = Result_Table(project);
    resultat_grid.CurrentRow = project.NbShots > 0 ? 1 : 0;
    resultat_grid.CurrentColumn = 1;
    Date = "Date: " + (Today ? Today() : std::string());
    Hint = Has_Depths(project) ? "" : "No depths have been computed yet";
}

void resu::Command2() {
    Save({"CSV File selection", "File CSV |*.CSV|", "*.CSV", Folder_Of(Work.Project.CurrentFile)}, ".csv");
}

void resu::Save_Workbook() {
    Save({"Excel file selection", "Excel workbook |*.xlsx|",
          Name_Of(Export_Base(Work.Project, "")) + "_results.xlsx", Folder_Of(Work.Project.CurrentFile)},
         ".xlsx");
}

void resu::Save(const FileRequest& request, const std::string& ending) {
    std::string path = Outside.Ask.Save_File(request);
    if (path.empty()) return;
    if (LCase(Right(path, ending.size())) != ending) path += ending;
    const std::string reason = Write_Results(path, resultat_grid, Work.Project.ProjectName);
    if (!reason.empty()) {
        Outside.Ask.Say(path + " cannot be written: " + reason, Work.AppTitle, Icon::Critical);
        return;
    }
    Hint = "Saved in " + path;
    Outside.Show.Show_Fields();
}

bool resu::Editable(int row, int column) const {
    return resultat_grid.Has(row, column) && row >= resultat_grid.FixedRows &&
           column >= resultat_grid.FixedColumns;
}

bool resu::Type(int row, int column, std::string_view text) {
    if (!Editable(row, column)) return false;
    auto number = As_Number(text);
    if (!number) {
        Hint = "\"" + One_Line(text) + "\" is no number";
        return false;
    }
    Hint.clear();
    resultat_grid.Set_Text(row, column, std::move(*number));
    return true;
}

void resu::Follow() {
    TextGrid now = Result_Table(Work.Project);
    if (now.Rows() != Filled.Rows()) {
        Load();
        return;
    }
    for (int row = 1; row < now.Rows(); ++row) {
        for (int column = 1; column < now.Columns(); ++column) {
            if (now.Text(row, column) != Filled.Text(row, column))
                resultat_grid.Set_Text(row, column, now.Text(row, column));
        }
    }
    Filled = std::move(now);
}

}  // namespace tarnvik
