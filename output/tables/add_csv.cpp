#include "output/tables/add_csv.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/natural_order.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

constexpr const char* headings[] = {"", "File", "Line", "Rows", "Columns"};
constexpr std::size_t rows_of_preview = 200;

bool Same_Table(const CsvTable& table, const std::string& path) {
    std::error_code failed;
    return table.Path == path || std::filesystem::equivalent(table.Path, path, failed);
}

CsvTable Table_Of(const std::string& path) {
    const auto bytes = Read_File(path);
    if (bytes) return Read_Csv_Table(path, *bytes);
    CsvTable table;
    table.Path = path;
    table.Faults.emplace_back("it cannot be read");
    return table;
}

}  // namespace

AddCsv::AddCsv(Ports& ports, std::string title) : Outside(ports), Title(std::move(title)) {
    Look();
}

void AddCsv::Ask_For_Files() {
    const std::string folder = Tables.empty() ? std::string() : Folder_Of(Tables.back().Path);
    Add(Outside.Ask.Open_Files({"CSV File selection", "CSV File |*.CSV|All files|*.*|", "*.CSV", folder}));
}

void AddCsv::Add(const std::vector<std::string>& paths) {
    for (const std::string& path : paths) {
        if (std::none_of(Tables.begin(), Tables.end(),
                         [&path](const CsvTable& table) { return Same_Table(table, path); }))
            Tables.push_back(Table_Of(path));
    }
    if (!Tables.empty() && Row == 0) Row = 1;
    if (!Tables.empty() && (Out.empty() || Out == Proposed))
        Out = Proposed = Folder_Of(Tables.front().Path) + "grouped.csv";
    Look();
}

void AddCsv::Remove() {
    if (Row < 1 || Row > static_cast<int>(Tables.size())) return;
    Tables.erase(Tables.begin() + (Row - 1));
    Row = std::min(Row, static_cast<int>(Tables.size()));
    Look();
}

void AddCsv::Move(int by) {
    const int to = Row + by;
    if (Row < 1 || to < 1 || to > static_cast<int>(Tables.size())) return;
    std::swap(Tables[static_cast<std::size_t>(Row) - 1], Tables[static_cast<std::size_t>(to) - 1]);
    Row = to;
    Look();
}

void AddCsv::Move_Up() {
    Move(-1);
}

void AddCsv::Move_Down() {
    Move(1);
}

void AddCsv::Sort_By_Name() {
    std::stable_sort(Tables.begin(), Tables.end(), [](const CsvTable& one, const CsvTable& other) {
        return Comes_Before(Name_Of(one.Path), Name_Of(other.Path));
    });
    Look();
}

void AddCsv::Ask_For_Out() {
    const std::string path =
        Outside.Ask.Save_File({"CSV File selection", "CSV File |*.CSV|Excel workbook|*.xlsx|",
                               Out.empty() ? "grouped.csv" : Out, Folder_Of(Out)});
    if (path.empty()) return;
    Out = Agreed = path;  // the file dialog has asked whether a file of that name may go
    Look();
}

void AddCsv::Changed() {
    Look();
}

void AddCsv::Look() {
    Group = Group_Tables(Tables, {LineColumn, FillMissing});
    Fill_Tables();
    if (!Group.Refusal.empty()) {
        Hint = Tables.empty() ? "Add result tables (CSV), or drop them here" : Group.Refusal;
        return;
    }
    Hint = CStr(static_cast<int>(Group.Rows.size())) + " rows of " +
           CStr(static_cast<int>(Group.Headings.size())) + " columns";
    for (const std::string& note : Group.Notes)
        Hint += "\r\n" + note;
}

void AddCsv::Fill_Tables() {
    Files.Resize(static_cast<int>(Tables.size()) + 1, static_cast<int>(std::size(headings)));
    for (int column = 0; column < Files.Columns(); ++column)
        Files.Set_Text(0, column, headings[column]);
    for (int row = 1; row < Files.Rows(); ++row) {
        const CsvTable& table = Tables[static_cast<std::size_t>(row) - 1];
        Files.Set_Text(row, 0, CStr(row));
        Files.Set_Text(row, 1, Name_Of(table.Path));
        Files.Set_Text(row, 2, table.NamesLine ? table.Headings.back() : std::string());
        Files.Set_Text(row, 3,
                       table.Faults.empty() ? CStr(static_cast<int>(table.Rows.size())) : "not usable");
        Files.Set_Text(row, 4, CStr(static_cast<int>(table.Headings.size())));
        for (int column = 3; column < Files.Columns(); ++column)
            Files.At(row, column).Align = TextGrid::Alignment::Right;
    }
    const auto rows = std::min(Group.Rows.size(), rows_of_preview);
    Preview.Resize(static_cast<int>(rows) + 1, static_cast<int>(Group.Headings.size()) + 1);
    Preview.Clear();
    for (int column = 1; column < Preview.Columns(); ++column) {
        const auto place = static_cast<std::size_t>(column) - 1;
        Preview.Set_Text(0, column, Group.Headings[place]);
        for (int row = 1; row < Preview.Rows(); ++row)
            Preview.Set_Text(row, column, Group.Rows[static_cast<std::size_t>(row) - 1][place]);
    }
    for (int row = 1; row < Preview.Rows(); ++row)
        Preview.Set_Text(row, 0, CStr(row));
}

void AddCsv::Write() {
    // The files may have been changed by another program since.
    for (CsvTable& table : Tables)
        table = Table_Of(table.Path);
    Look();
    const auto refuse = [this](const std::string& why) { Outside.Ask.Say(why, Title, Icon::Critical); };
    Out = Trim(Out);
    if (!Ready()) return refuse(Tables.empty() ? Hint : Group.Refusal);
    if (Out.empty()) return refuse("The file to write has no name");
    if (Name_Of(Out).find('.') == std::string::npos) Out += ".csv";
    if (std::any_of(Tables.begin(), Tables.end(),
                    [this](const CsvTable& table) { return Same_Table(table, Out); }))
        return refuse(Out + " is one of the files that are grouped");
    if (File_Exists(Out) && Out != Agreed &&
        !Outside.Ask.Ask_Yes(Out + " already exists, overwrite ?", Title))
        return;
    Agreed.clear();
    const std::string reason = Write_Csv_Group(Out, Group);
    if (!reason.empty()) return refuse(Out + " cannot be written: " + reason);
    Outside.Ask.Say(Out + " has been recorded, " + CStr(static_cast<int>(Group.Rows.size())) + " rows of " +
                        CStr(static_cast<int>(Tables.size())) + " files",
                    Title, Icon::Information);
}

}  // namespace tarnvik
