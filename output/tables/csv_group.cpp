#include "output/tables/csv_group.h"

#include <algorithm>
#include <optional>
#include <set>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "core/xlsx_file.h"

namespace tarnvik {

namespace {

constexpr std::size_t most_faults = 5;  ///< told of one file

std::vector<std::string> Fields_Of(std::string_view line, char separator) {
    std::vector<std::string> fields;
    std::string field;
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char letter = line[i];
        if (quoted && letter == '"' && i + 1 < line.size() && line[i + 1] == '"') {
            field += '"';
            ++i;
        } else if (letter == '"') {
            quoted = !quoted;
        } else if (letter == separator && !quoted) {
            fields.push_back(Trim(field));
            field.clear();
        } else {
            field += letter;
        }
    }
    fields.push_back(Trim(field));
    return fields;
}

/// A semicolon behind the last field is the end of the line, not a field of its own.
void Drop_Empty_End(std::vector<std::string>& fields, std::size_t wanted) {
    while (fields.size() > wanted && fields.back().empty())
        fields.pop_back();
}

bool Is_Utf8(std::string_view bytes) {
    std::size_t follow = 0;
    for (const char letter : bytes) {
        const auto code = static_cast<unsigned char>(letter);
        if (follow > 0) {
            if ((code & 0xC0) != 0x80) return false;
            --follow;
        } else if (code >= 0xC2 && code <= 0xF4) {
            follow = code >= 0xF0 ? 3 : code >= 0xE0 ? 2 : 1;
        } else if (code >= 0x80) {
            return false;
        }
    }
    return follow == 0;
}

/// The number that a field is as a whole; a comma may stand for its point.
std::optional<double> Number_Of(std::string text) {
    std::replace(text.begin(), text.end(), ',', '.');
    if (text.empty() || text.find_first_not_of("0123456789+-.eE") != std::string::npos ||
        text.find_first_of("0123456789") == std::string::npos)
        return std::nullopt;
    return Number_In(text);
}

void Add_Fault(CsvTable& table, const std::string& fault) {
    if (table.Faults.size() < most_faults) {
        table.Faults.push_back(fault);
    } else if (table.Faults.size() == most_faults) {
        table.Faults.push_back("and more");
    }
}

void Look_For_Name(CsvTable& table) {
    const std::string& name = table.Headings.back();
    table.NamesLine = table.Headings.size() > 1 && !name.empty() && !table.Rows.empty() &&
                      std::all_of(table.Rows.begin(), table.Rows.end(),
                                  [&name](const auto& row) { return row.back() == name; });
}

/// Place of a heading in a table; nothing where it has none. The name of the line is no such column.
std::optional<std::size_t> Column_Of(const CsvTable& table, const std::string& heading) {
    const std::size_t count = table.Headings.size() - (table.NamesLine ? 1 : 0);
    for (std::size_t column = 0; column < count; ++column) {
        if (LCase(table.Headings[column]) == LCase(heading)) return column;
    }
    return std::nullopt;
}

std::string Joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "\"" : ", \"") + name + "\"";
    return text;
}

std::string Line_Name(const CsvTable& table) {
    if (table.NamesLine) return table.Headings.back();
    const std::string name = Name_Of(table.Path);
    return name.substr(0, name.rfind('.'));
}

/// The headings of the group; a Refusal where a heading stands twice.
void Take_Headings(CsvGroup& group, const CsvTable& first) {
    group.Headings.assign(first.Headings.begin(), first.Headings.end() - (first.NamesLine ? 1 : 0));
    std::set<std::string> seen;
    for (const std::string& heading : group.Headings) {
        if (!seen.insert(LCase(heading)).second)
            group.Refusal = first.Path + ": the heading \"" + heading + "\" stands twice";
    }
}

/// Appends the rows of a table by the headings of the group.
void Append(CsvGroup& group, const CsvTable& table, const CsvGroupRequest& request) {
    std::vector<std::optional<std::size_t>> places;
    std::vector<std::string> missing;
    std::set<std::size_t> used;
    bool other_order = false;
    for (const std::string& heading : group.Headings) {
        const auto place = Column_Of(table, heading);
        if (!place) missing.push_back(heading);
        if (place) used.insert(*place);
        other_order |= place && *place != places.size();
        places.push_back(place);
    }
    std::vector<std::string> unknown;
    for (std::size_t column = 0; column + (table.NamesLine ? 1 : 0) < table.Headings.size(); ++column) {
        if (!used.contains(column)) unknown.push_back(table.Headings[column]);
    }
    const std::string name = Name_Of(table.Path);
    if (!unknown.empty()) {
        group.Refusal = name + " has columns that the first file lacks: " + Joined(unknown);
        return;
    }
    if (!missing.empty() && !request.FillMissing) {
        group.Refusal = name + " lacks columns of the first file: " + Joined(missing);
        return;
    }
    if (!missing.empty()) group.Notes.push_back(name + ": " + Joined(missing) + " stay empty");
    if (other_order)
        group.Notes.push_back(name + " has its columns in another order; they go by their names");
    for (const auto& row : table.Rows) {
        std::vector<std::string>& fields = group.Rows.emplace_back();
        for (const auto& place : places)
            fields.push_back(place ? row[*place] : std::string());
        if (request.LineColumn) fields.push_back(Line_Name(table));
    }
}

