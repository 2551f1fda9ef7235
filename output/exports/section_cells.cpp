#include "output/exports/section_cells.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "core/text/number.h"
#include "output/imports/imported_line.h"

namespace tarnvik {

namespace {

constexpr double row_height = 0.25;
constexpr double most_nodes = 4e6;
/// The value that marks a node without one.
constexpr const char* blank = "1.70141E+38";

/// Whole number of steps from `origin` to `value`.
std::int64_t Step_Of(double value, double origin, double step) {
    return static_cast<std::int64_t>(Rounded((value - origin) / step));
}

/// Width of the columns: the least distance between two of them.
double Column_Width(const std::vector<SectionCell>& points) {
    std::vector<double> places;
    for (const SectionCell& point : points)
        places.push_back(point.Distance);
    std::sort(places.begin(), places.end());
    double width = 0;
    for (std::size_t i = 1; i < places.size(); ++i) {
        const double step = places[i] - places[i - 1];
        if (step > 1e-6 && (width == 0 || step < width)) width = step;
    }
    return width > 0 ? width : 1;
}

}  // namespace

std::vector<SectionCell> Read_Section_Cells(std::string_view bytes) {
    std::vector<SectionCell> points;
    FieldLines lines(bytes, ",;");
    while (lines.Next()) {
        const auto distance = lines.Number(0);
        const auto elevation = lines.Number(1);
        const auto velocity = lines.Number(2);
        if (!distance || !elevation || !velocity) return {};
        points.push_back({*distance, *elevation, *velocity});
    }
    return points;
}

std::string Section_Grid_Text(const std::vector<SectionCell>& points) {
    if (points.empty()) return {};
    const double width = Column_Width(points);
    SectionCell least = points.front();
    SectionCell most = points.front();
    for (const SectionCell& point : points) {
        least = {std::min(least.Distance, point.Distance), std::min(least.Elevation, point.Elevation),
                 std::min(least.Velocity, point.Velocity)};
        most = {std::max(most.Distance, point.Distance), std::max(most.Elevation, point.Elevation),
                std::max(most.Velocity, point.Velocity)};
    }
    const double across = Rounded((most.Distance - least.Distance) / width) + 1;
    const double up = Rounded((most.Elevation - least.Elevation) / row_height) + 1;
    if (across * up > most_nodes) return {};
    std::map<std::int64_t, std::map<std::int64_t, double>> columns;  // velocity by column and row from below
    for (const SectionCell& point : points) {
        columns[Step_Of(point.Distance, least.Distance, width)]
               [Step_Of(point.Elevation, least.Elevation, row_height)] = point.Velocity;
    }
    std::string text = "DSAA\r\n" + CStr(across) + " " + CStr(up) + "\r\n";
    text += CStr(least.Distance) + " " + CStr(least.Distance + (across - 1) * width) + "\r\n";
    text += CStr(least.Elevation) + " " + CStr(least.Elevation + (up - 1) * row_height) + "\r\n";
    text += CStr(least.Velocity) + " " + CStr(most.Velocity) + "\r\n";
    // Rows from the lowest to the highest; ten nodes a line and a blank line behind each row.
    for (std::int64_t row = 0; row < static_cast<std::int64_t>(up); ++row) {
        for (std::int64_t column = 0; column < static_cast<std::int64_t>(across); ++column) {
            const auto cells = columns.find(column);
            std::string node = blank;
            if (cells != columns.end()) {
                const auto above = cells->second.lower_bound(row);
                if (above != cells->second.end()) node = CStr(above->second);
            }
            const bool last = column + 1 == static_cast<std::int64_t>(across);
            text += node + (last || column % 10 == 9 ? "\r\n" : " ");
        }
        text += "\r\n";
    }
    return text;
}

}  // namespace tarnvik
