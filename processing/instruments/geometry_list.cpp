#include "processing/instruments/geometry_list.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "processing/instruments/seg2_strings.h"
#include "processing/instruments/trace_places.h"

namespace tarnvik {

namespace {

enum class Kind { File, Record, Channel, Place, Foreign };

struct Column {
    const char* Heading;  ///< letters alone, small
    Kind Is;
    std::optional<double> TracePlaces::*Place = nullptr;
};
constexpr std::array<Column, 9> columns = {
    {{"file", Kind::File},
     {"record", Kind::Record},
     {"channel", Kind::Channel},
     {"shotx", Kind::Place, &TracePlaces::ShotX},
     {"shoty", Kind::Place, &TracePlaces::ShotY},
     {"shotelevation", Kind::Place, &TracePlaces::ShotElevation},
     {"receiverx", Kind::Place, &TracePlaces::ReceiverX},
     {"receivery", Kind::Place, &TracePlaces::ReceiverY},
     {"receiverelevation", Kind::Place, &TracePlaces::ReceiverElevation}}};
constexpr Column foreign{"", Kind::Foreign};
constexpr double farthest_place = 2e9;  // what a 32-bit word holds without decimals

std::vector<std::string> Fields_Of(std::string_view line, char separator) {
    std::vector<std::string> fields;
    for (;;) {
        const auto end = line.find(separator);
        std::string field = Trim(line.substr(0, end));
        if (field.size() > 1 && field.front() == '"' && field.back() == '"')
            field = field.substr(1, field.size() - 2);
        fields.push_back(std::move(field));
        if (end == std::string_view::npos) return fields;
        line.remove_prefix(end + 1);
    }
}

Column Column_Named(const std::string& heading) {
    std::string letters;
    for (const char letter : LCase(heading)) {
        if (letter >= 'a' && letter <= 'z') letters += letter;
    }
    const auto* found = std::find_if(columns.begin(), columns.end(),
                                     [&](const Column& one) { return letters == one.Heading; });
    return found == columns.end() ? foreign : *found;
}

std::string Without_Ending(const std::string& name) {
    const auto point = name.rfind('.');
    return point == std::string::npos || point == 0 ? name : name.substr(0, point);
}

class ListReader {
  public:
    explicit ListReader(std::string_view text) : Left(text) {
        constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
        if (Left.substr(0, byte_order_mark.size()) == byte_order_mark)
            Left.remove_prefix(byte_order_mark.size());
    }

    GeometryList Read() {
        for (std::string line; List.Fault.empty() && Next_Line(line);) {
            if (line.empty()) continue;
            if (Columns.empty()) {
                Take_Headings(line);
            } else {
                Take_Row(Fields_Of(line, Separator));
            }
        }
        if (List.Fault.empty() && List.Rows.empty()) List.Fault = "the table has no row";
        return std::move(List);
    }

  private:
    bool Next_Line(std::string& line) {
        if (Left.empty()) return false;
        const auto end = Left.find('\n');
        line = Trim(Left.substr(0, end));
        while (!line.empty() && line.back() == '\r')
            line = Trim(line.substr(0, line.size() - 1));
        Left.remove_prefix(end == std::string_view::npos ? Left.size() : end + 1);
        ++Line;
        return true;
    }
    void Refuse(const std::string& why) { List.Fault = "line " + CStr(Line) + ": " + why; }

    void Take_Headings(const std::string& line) {
        for (const char candidate : {';', '\t', ','}) {
            if (line.find(candidate) == std::string::npos) continue;
            Separator = candidate;
            break;
        }
        bool key = false;
        bool place = false;
        for (const std::string& heading : Fields_Of(line, Separator)) {
            Columns.push_back(Column_Named(heading));
            key = key || Columns.back().Is == Kind::File || Columns.back().Is == Kind::Record;
            place = place || Columns.back().Is == Kind::Place;
        }
        if (!key)
            Refuse("no column is headed File or Record");
        else if (!place)
            Refuse("no column is headed ShotX, ReceiverX or another place");
    }

    void Take_Row(const std::vector<std::string>& fields) {
        GeometryRow row;
        row.Line = Line;
        for (std::size_t i = 0; i < Columns.size() && List.Fault.empty(); ++i) {
            const std::string field = i < fields.size() ? fields[i] : std::string();
            if (!field.empty()) Take_Field(Columns[i], field, row);
        }
        if (!List.Fault.empty()) return;
        if (row.File.empty() && !row.Record) return Refuse("neither file nor record is told");
        List.Rows.push_back(std::move(row));
    }
    void Take_Field(const Column& column, const std::string& field, GeometryRow& row) {
        if (column.Is == Kind::Foreign) return;
        if (column.Is == Kind::File) {
            row.File = LCase(Name_Of(field));
            return;
        }
        const std::vector<double> numbers = Numbers_Of_Text(field);
        // The whole field must be the number: "1o" is a slip of the hand.
        const bool number =
            numbers.size() == 1 && field.find_first_not_of("0123456789+-.,eE") == std::string::npos;
        if (!number || std::abs(numbers[0]) > farthest_place)
            return Refuse("\"" + field + "\" is no " + column.Heading);
        if (column.Is == Kind::Place) {
            row.Places.*column.Place = numbers[0];
            return;
        }
        if (numbers[0] != std::floor(numbers[0])) return Refuse("\"" + field + "\" is no " + column.Heading);
        (column.Is == Kind::Record ? row.Record : row.Channel) = static_cast<std::int64_t>(numbers[0]);
    }

    std::string_view Left;
    GeometryList List;
    std::vector<Column> Columns;
    char Separator = ';';
    int Line = 0;
};

}  // namespace

std::vector<std::size_t> GeometryList::Rows_Of(const std::string& file, std::int64_t record) const {
    const std::string name = LCase(Name_Of(file));
    const std::string short_name = Without_Ending(name);
    std::vector<std::size_t> rows;
    for (std::size_t i = 0; i < Rows.size(); ++i) {
        const GeometryRow& row = Rows[i];
        const bool its_file = row.File.empty() || row.File == name || row.File == short_name;
        if (its_file && row.Record.value_or(record) == record) rows.push_back(i);
    }
    return rows;
}

TracePlaces GeometryList::Places_Of(const std::vector<std::size_t>& rows, std::int64_t channel,
                                    std::vector<bool>& used) const {
    TracePlaces places;
    used.resize(Rows.size());
    for (const bool with_channel : {false, true}) {
        for (const std::size_t i : rows) {
            const GeometryRow& row = Rows[i];
            if (row.Channel.has_value() != with_channel || row.Channel.value_or(channel) != channel) continue;
            Lay_Over(places, row.Places);
            used[i] = true;
        }
    }
    return places;
}

GeometryList Read_Geometry_List(std::string_view text) {
    return ListReader(text).Read();
}

}  // namespace tarnvik