/// Columns that hold numbers in some rows and words in others.
void Note_Mixed_Columns(CsvGroup& group) {
    for (std::size_t column = 0; column < group.Headings.size(); ++column) {
        std::size_t numbers = 0;
        std::size_t words = 0;
        for (const auto& row : group.Rows) {
            if (row[column].empty()) continue;
            ++(Number_Of(row[column]) ? numbers : words);
        }
        const bool is_line = column + 1 == group.Headings.size() && group.Headings[column] == "Line";
        if (numbers > 0 && words > 0 && !is_line)
            group.Notes.push_back("\"" + group.Headings[column] + "\" holds numbers and words");
    }
}

/// A field as it stands in the file.
std::string Written(const std::string& field) {
    if (field.find_first_of(";\"\r\n") == std::string::npos) return field;
    std::string text = "\"";
    for (const char letter : field)
        text += letter == '"' ? std::string("\"\"") : std::string(1, letter);
    return text + "\"";
}

std::string Line_Of(const std::vector<std::string>& fields) {
    std::string line;
    for (const std::string& field : fields)
        line += (line.empty() ? "" : ";") + Written(field);
    return line + "\r\n";
}

}  // namespace

CsvTable Read_Csv_Table(const std::string& path, std::string_view bytes) {
    CsvTable table;
    table.Path = path;
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    if (bytes.find('\0') != std::string_view::npos) {
        Add_Fault(table, "it is no text file");
        return table;
    }
    const std::string text = Is_Utf8(bytes) ? std::string(bytes) : From_Windows_1252(bytes);
    char separator = 0;
    int number = 0;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        std::string_view line(text.data() + start, end - start);
        start = end + 1;
        ++number;
        while (!line.empty() && (line.back() == '\r' || line.back() == ' '))
            line.remove_suffix(1);
        if (line.empty()) continue;
        if (separator == 0) {
            separator = line.find(';') != std::string_view::npos    ? ';'
                        : line.find('\t') != std::string_view::npos ? '\t'
                                                                    : ',';
            table.Headings = Fields_Of(line, separator);
            Drop_Empty_End(table.Headings, 1);
            continue;
        }
        std::vector<std::string> fields = Fields_Of(line, separator);
        Drop_Empty_End(fields, table.Headings.size());
        if (fields.size() != table.Headings.size()) {
            Add_Fault(table, "line " + CStr(number) + " has " + CStr(static_cast<int>(fields.size())) +
                                 " fields, the headings are " +
                                 CStr(static_cast<int>(table.Headings.size())));
            continue;
        }
        table.Rows.push_back(std::move(fields));
    }
    if (table.Headings.size() < 2) {
        Add_Fault(table, "it has no headings separated by semicolons, tabs or commas");
    } else if (std::all_of(table.Headings.begin(), table.Headings.end(),
                           [](const std::string& heading) { return Number_Of(heading).has_value(); })) {
        Add_Fault(table, "its first line holds numbers and no headings");
    } else {
        if (table.Rows.empty() && table.Faults.empty()) Add_Fault(table, "it holds headings alone");
        Look_For_Name(table);
    }
    return table;
}

CsvGroup Group_Tables(const std::vector<CsvTable>& tables, const CsvGroupRequest& request) {
    CsvGroup group;
    const auto refused = [&group] {
        group.Rows.clear();
        return group;
    };
    if (tables.empty()) {
        group.Refusal = "No files are chosen";
        return group;
    }
    for (const CsvTable& table : tables) {
        if (table.Faults.empty()) continue;
        group.Refusal += (group.Refusal.empty() ? "" : "\r\n") + table.Path + ":";
        for (const std::string& fault : table.Faults)
            group.Refusal += " " + fault + (&fault == &table.Faults.back() ? "" : ";");
    }
    if (!group.Refusal.empty()) return refused();
    Take_Headings(group, tables.front());
    std::set<std::string> lines;
    for (const CsvTable& table : tables) {
        if (group.Refusal.empty()) Append(group, table, request);
        if (!lines.insert(Line_Name(table)).second)
            group.Notes.push_back("The line " + Line_Name(table) + " stands there more than once");
    }
    if (!group.Refusal.empty()) return refused();
    if (request.LineColumn) group.Headings.emplace_back("Line");
    Note_Mixed_Columns(group);
    return group;
}

std::string Write_Csv_Group(const std::string& path, const CsvGroup& group) {
    if (LCase(Right(path, 5)) == ".xlsx") {
        XlsxSheet sheet{"Results", Name_Of(path), group.Headings, {}};
        for (const auto& row : group.Rows) {
            std::vector<XlsxCell>& cells = sheet.Rows.emplace_back();
            for (const std::string& field : row) {
                const auto number = Number_Of(field);
                cells.push_back(field.empty() ? XlsxCell() : number ? XlsxCell(*number) : XlsxCell(field));
            }
        }
        return Write_Xlsx(path, sheet);
    }
    std::string text = Line_Of(group.Headings);
    for (const auto& row : group.Rows)
        text += Line_Of(row);
    return Replace_File(path, To_Windows_1252(text));
}

}  // namespace tarnvik
