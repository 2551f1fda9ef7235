#include "output/section_files.h"

#include <algorithm>
#include <string_view>

#include "core/files.h"
#include "core/text/letters.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

constexpr std::size_t print_zone = 14;
constexpr double rows_a_unit = 4;
constexpr std::string_view line_end = "\r\n";
constexpr std::string_view blank_cell = "1.70141E+38";
constexpr int numbers_a_line = 10;  ///< of a ".grd" file

/// A number as printed, followed by blanks up to the next print zone.
std::string In_Zone(double value) {
    std::string text = Print_Number(value);
    text.append(print_zone - text.size() % print_zone, ' ');
    return text;
}

/// Number of fields of a line, and whether each is one number.
bool Is_Three_Numbers(std::string_view line) {
    constexpr std::string_view gaps = " \t\r";
    int count = 0;
    for (std::size_t at = line.find_first_not_of(gaps); at != std::string_view::npos;
         at = line.find_first_not_of(gaps, at)) {
        const std::size_t end = std::min(line.find_first_of(gaps, at), line.size());
        if (line.substr(at, end - at).find_first_not_of("0123456789+-.E") != std::string_view::npos)
            return false;
        ++count;
        at = end;
    }
    return count == 3;
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
        const std::string distance = In_Zone(Distance_Of_Column(grid, line_length, column));
        for (int row = 1; row <= grid.GridRows; ++row) {
            const double velocity = grid.VelocityGrid(column, row);
            if (velocity == 0) continue;
            text += distance + In_Zone(Elevation_Of_Row(grid, row)) + Print_Number(velocity);
            text += line_end;
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
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        if (!Is_Three_Numbers(rest.substr(0, end))) return false;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return true;
}

}  // namespace tarnvik
