#include <algorithm>
#include <map>
#include <set>

#include "core/text/letters.h"
#include "core/text/number.h"
#include "output/imports/pick_files.h"

namespace tarnvik {

namespace {

constexpr double ms_per_second = 1000;

/// A table of the file: its count, the names of its columns and its rows.
struct Table {
    std::vector<std::string> Names;
    std::vector<std::vector<double>> Rows;

    /// Column of a name, -1 without it.
    int Column(std::string_view name) const {
        const auto found = std::find(Names.begin(), Names.end(), name);
        return found == Names.end() ? -1 : static_cast<int>(found - Names.begin());
    }
    std::optional<double> Value(const std::vector<double>& row, int column) const {
        if (column < 0 || column >= static_cast<int>(row.size())) return std::nullopt;
        return row[static_cast<std::size_t>(column)];
    }
};

/// Names behind a "#", without the units that may stand behind them.
std::vector<std::string> Names_In(const FieldLines& lines) {
    std::vector<std::string> names;
    for (const std::string& field : lines.Fields()) {
        std::string name = LCase(field.substr(0, field.find('/')));
        name.erase(std::remove(name.begin(), name.end(), '#'), name.end());
        if (!name.empty()) names.push_back(name);
    }
    return names;
}

/// Reads a count, then the names of the columns, then so many rows. Answers what is wrong.
std::string Read_Table(FieldLines& lines, const std::string& what, Table& table) {
    do {
        if (!lines.Next()) return "The file ends before the number of its " + what;
    } while (lines.Fields().front().starts_with('#'));
    const auto count = lines.Number(0);
    if (!count || *count < 0 || *count != Int(*count)) return lines.Place() + " holds no number of " + what;
    while (static_cast<double>(table.Rows.size()) < *count) {
        if (!lines.Next()) return "The file ends within its " + what;
        if (lines.Fields().front().starts_with('#')) {
            if (table.Rows.empty()) table.Names = Names_In(lines);
            continue;
        }
        std::vector<double> row;
        for (int field = 0; field < lines.Count(); ++field) {
            if (lines.Fields()[static_cast<std::size_t>(field)].starts_with('#')) break;
            const auto number = lines.Number(field);
            if (!number) return lines.Place() + " holds a word among the " + what;
            row.push_back(*number);
        }
        table.Rows.push_back(std::move(row));
    }
    return {};
}

/// Places along the line. Two columns are distance and elevation whatever they are called; of three the last
/// is the elevation unless all are 0 there.
std::string Places_Of(const Table& table, std::vector<ImportedPlace>& places) {
    if (table.Rows.empty()) return {};
    const std::size_t columns = table.Rows.front().size();
    int x = table.Column("x");
    int z = table.Column("z");
    int y = table.Column("y");
    if (x < 0) {
        x = 0;
        y = columns > 1 ? 1 : -1;
        z = columns > 2 ? 2 : -1;
    }
    const auto flat = [&table](int column) {
        return std::all_of(table.Rows.begin(), table.Rows.end(), [&](const std::vector<double>& row) {
            return table.Value(row, column).value_or(0) == 0;
        });
    };
    if (z < 0 || (y >= 0 && flat(z) && !flat(y))) z = y;
    for (const std::vector<double>& row : table.Rows) {
        const auto place = table.Value(row, x);
        if (!place) return "A position has no x";
        places.push_back({*place, table.Value(row, z)});
    }
    return {};
}

/// Position that a number means, from 1.
std::optional<std::size_t> Position(std::optional<double> number, std::size_t count) {
    if (!number || *number < 1 || *number > static_cast<double>(count) || *number != Int(*number))
        return std::nullopt;
    return static_cast<std::size_t>(*number) - 1;
}

}  // namespace

ImportedLine Read_Unified(std::string_view bytes) {
    ImportedLine line;
    FieldLines lines(bytes, "");
    Table positions;
    Table data;
    std::vector<ImportedPlace> places;
    line.Refusal = Read_Table(lines, "positions", positions);
    if (line.Refusal.empty()) line.Refusal = Places_Of(positions, places);
    if (line.Refusal.empty()) line.Refusal = Read_Table(lines, "measurements", data);
    if (!line.Refusal.empty()) return line;
    if (data.Names.empty()) data.Names = {"s", "g", "t"};
    const int source = data.Column("s");
    const int receiver = data.Column("g");
    const int time = data.Column("t");
    const int valid = data.Column("valid");
    if (source < 0 || receiver < 0 || time < 0) {
        line.Refusal = "The measurements have no columns s, g and t";
        return line;
    }
    std::map<std::size_t, std::size_t> shots;  // by their positions
    std::set<std::size_t> receivers;
    for (std::size_t i = 0; i < data.Rows.size(); ++i) {
        const std::vector<double>& row = data.Rows[i];
        const std::string place = "Measurement " + CStr(static_cast<double>(i) + 1);
        const auto s = Position(data.Value(row, source), places.size());
        const auto g = Position(data.Value(row, receiver), places.size());
        const auto t = data.Value(row, time);
        if (!s || !g || !t) {
            line.Refusal = place + " names no position of the file, or has no time";
            return line;
        }
        if (valid >= 0 && data.Value(row, valid) == 0.0) {
            line.LeftOut.push_back(place + ": it is marked as not valid");
            continue;
        }
        const auto [found, is_new] = shots.try_emplace(*s, line.Shots.size());
        if (is_new) {
            line.Shots.emplace_back();
            line.Shots.back().Place = places[*s];
        }
        line.Shots[found->second].Picks.push_back({places[*g].X, *t * ms_per_second});
        receivers.insert(*g);
    }
    // Positions that nothing is shot at are receivers, also those without picks.
    for (std::size_t i = 0; i < places.size(); ++i)
        if (receivers.contains(i) || !shots.contains(i)) line.Receivers.push_back(places[i]);
    return line;
}

PickFile Kind_Of_Pick_File(std::string_view bytes) {
    const std::string_view line = bytes.substr(0, bytes.find('\n'));
    if (LCase(Trim(line)).starts_with("shot") || line.find(';') != std::string_view::npos)
        return PickFile::Rayfract;
    // The first line of a unified file is a count alone, most often with a remark.
    FieldLines lines(bytes, "");
    if (line.find('#') != std::string_view::npos || (lines.Next() && lines.Count() == 1))
        return PickFile::Unified;
    return PickFile::Plotrefa;
}

}  // namespace tarnvik
