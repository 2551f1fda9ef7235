#include "processing/header_geometry_table.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <set>
#include <sstream>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "core/xlsx_file.h"
#include "processing/header_reader.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

enum class ScaledBy { Nothing, Coordinates, Elevations };

struct ColumnRow {
    const char* Heading;
    int Word;
    ScaledBy Scale;
};

constexpr std::array<ColumnRow, geometry_columns> column_rows = {{
    {"Record", words::fldr, ScaledBy::Nothing},
    {"Channel", words::tracf, ScaledBy::Nothing},
    {"ShotStation", words::ep, ScaledBy::Nothing},
    {"ShotX", words::sx, ScaledBy::Coordinates},
    {"ShotY", words::sy, ScaledBy::Coordinates},
    {"ShotElevation", words::selev, ScaledBy::Elevations},
    {"ReceiverStation", words::tracl, ScaledBy::Nothing},
    {"ReceiverX", words::gx, ScaledBy::Coordinates},
    {"ReceiverY", words::gy, ScaledBy::Coordinates},
    {"ReceiverElevation", words::gelev, ScaledBy::Elevations},
}};
constexpr const char* trace_heading = "Trace";

/// Words that a scale word holds for: first and last, all of one row of the header.
struct ScaledWords {
    int ScaleWord;
    int First;
    int Last;
};
constexpr ScaledWords scaled_coordinates{words::scalco, words::sx, words::gy};
constexpr ScaledWords scaled_elevations{words::scalel, words::gelev, words::scalel - 1};

constexpr double thousandth = 1e-3;
constexpr double rounding_share = 1e-6;  ///< of a whole number, what binary fractions leave

std::string Place_Text(std::int64_t number) {
    return CStr(static_cast<double>(number));
}

TraceGeometry Geometry_Of(const HeaderReader& headers, std::int64_t trace) {
    const double coordinates = Scale_Factor(headers.Word(words::scalco));
    const double elevations = Scale_Factor(headers.Word(words::scalel));
    TraceGeometry row;
    row.Trace = trace;
    for (std::size_t i = 0; i < geometry_columns; ++i) {
        const ColumnRow& column = column_rows[i];
        double factor = 1;
        if (column.Scale == ScaledBy::Coordinates) factor = coordinates;
        if (column.Scale == ScaledBy::Elevations) factor = elevations;
        // Divided where the word divides, so that 1234 by -10 is 123.4 and not 123.4 less a last bit.
        row.Values[i] = factor < 1 ? headers.Word(column.Word) / std::round(1 / factor)
                                   : headers.Word(column.Word) * factor;
    }
    return row;
}

std::vector<std::string> Headings() {
    std::vector<std::string> headings{trace_heading};
    for (const ColumnRow& column : column_rows)
        headings.emplace_back(column.Heading);
    return headings;
}

std::string Joined(const std::vector<std::string>& fields) {
    std::string line;
    for (const std::string& field : fields)
        line += (line.empty() ? "" : ";") + field;
    return line + "\r\n";
}

std::string In_Columns(const std::vector<std::string>& fields) {
    constexpr int width = 19;  // the longest heading and two blanks
    std::ostringstream line;
    for (std::size_t i = 0; i < fields.size(); ++i)
        line << std::setw(i == 0 ? 8 : width) << fields[i];
    return line.str() + "\r\n";
}

std::vector<std::string> Split(std::string_view line, char separator) {
    std::vector<std::string> fields;
    if (separator == ' ') {
        std::istringstream blanks{std::string(line)};
        for (std::string field; blanks >> field;)
            fields.push_back(field);
        return fields;
    }
    for (;;) {
        const auto end = line.find(separator);
        fields.push_back(Trim(line.substr(0, end)));
        if (end == std::string_view::npos) return fields;
        line.remove_prefix(end + 1);
    }
}

/// A field that is a number and nothing else.
std::optional<double> Number_Field(std::string field, bool comma_is_point) {
    if (comma_is_point) std::replace(field.begin(), field.end(), ',', '.');
    std::istringstream reader(field);
    reader.imbue(std::locale::classic());
    double value = 0;
    if (!(reader >> value) || !std::isfinite(value)) return {};
    reader >> std::ws;
    return reader.eof() ? std::optional(value) : std::nullopt;
}

