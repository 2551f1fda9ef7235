// Reader of XYZ text files and the pasted blocks of the tables: whatever the bytes, no crash, and what is
// read is usable.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "core/text_grid.h"
#include "setup/grid_edit.h"
#include "setup/xyz_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarnvik;
    const std::string_view text(reinterpret_cast<const char*>(data), size);

    const XyzFile file = Read_Xyz(text);
    if (file.Error.empty() == file.Points.empty()) std::abort();
    double last = 0;
    for (const double distance : Path_Distances(file.Points)) {
        if (!(distance >= last) || !std::isfinite(distance)) std::abort();
        last = distance;
    }
    if (!file.Points.empty() && !std::isfinite(Place_On_Path(file.Points, file.Points[0].X, 1))) std::abort();

    // A block that was copied comes back as it was.
    const auto cells = Block_Cells(text);
    std::size_t columns = 0;
    for (const auto& row : cells)
        columns = std::max(columns, row.size());
    if (cells.empty() || cells.size() * columns > 10000) return 0;
    TextGrid grid(static_cast<int>(cells.size()), static_cast<int>(columns));
    for (std::size_t row = 0; row < cells.size(); ++row) {
        for (std::size_t column = 0; column < cells[row].size(); ++column)
            grid.Set_Text(static_cast<int>(row), static_cast<int>(column), cells[row][column]);
    }
    const auto back = Block_Cells(Block_Text(grid, {0, 0, grid.Rows() - 1, grid.Columns() - 1}));
    if (back.size() != cells.size()) std::abort();
    for (std::size_t row = 0; row < cells.size(); ++row) {
        for (std::size_t column = 0; column < cells[row].size(); ++column) {
            if (back[row][column] != cells[row][column]) std::abort();
        }
    }
    return 0;
}
