#include "records/size_grid_mouse.h"

#include <algorithm>

#include "core/text/number.h"
#include "records/set_pick.h"

namespace tarnvik {

int SizeGridMouse::Traces() const {
    const std::int64_t traces = std::int64_t{Work.Record.LastTrace} - Work.Record.FirstTrace + 1;
    return static_cast<int>(std::clamp<std::int64_t>(traces, 0, Work.Grids.size_grid.Rows()));
}

void SizeGridMouse::Move(double y, double height) {
    const int traces = Traces();
    if (traces == 0 || height <= 0) return;
    const double row = std::clamp(Int(y / (height / traces)), 0.0, traces - 1.0);
    Work.Grids.size_grid.CurrentRow = static_cast<int>(row);
    ToolTip = CStr(Work.Grids.size_grid.CurrentRow);
}

void SizeGridMouse::Press(int button) {
    TextGrid& sizes = Work.Grids.size_grid;
    sizes.CurrentColumn = 0;
    const int row = sizes.CurrentRow;
    if (!sizes.Has(row, 0)) return;
    const double factor = sizes.Value(row, 0);
    sizes.Set_Text(row, 0, CStr(button == 1 ? factor * 2 : factor / 2));
    if (sizes.Value(row, 0) < 0.1) {
        const std::int64_t trace = std::int64_t{Work.Record.FirstTrace} + row;
        RecordFiles files(Work);
        const EditScope edit(Work, Trace_Edit_Name("Revive", SpreadLayout(Work, files.Traces()), trace));
        files.Set_Word(trace, words::trid, live_trace);
        files.Tell_Faults("Trace");
    }
    Outside.Show.Display_Record();
    Outside.Show.Show_Fields();
}

}  // namespace tarnvik
