#include "setup/xyz_file.h"

#include <cmath>
#include <limits>
#include <optional>

#include "core/text/letters.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

constexpr std::string_view blanks = " \t";
constexpr std::string_view strong_separators = ",;\t";
constexpr std::string_view all_separators = " ,;\t";
constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";
constexpr double largest_coordinate = 1e9;
constexpr std::size_t quoted_length = 60;  ///< of a faulty line in a message

using Fields = std::vector<std::string_view>;

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    text = text.substr(first, text.find_last_not_of(blanks) - first + 1);
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') text = text.substr(1, text.size() - 2);
    return text;
}

/// Fields between separators. Runs of blanks are one separator; of the strong ones each counts, but for those
/// at the end of a line.
Fields Split(std::string_view line, std::string_view separators, bool runs_are_one) {
    Fields fields;
    while (true) {
        const auto end = line.find_first_of(separators);
        const std::string_view field = Trimmed(line.substr(0, end));
        if (!field.empty() || !runs_are_one) fields.push_back(field);
        if (end == std::string_view::npos) break;
        line.remove_prefix(end + 1);
    }
    while (!fields.empty() && fields.back().empty())
        fields.pop_back();
    return fields;
}

/// True when the whole text is one decimal number, with or without exponent.
bool Is_Number(std::string_view text) {
    std::size_t i = 0;
    const auto skip_digits = [&] {
        const std::size_t start = i;
        while (i < text.size() && text[i] >= '0' && text[i] <= '9')
            ++i;
        return i - start;
    };
    const auto skip_sign = [&] {
        if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    };
    skip_sign();
    std::size_t digits = skip_digits();
    if (i < text.size() && text[i] == '.') {
        ++i;
        digits += skip_digits();
    }
    if (digits == 0) return false;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        skip_sign();
        if (skip_digits() == 0) return false;
    }
    return i == text.size();
}

/// The point of a line of three or four fields whose last three are numbers.
std::optional<XyzPoint> Point_Of(const Fields& fields) {
    if (fields.size() != 3 && fields.size() != 4) return std::nullopt;
    const std::size_t first = fields.size() - 3;
    double coordinates[3] = {};
    for (std::size_t i = 0; i < 3; ++i) {
        if (!Is_Number(fields[first + i])) return std::nullopt;
        coordinates[i] = Val(fields[first + i]);
        if (!(std::abs(coordinates[i]) <= largest_coordinate)) return std::nullopt;
    }
    XyzPoint point;
    if (first == 1) point.Name = From_Windows_1252(fields[0]);
    point.X = coordinates[0];
    point.Y = coordinates[1];
    point.Z = coordinates[2];
    return point;
}

struct ParsedLine {
    std::optional<XyzPoint> Point;
    bool Named = false;
    bool HasNumber = false;
};

ParsedLine Parse_Line(std::string_view line) {
    // Names may hold blanks where something stronger separates.
    Fields fields = Split(line, strong_separators, false);
    if (!Point_Of(fields)) fields = Split(line, all_separators, true);
    ParsedLine parsed;
    parsed.Point = Point_Of(fields);
    parsed.Named = fields.size() == 4;
    for (const std::string_view field : fields)
        parsed.HasNumber = parsed.HasNumber || Is_Number(field);
    return parsed;
}

std::string At_Line(int number, std::string_view line, const std::string& fault) {
    return "Line " + CStr(number) + ": " + fault + ": " + From_Windows_1252(line.substr(0, quoted_length));
}

}  // namespace

XyzFile Read_Xyz(std::string_view bytes) {
    XyzFile file;
    const auto fail = [&](std::string error) {
        file.Points.clear();
        file.Error = std::move(error);
        return file;
    };
    if (bytes.starts_with(utf8_mark)) bytes.remove_prefix(utf8_mark.size());
    int number = 0;
    bool heading_possible = true;
    bool named = false;
    while (!bytes.empty()) {
        const auto end = bytes.find_first_of("\r\n");
        const std::string_view line = bytes.substr(0, end);
        const bool two_signs = end != std::string_view::npos && bytes.substr(end, 2) == "\r\n";
        bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + (two_signs ? 2 : 1));
        ++number;
        if (line.find_first_not_of(all_separators) == std::string_view::npos) continue;
        const ParsedLine parsed = Parse_Line(line);
        if (!parsed.Point) {
            if (heading_possible && !parsed.HasNumber) {
                heading_possible = false;
                continue;
            }
            return fail(At_Line(number, line, "X Y Z or name X Y Z expected"));
        }
        heading_possible = false;
        if (file.Points.empty()) named = parsed.Named;
        if (parsed.Named != named) {
            return fail(At_Line(number, line,
                                named ? "name X Y Z expected, as in the lines before"
                                      : "X Y Z expected, as in the lines before"));
        }
        file.Points.push_back(*parsed.Point);
    }
    if (file.Points.empty()) return fail("The file holds no point");
    return file;
}

std::vector<double> Path_Distances(std::span<const XyzPoint> path) {
    std::vector<double> distances;
    for (std::size_t i = 0; i < path.size(); ++i) {
        distances.push_back(
            i == 0 ? 0 : distances.back() + std::hypot(path[i].X - path[i - 1].X, path[i].Y - path[i - 1].Y));
    }
    return distances;
}

double Place_On_Path(std::span<const XyzPoint> path, double x, double y) {
    double place = 0;
    double nearest = std::numeric_limits<double>::infinity();
    double passed = 0;
    const auto distances = Path_Distances(path);
    for (std::size_t i = 0; i + 1 < path.size(); ++i) {
        const double leg_x = path[i + 1].X - path[i].X;
        const double leg_y = path[i + 1].Y - path[i].Y;
        const double length = std::hypot(leg_x, leg_y);
        if (length == 0) continue;
        double along = ((x - path[i].X) * leg_x + (y - path[i].Y) * leg_y) / length;
        if (passed > 0 && along < 0) along = 0;
        const bool last_leg = distances[i + 1] == distances.back();
        if (!last_leg && along > length) along = length;
        const double miss =
            std::hypot(x - path[i].X - along * leg_x / length, y - path[i].Y - along * leg_y / length);
        if (miss < nearest) {
            nearest = miss;
            place = passed + along;
        }
        passed += length;
    }
    return place;
}

}  // namespace tarnvik