/// Lower-case letters of a heading: "Shot X" and "shot_x" are "shotx".
std::string Letters_Of(const std::string& heading) {
    std::string letters;
    for (const char letter : LCase(heading)) {
        if (letter >= 'a' && letter <= 'z') letters += letter;
    }
    return letters;
}

/// Reads the lines one after the other into rows.
class TableReader {
  public:
    explicit TableReader(std::string_view text) : Left(text) {}

    GeometryTable Read() {
        for (std::string line; Table.Fault.empty() && Next_Line(line);)
            Take(line);
        if (Table.Fault.empty() && Table.Rows.empty()) Table.Fault = "the table has no trace";
        return std::move(Table);
    }

  private:
    static constexpr int trace_column = -1;
    static constexpr int foreign_column = -2;

    bool Next_Line(std::string& line) {
        if (Left.empty()) return false;
        const auto end = Left.find('\n');
        line = Trim(Left.substr(0, end));
        while (!line.empty() && line.back() == '\r')
            line.pop_back();
        Left.remove_prefix(end == std::string_view::npos ? Left.size() : end + 1);
        ++Number;
        return true;
    }
    void Refuse(const std::string& why) { Table.Fault = "line " + CStr(Number) + ": " + why; }

    void Take(const std::string& line) {
        if (line.empty()) return;
        if (Columns.empty()) {
            for (const char candidate : {';', '\t', ','}) {
                if (line.find(candidate) != std::string::npos) {
                    Separator = candidate;
                    break;
                }
            }
        }
        const std::vector<std::string> fields = Split(line, Separator);
        if (!Columns.empty()) return Take_Row(fields);
        const bool headed = std::any_of(fields.begin(), fields.end(), [this](const std::string& field) {
            return !field.empty() && !Number_Field(field, Comma_Is_Point());
        });
        if (headed) return Take_Headings(fields);
        for (int i = trace_column; i < static_cast<int>(geometry_columns); ++i)
            Columns.push_back(i);
        Take_Row(fields);
    }
    void Take_Headings(const std::vector<std::string>& headings) {
        for (const std::string& heading : headings) {
            const std::string name = Letters_Of(heading);
            int found = name == "trace" || name == "tracenb" ? trace_column : foreign_column;
            for (std::size_t i = 0; i < geometry_columns; ++i) {
                if (name == LCase(column_rows[i].Heading)) found = static_cast<int>(i);
            }
            if (found != foreign_column && std::find(Columns.begin(), Columns.end(), found) != Columns.end())
                return Refuse("the column \"" + heading + "\" stands twice");
            Columns.push_back(found);
        }
        if (std::find(Columns.begin(), Columns.end(), trace_column) == Columns.end())
            Refuse(std::string("no column \"") + trace_heading + "\" in the headings");
    }
    void Take_Row(const std::vector<std::string>& fields) {
        if (fields.size() != Columns.size()) {
            return Refuse(CStr(static_cast<int>(fields.size())) + " columns instead of " +
                          CStr(static_cast<int>(Columns.size())));
        }
        TraceGeometry row;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (Columns[i] == foreign_column || fields[i].empty()) continue;
            const auto value = Number_Field(fields[i], Comma_Is_Point());
            if (!value) return Refuse("\"" + One_Line(fields[i]) + "\" is no number");
            if (Columns[i] != trace_column) {
                row.Values[static_cast<std::size_t>(Columns[i])] = *value;
            } else if (*value >= 1 && *value == std::floor(*value) && *value < 1e9) {
                row.Trace = static_cast<std::int64_t>(*value);
            } else {
                return Refuse("\"" + fields[i] + "\" is no number of a trace");
            }
        }
        if (row.Trace == 0) return Refuse("the number of the trace is missing");
        Table.Rows.push_back(row);
    }
    bool Comma_Is_Point() const { return Separator == ';' || Separator == '\t'; }

    std::string_view Left;
    GeometryTable Table;
    std::vector<int> Columns;
    char Separator = ' ';
    int Number = 0;
};

/// A value in steps of a scale, as a word holds it.
double In_Steps(double value, int scale) {
    return scale < 0 ? value * -scale : value / std::max(scale, 1);
}

bool Is_Whole(double steps) {
    return std::abs(steps - std::round(steps)) <= rounding_share * std::max(1.0, std::abs(steps));
}

/// The words that one trace gets.
using NewWords = std::vector<std::pair<int, double>>;

class Planning {
  public:
    Planning(const std::string& su_file, const std::vector<TraceGeometry>& table)
        : Headers(su_file), Table(table) {}

