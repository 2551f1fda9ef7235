#include "output/section_files.h"

#include <algorithm>
#include <string_view>

#include "core/files.h"
#include "core/text/item_reader.h"
#include "core/text/number.h"
#include "core/text/print_line.h"

namespace tarnvik {

namespace {

constexpr double rows_a_unit = 4;
constexpr std::string_view line_end = "\r\n";
constexpr std::string_view blank_cell = "1.70141E+38";
constexpr int numbers_a_line = 10;  ///< of a ".grd" file

/// A line of the ".dat" file.
std::string Cell_Line(double distance, double elevation, double velocity) {
    return PrintLine().Item(distance).Zone().Item(elevation).Zone().Item(velocity).End();
}

/// True for a line, its end included, that stands to the letter as Cell_Line writes it: three numbers alone
/// may be coordinates of the user's.
bool Is_Cell_Line(std::string_view line) {
    ItemReader numbers(line);
    double distance = 0;
    double elevation = 0;
    double velocity = 0;
    return numbers.Number(distance) && numbers.Number(elevation) && numbers.Number(velocity) &&
           line == Cell_Line(distance, elevation, velocity);
}

}  // namespace

double Distance_Of_Column(const SectionGrid& grid, double line_length, int column) {
    return (column - 1) * line_length / grid.GridColumns;
}

double Elevation_Of_Row(const SectionGrid& grid, int row) {
    // The ground at the maximum elevation is row 2 from the top.
    return grid.MinElevation + (row - 2) / rows_a_unit;
}

std::string Section_Dat(const SectionGrid& grid, double line_length) {
    std::string text;
    for (int column = 1; column <= grid.GridColumns; ++column) {
        const double distance = Distance_Of_Column(grid, line_length, column);
        for (int row = 1; row <= grid.GridRows; ++row) {
            const double velocity = grid.VelocityGrid(column, row);
            if (velocity == 0) continue;
            const double elevation = Elevation_Of_Row(grid, row);
            text += Cell_Line(distance, elevation, velocity);
        }
    }
    return text;
}

std::string Section_Grd(const SectionGrid& grid, double line_length) {
    double lowest = 0;
    double highest = 0;
    std::string rows;
    for (int row = 1; row <= grid.GridRows; ++row) {
        for (int column = 1; column <= grid.GridColumns; ++column) {
            const double velocity = grid.Filled(column, row);
            if (velocity != 0) {
                lowest = lowest == 0 ? velocity : std::min(lowest, velocity);
                highest = std::max(highest, velocity);
                rows += CStr(velocity);
            } else {
                rows += blank_cell;
            }
            const bool full = column % numbers_a_line == 0 || column == grid.GridColumns;
            rows += full ? line_end : " ";
        }
        rows += line_end;
    }
    const auto pair = [](double first, double second) {
        return CStr(first) + " " + CStr(second) + std::string(line_end);
    };
    return "DSAA" + std::string(line_end) + CStr(grid.GridColumns) + " " + CStr(grid.GridRows) +
           std::string(line_end) + pair(0, Distance_Of_Column(grid, line_length, grid.GridColumns)) +
           pair(Elevation_Of_Row(grid, 1), Elevation_Of_Row(grid, grid.GridRows)) + pair(lowest, highest) +
           rows;
}

std::string Section_Dat_File(const std::string& project_file) {
    std::string name = Derived_File(project_file, ".tv5", ".dat");
    // A project of another ending stays what it is.
    if (name == project_file) name += ".dat";
    return name;
}

bool Is_Section_Dat(const std::string& path) {
    const auto bytes = Read_File(path);
    if (!bytes) return !File_Exists(path);
    std::string_view rest = *bytes;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size() - 1) + 1;
        if (!Is_Cell_Line(rest.substr(0, end))) return false;
        rest.remove_prefix(end);
    }
    return true;
}

}  // namespace tarnvik
