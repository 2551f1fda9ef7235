#include "core/ports/picture.h"

namespace tarnvik {

void Picture::Cells(double x1, double y1, double x2, double y2, const CellRaster& cells) {
    for (int column = 0; column < cells.Columns; ++column) {
        const double left = x1 + (x2 - x1) * column / cells.Columns;
        const double right = x1 + (x2 - x1) * (column + 1) / cells.Columns;
        for (int row = 0; row < cells.Rows;) {
            const Colour colour = cells.At(column, row);
            int end = row + 1;
            while (end < cells.Rows && cells.At(column, end) == colour)
                ++end;
            if (colour != CellRaster::no_colour) {
                Box(left, y1 + (y2 - y1) * row / cells.Rows, right, y1 + (y2 - y1) * end / cells.Rows, colour,
                    true);
            }
            row = end;
        }
    }
}

}  // namespace tarnvik
