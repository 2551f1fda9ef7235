#include "core/ports/picture.h"

namespace tarnvik {

void Picture::Cells(double x1, double y1, double x2, double y2, const CellRaster& cells) {
    constexpr double overlap = 0.5;  // of a cell
    const double width = (x2 - x1) / cells.Columns;
    const double height = (y2 - y1) / cells.Rows;
    const auto has_colour = [&cells](int column, int row) {
        return column < cells.Columns && row < cells.Rows && cells.At(column, row) != CellRaster::no_colour;
    };
    for (int column = 0; column < cells.Columns; ++column) {
        for (int row = 0; row < cells.Rows;) {
            const Colour colour = cells.At(column, row);
            const bool goes_on = has_colour(column + 1, row);
            int end = row + 1;
            while (end < cells.Rows && cells.At(column, end) == colour &&
                   has_colour(column + 1, end) == goes_on) {
                ++end;
            }
            if (colour != CellRaster::no_colour) {
                // A box reaches below those that come after it: devices that smooth edges would show the
                // paper between two boxes side by side.
                const double right = column + 1 + (goes_on ? overlap : 0);
                const double bottom = end + (has_colour(column, end) ? overlap : 0);
                Box(x1 + width * column, y1 + height * row, x1 + width * right, y1 + height * bottom, colour,
                    true);
            }
            row = end;
        }
    }
}

}  // namespace tarnvik