    /// Why the table cannot be written; empty when the plan is made.
    std::string Make(GeometryScales scales) {
        if (!Headers.Is_Open()) return Headers.Reason();
        if (std::string wrong = Check_Rows(); !wrong.empty()) return wrong;
        Scales = scales;
        if (Scales.Coordinates == 0) Scales.Coordinates = Coarsest(ScaledBy::Coordinates, scaled_coordinates);
        if (Scales.Elevations == 0) Scales.Elevations = Coarsest(ScaledBy::Elevations, scaled_elevations);
        for (const TraceGeometry& row : Table) {
            Headers.Take(row.Trace);
            NewWords words;
            std::string wrong = Add_Values(row, words);
            if (wrong.empty())
                wrong = Add_Kept(row, ScaledBy::Coordinates, scaled_coordinates, Scales.Coordinates, words);
            if (wrong.empty())
                wrong = Add_Kept(row, ScaledBy::Elevations, scaled_elevations, Scales.Elevations, words);
            if (!wrong.empty()) return "trace " + Place_Text(row.Trace) + ": " + wrong;
            Plan.emplace_back(row.Trace, std::move(words));
        }
        return {};
    }
    const GeometryScales& Scales_Taken() const { return Scales; }
    const std::vector<std::pair<std::int64_t, NewWords>>& Words() const { return Plan; }

  private:
    std::string Check_Rows() {
        std::set<std::int64_t> met;
        for (const TraceGeometry& row : Table) {
            const std::string trace = "trace " + Place_Text(row.Trace);
            if (!Headers.Take(row.Trace))
                return trace + ": the file has " + Place_Text(Headers.Nb_Traces()) + " traces";
            if (!met.insert(row.Trace).second) return trace + " stands twice in the table";
            for (const GeometryColumn column : {GeometryColumn::Record, GeometryColumn::Channel}) {
                const ColumnRow& named = column_rows[static_cast<std::size_t>(column)];
                const double stands = Headers.Word(named.Word);
                if (row[column] && *row[column] != stands) {
                    return trace + ": " + LCase(named.Heading) + " " + CStr(*row[column]) +
                           " in the table, " + CStr(stands) + " in the file. Does the table belong to it?";
                }
            }
        }
        return {};
    }
    static bool Given(const TraceGeometry& row, ScaledBy scale) {
        for (std::size_t i = 0; i < geometry_columns; ++i) {
            if (column_rows[i].Scale == scale && row.Values[i]) return true;
        }
        return false;
    }
    /// Coarsest scale that holds what the traces of the table have under a scale word, to a thousandth.
    int Coarsest(ScaledBy scale, const ScaledWords& scaled) {
        for (const int candidate : {1, -10, -100}) {
            bool holds = true;
            for (const TraceGeometry& row : Table) {
                Headers.Take(row.Trace);
                holds = holds && (!Given(row, scale) || Holds(row, scale, scaled, candidate));
            }
            if (holds) return candidate;
        }
        return -1000;
    }
    bool Holds(const TraceGeometry& row, ScaledBy scale, const ScaledWords& scaled, int candidate) const {
        const double resolution = thousandth / 2;
        const auto fits = [&](double value) {
            const double step = candidate < 0 ? -1.0 / candidate : candidate;
            return std::abs(value - std::round(value / step) * step) < resolution;
        };
        for (std::size_t i = 0; i < geometry_columns; ++i) {
            if (column_rows[i].Scale == scale && row.Values[i] && !fits(*row.Values[i])) return false;
        }
        const double factor = Scale_Factor(Headers.Word(scaled.ScaleWord));
        for (int word = scaled.First; word <= scaled.Last; ++word) {
            if (!In_Table(row, word) && !fits(Headers.Word(word) * factor)) return false;
        }
        return true;
    }
    static bool In_Table(const TraceGeometry& row, int word) {
        for (std::size_t i = 0; i < geometry_columns; ++i) {
            if (column_rows[i].Word == word && row.Values[i]) return true;
        }
        return false;
    }
    std::string Add(int word, double value, NewWords& words) const {
        const double steps = std::round(value);
        const bool fits =
            Header_Word(word).Type == WordType::Int16 ? CInt(steps).has_value() : CLng(steps).has_value();
        if (!fits) return CStr(steps) + " does not fit the word " + Header_Word(word).Name;
        if (Headers.Word(word) != steps) words.emplace_back(word, steps);
        return {};
    }
    std::string Add_Values(const TraceGeometry& row, NewWords& words) const {
        for (std::size_t i = 0; i < geometry_columns; ++i) {
            const ColumnRow& column = column_rows[i];
            if (!row.Values[i] || column.Word == words::fldr || column.Word == words::tracf) continue;
            double value = *row.Values[i];
            if (column.Scale == ScaledBy::Coordinates) value = In_Steps(value, Scales.Coordinates);
            if (column.Scale == ScaledBy::Elevations) value = In_Steps(value, Scales.Elevations);
            if (std::string wrong = Add(column.Word, value, words); !wrong.empty()) return wrong;
        }
        return {};
    }
    /// The scale word, and the words under it that the table does not give, in the new scale.
    std::string Add_Kept(const TraceGeometry& row, ScaledBy scale, const ScaledWords& scaled, int new_scale,
                         NewWords& words) const {
        if (!Given(row, scale)) return {};
        const double former = Scale_Factor(Headers.Word(scaled.ScaleWord));
        for (int word = scaled.First; word <= scaled.Last; ++word) {
            if (In_Table(row, word)) continue;
            const double value = Headers.Word(word) * former;
            const double steps = In_Steps(value, new_scale);
            if (!Is_Whole(steps)) {
                return std::string("the word ") + Header_Word(word).Name + ", " + CStr(value) +
                       ", cannot be held by the scale " + CStr(new_scale);
            }
            if (std::string wrong = Add(word, steps, words); !wrong.empty()) return wrong;
        }
        return Add(scaled.ScaleWord, new_scale, words);
    }

