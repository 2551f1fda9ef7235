#include "interpretation/layered_section.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tarnvik {

LineValues::LineValues(std::vector<Knot> knots) {
    std::stable_sort(knots.begin(), knots.end(), [](const Knot& a, const Knot& b) { return a.X < b.X; });
    for (const Knot& knot : knots) {
        if (!Knots.empty() && Knots.back().X == knot.X) {
            Knots.back() = knot;
        } else {
            Knots.push_back(knot);
        }
    }
}

double LineValues::At(double x) const {
    if (Knots.empty()) return 0;
    const auto right = std::lower_bound(Knots.begin(), Knots.end(), x,
                                        [](const Knot& knot, double at) { return knot.X < at; });
    if (right == Knots.begin()) return Knots.front().Value;
    if (right == Knots.end()) return Knots.back().Value;
    const auto left = right - 1;
    return left->Value + (right->Value - left->Value) * (x - left->X) / (right->X - left->X);
}

double LayeredSection::Elevation(std::size_t layer, double x) const {
    double elevation = Ground.At(x);
    for (std::size_t i = 0; i <= layer && i < Interfaces.size(); ++i)
        elevation = std::min(elevation, Interfaces[i].At(x));
    return elevation;
}

double LayeredSection::Distance_To_Interface(double x, double z) const {
    double nearest = std::numeric_limits<double>::infinity();
    for (const LineValues& line : Interfaces) {
        const auto& knots = line.All();
        if (knots.empty()) continue;
        if (x <= knots.front().X) nearest = std::min(nearest, std::abs(knots.front().Value - z));
        if (x >= knots.back().X) nearest = std::min(nearest, std::abs(knots.back().Value - z));
        for (std::size_t i = 0; i < knots.size(); ++i) {
            nearest = std::min(nearest, std::hypot(knots[i].X - x, knots[i].Value - z));
            if (i == 0) continue;
            const double dx = knots[i].X - knots[i - 1].X;
            const double dz = knots[i].Value - knots[i - 1].Value;
            const double along =
                ((x - knots[i - 1].X) * dx + (z - knots[i - 1].Value) * dz) / (dx * dx + dz * dz);
            if (along <= 0 || along >= 1) continue;
            nearest = std::min(
                nearest, std::hypot(knots[i - 1].X + along * dx - x, knots[i - 1].Value + along * dz - z));
        }
    }
    return nearest;
}

SlownessGrid Grid_Of_Section(const LayeredSection& section, const GroundWindow& window, double cell) {
    constexpr double ms_a_second = 1000;
    SlownessGrid grid;
    grid.Left = window.Left;
    grid.Top = window.Top;
    grid.Cell = cell;
    grid.Columns = std::max(2, static_cast<int>(std::ceil((window.Right - window.Left) / cell)) + 1);
    grid.Rows = std::max(2, static_cast<int>(std::ceil((window.Top - window.Bottom) / cell)) + 1);
    grid.Slowness.assign(static_cast<std::size_t>(grid.Columns) * static_cast<std::size_t>(grid.Rows),
                         SlownessGrid::no_ground);
    const std::size_t layers = section.Velocities.size();
    std::vector<double> bottoms(layers);
    std::vector<double> velocities(layers);
    for (int column = 0; column < grid.Columns; ++column) {
        const double x = grid.X(column);
        const double ground = section.Ground.At(x);
        double above = ground;
        for (std::size_t layer = 0; layer < layers; ++layer) {
            above = layer < section.Interfaces.size() ? std::min(above, section.Interfaces[layer].At(x))
                                                      : -std::numeric_limits<double>::infinity();
            bottoms[layer] = above;
            velocities[layer] = section.Velocities[layer].At(x);
        }
        std::size_t first = 0;
        for (int row = 0; row < grid.Rows; ++row) {
            const double z = grid.Z(row);
            if (z > ground + cell) continue;
            const double top = std::min(z + cell / 2, ground);
            const double bottom = z - cell / 2;
            double mean = velocities.front();
            if (top > bottom) {
                while (first + 1 < layers && bottoms[first] >= top)
                    ++first;
                double at = top;
                double sum = 0;
                for (std::size_t layer = first; layer < layers && at > bottom; ++layer) {
                    const double end = std::max(bottom, bottoms[layer]);
                    if (end >= at) continue;
                    sum += (at - end) * velocities[layer];
                    at = end;
                }
                mean = sum / (top - bottom);
            }
            grid.Slowness[grid.Node(column, row)] = static_cast<float>(ms_a_second / mean);
        }
    }
    return grid;
}

}  // namespace tarnvik
