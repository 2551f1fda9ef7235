#include "output/topo_rows.h"

#include <algorithm>

#include "core/end_shots.h"
#include "core/text/number.h"

namespace tarnvik {

namespace {

/// Straight line over the unknown columns between two known ones; the outer ones take their neighbour's row.
void Close_Gaps(std::vector<int>& rows) {
    const auto known = [](int row) { return row != 0; };
    const auto first = std::find_if(rows.begin(), rows.end(), known);
    if (first == rows.end()) return;
    std::fill(rows.begin(), first, *first);
    for (auto left = first; left != rows.end();) {
        const auto right = std::find_if(left + 1, rows.end(), known);
        if (right == rows.end()) {
            std::fill(left + 1, rows.end(), *left);
            return;
        }
        const double step = static_cast<double>(*right - *left) / static_cast<double>(right - left);
        for (auto column = left + 1; column != right; ++column)
            *column = *left + CInt_Or_Fault(step * static_cast<double>(column - left));
        left = right;
    }
}

}  // namespace

int Section_Column(double distance, double line_length, int columns) {
    return std::min(1 + CInt_Or_Fault(Divide(distance * columns, line_length)), columns);
}

int Section_Row(double elevation, double max_elevation) {
    return 2 + CInt_Or_Fault(4 * (max_elevation - elevation));
}

std::vector<int> trace_surface_topo(const Project& project, int columns, double max_elevation) {
    std::vector<int> rows(static_cast<std::size_t>(columns) + 1);
    const auto set = [&](double distance, double elevation) {
        const int column = Section_Column(distance, project.LineLength, columns);
        if (column >= 0) rows[static_cast<std::size_t>(column)] = Section_Row(elevation, max_elevation);
    };
    int first = 1;
    int last = 1;
    First_Last_End_Shot(project, first, last);
    for (int shot = first; shot <= std::min<int>(last, project.NbShots); ++shot)
        set(project.ShotDistance(shot), project.ShotElevation(shot));
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        set(project.ReceiverData(ReceiverDistance, receiver),
            project.ReceiverData(ReceiverElevation, receiver));
    }
    Close_Gaps(rows);
    return rows;
}

}  // namespace tarnvik