    HeaderReader Headers;
    const std::vector<TraceGeometry>& Table;
    GeometryScales Scales;
    std::vector<std::pair<std::int64_t, NewWords>> Plan;
};

}  // namespace

double Scale_Factor(double scale_word) {
    if (scale_word == 0) return 1;
    return scale_word > 0 ? scale_word : -1 / scale_word;
}

std::string Write_Geometry_Table(const std::string& su_file, const std::string& target,
                                 const TraceProgress& progress) {
    HeaderReader headers(su_file);
    if (!headers.Is_Open()) return headers.Reason();
    const std::int64_t traces = headers.Nb_Traces();
    if (traces < 1) return "no trace to write";
    const std::string ending = LCase(Right(target, 5));
    const bool workbook = ending == ".xlsx";
    const bool csv = Right(ending, 4) == ".csv";
    XlsxSheet sheet{"Geometry", Name_Of(su_file), Headings(), {}};
    std::string text = csv ? Joined(sheet.Headings) : In_Columns(sheet.Headings);
    for (std::int64_t trace = 1; trace <= traces && headers.Take(trace); ++trace) {
        const TraceGeometry row = Geometry_Of(headers, trace);
        std::vector<XlsxCell> cells{static_cast<double>(trace)};
        std::vector<std::string> fields{Place_Text(trace)};
        for (const auto& value : row.Values) {
            cells.emplace_back(*value);
            fields.push_back(CStr(*value));
        }
        if (workbook) {
            sheet.Rows.push_back(std::move(cells));
        } else {
            text += csv ? Joined(fields) : In_Columns(fields);
        }
        if (progress && !progress(trace, traces)) return "Stopped";
    }
    return workbook ? Write_Xlsx(target, sheet) : Replace_File(target, text);
}

GeometryTable Read_Geometry_Table(std::string_view text) {
    return TableReader(text).Read();
}

GeometryWritten Write_Geometry(const std::string& su_file, FileRecorder* recorder,
                               const std::vector<TraceGeometry>& table, GeometryScales scales) {
    GeometryWritten written;
    Planning plan(su_file, table);
    written.Fault = plan.Make(scales);
    written.Scales = plan.Scales_Taken();
    if (!written.Fault.empty()) return written;
    SuWriter file(su_file, recorder);
    if (!file.Is_Open()) written.Fault = file.Reason();
    for (const auto& [trace, words] : plan.Words()) {
        for (const auto& [word, value] : words) {
            if (!written.Fault.empty()) return written;
            if (file.Set_Word(trace, word, value) != Stored::Yes) written.Fault = file.Reason();
        }
        if (!words.empty()) ++written.Traces;
    }
    return written;
}

}  // namespace tarnvik
