#include "output/section_window.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarnvik {

namespace {

constexpr double largest_enlargement = 50;
constexpr double least_frame = 0.005;  ///< of what is in sight, above the tremble of a hand
constexpr int rows_a_unit = 4;
constexpr int ground_row = 2;  ///< of the minimum elevation, from below

/// One axis of a window after an enlargement at a place, held inside the whole.
void Enlarge_Axis(double& low, double& high, double at, double more, double whole_low, double whole_high) {
    const double whole = whole_high - whole_low;
    const double before = high - low;
    const double size = std::clamp(before / more, whole / largest_enlargement, whole);
    low = at - (at - low) / before * size;
    low = std::clamp(low, whole_low, whole_high - size);
    high = low + size;
}

void Move_Axis(double& low, double& high, double by, double whole_low, double whole_high) {
    const double size = high - low;
    low = std::clamp(low + by, whole_low, whole_high - size);
    high = low + size;
}

void Show_Window(const SectionWindow& whole, std::optional<SectionWindow>& enlarged,
                 const SectionWindow& window) {
    constexpr double nearly = 1e-9;
    const bool all = window.Right - window.Left >= (whole.Right - whole.Left) * (1 - nearly) &&
                     window.Top - window.Bottom >= (whole.Top - whole.Bottom) * (1 - nearly);
    if (all) {
        enlarged.reset();
    } else {
        enlarged = window;
    }
}

}  // namespace

SectionWindow Whole_Section(const Workspace& workspace) {
    const auto& grid = workspace.Section.Grid;
    if (!grid) return {0, 1, 0, 1};
    SectionWindow whole{0, workspace.Project.LineLength, grid->MinElevation, grid->MaxElevation};
    if (!(whole.Right > 0)) whole.Right = 1;
    // A line at one elevation alone still has the rows of one unit.
    if (whole.Top <= whole.Bottom) whole.Bottom = whole.Top - 1;
    return whole;
}

SectionWindow Section_In_Sight(const Workspace& workspace) {
    return workspace.Section.Enlarged.value_or(Whole_Section(workspace));
}

void Enlarge_Window(const SectionWindow& whole, std::optional<SectionWindow>& enlarged, double distance,
                    double elevation, double more_x, double more_y) {
    if (!(more_x > 0) || !(more_y > 0)) return;
    SectionWindow window = enlarged.value_or(whole);
    Enlarge_Axis(window.Left, window.Right, distance, more_x, whole.Left, whole.Right);
    Enlarge_Axis(window.Bottom, window.Top, elevation, more_y, whole.Bottom, whole.Top);
    Show_Window(whole, enlarged, window);
}

void Pan_Window(const SectionWindow& whole, std::optional<SectionWindow>& enlarged, double across,
                double upward) {
    if (!enlarged) return;
    Move_Axis(enlarged->Left, enlarged->Right, across, whole.Left, whole.Right);
    Move_Axis(enlarged->Bottom, enlarged->Top, upward, whole.Bottom, whole.Top);
}

void Frame_Window(const SectionWindow& whole, std::optional<SectionWindow>& enlarged, double x1, double y1,
                  double x2, double y2) {
    if (x1 > x2) std::swap(x1, x2);
    if (y1 > y2) std::swap(y1, y2);
    const SectionWindow before = enlarged.value_or(whole);
    x1 = std::max(x1, before.Left);
    x2 = std::min(x2, before.Right);
    y1 = std::max(y1, before.Bottom);
    y2 = std::min(y2, before.Top);
    if (!(x2 - x1 > (before.Right - before.Left) * least_frame) ||
        !(y2 - y1 > (before.Top - before.Bottom) * least_frame)) {
        return;
    }
    // The frame's middle, so that one smaller than the smallest window is shown with its surroundings.
    SectionWindow window{x1, x2, y1, y2};
    const auto widen = [](double& low, double& high, double all) {
        const double missing = all / largest_enlargement - (high - low);
        if (missing <= 0) return;
        low -= missing / 2;
        high += missing / 2;
    };
    widen(window.Left, window.Right, whole.Right - whole.Left);
    widen(window.Bottom, window.Top, whole.Top - whole.Bottom);
    Move_Axis(window.Left, window.Right, 0, whole.Left, whole.Right);
    Move_Axis(window.Bottom, window.Top, 0, whole.Bottom, whole.Top);
    Show_Window(whole, enlarged, window);
}

void Enlarge_Section(Workspace& workspace, double distance, double elevation, double more_x, double more_y) {
    if (!workspace.Section.Grid) return;
    Enlarge_Window(Whole_Section(workspace), workspace.Section.Enlarged, distance, elevation, more_x, more_y);
}

void Pan_Section(Workspace& workspace, double across, double upward) {
    Pan_Window(Whole_Section(workspace), workspace.Section.Enlarged, across, upward);
}

void Frame_Section(Workspace& workspace, double x1, double y1, double x2, double y2) {
    if (!workspace.Section.Grid) return;
    Frame_Window(Whole_Section(workspace), workspace.Section.Enlarged, x1, y1, x2, y2);
}

int Column_At(const SectionGrid& grid, double line_length, double distance) {
    if (!(line_length > 0)) return 0;
    return 1 + static_cast<int>(std::floor(distance * grid.GridColumns / line_length));
}

int Row_At(const SectionGrid& grid, double elevation) {
    return ground_row + static_cast<int>(std::ceil((elevation - grid.MinElevation) * rows_a_unit));
}

std::optional<SectionReading> Read_Section(const Workspace& workspace, double distance, double elevation) {
    const auto& grid = workspace.Section.Grid;
    const SectionWindow window = Section_In_Sight(workspace);
    if (!grid || distance < window.Left || distance > window.Right || elevation < window.Bottom ||
        elevation > window.Top) {
        return std::nullopt;
    }
    const int column = std::min(Column_At(*grid, workspace.Project.LineLength, distance), grid->GridColumns);
    const int row = Row_At(*grid, elevation);
    SectionReading reading{distance, elevation, 0};
    if (grid->Filled.Has(column, row)) reading.Velocity = grid->Filled(column, row);
    return reading;
}

}  // namespace tarnvik
