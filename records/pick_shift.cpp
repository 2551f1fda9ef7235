#include <algorithm>
#include <cstdint>

#include "core/text/number.h"
#include "records/record_buttons.h"
#include "records/record_display.h"
#include "records/record_files.h"

namespace tarnvik {

namespace {

/// Picks of the table and of ShotTimes; empty cells stay empty. A pick moved to 0 or below is kept as it is.
void Shift_Grid(Workspace& workspace, int shot, int first, int last, double shift) {
    TextGrid& grid = workspace.Grids.Buildgrid;
    for (int receiver = first; receiver <= last; ++receiver) {
        const double time = grid.Value(receiver, shot);
        if (time <= 0) continue;
        grid.Set_Text(receiver, shot, CStr(time + shift));
        if (workspace.Project.ShotTimes.Has(shot, receiver)) {
            workspace.Project.ShotTimes(shot, receiver) = static_cast<float>(time + shift);
        }
    }
}

void Shift_File(Workspace& workspace, Picture& picture, std::int64_t first, std::int64_t last, double shift) {
    RecordFiles files(workspace);
    const double sample_ms = workspace.Record.SampleInterval / 1000.0;
    for (std::int64_t trace = first; trace <= last; ++trace) {
        const auto word = files.Traces().Word(trace, words::First_Breaks);
        const double old_time = word.value_or(0) / 10.0;
        files.Set_Word(trace, words::First_Breaks, (old_time + shift) * 10);
        if (sample_ms <= 0) continue;
        const double left = static_cast<double>(trace) * trace_width;
        const double old_sample = Rounded(old_time / sample_ms);
        const double new_sample = Rounded((old_time + shift) / sample_ms);
        picture.Line(left, old_sample, left + trace_width, old_sample, colours::White);
        picture.Line(left, new_sample, left + trace_width, new_sample, colours::Red);
    }
    files.Tell_Faults("FB shift");
}

}  // namespace

void Shift_Picks(Workspace& workspace, Ports& ports) {
    const int receivers = workspace.Project.NbReceivers;
    const int record = workspace.Fields.HScroll2.Value;
    const auto ask = [&](const std::string& prompt, const std::string& initial) {
        return Val(ports.Ask.Input(prompt, workspace.AppTitle, initial));
    };
    const double first_typed = ask("First trace to move FB", "1");
    if (first_typed == 0) return;
    const double last_typed = ask("Last trace to move FB", CStr(receivers));
    if (last_typed == 0) return;
    const double shift = ask("Shift time to move FB on shot " + CStr(record), "-10");
    if (shift == 0) return;
    const int first = static_cast<int>(std::clamp(Rounded(first_typed), 1.0, receivers + 1.0));
    const int last = static_cast<int>(std::clamp<double>(Rounded(last_typed), 0, receivers));
    if (!ports.Ask.Ask_Yes(" OK, move " + CStr(shift) + "ms from " + CStr(first) + " to " + CStr(last) +
                               " on record " + CStr(record),
                           workspace.AppTitle)) {
        return;
    }
    Shift_Grid(workspace, record, first, last, shift);
    const std::int64_t before = (std::int64_t{record} - 1) * workspace.Record.ChannelsPerRecord;
    Shift_File(workspace, ports.Show.Canvas_Of(Canvas::Ecran), before + first, before + last, shift);
    ports.Show.Show_Curves();
    ports.Show.Display_Record();
    ports.Show.Show_Fields();
}

}  // namespace tarnvik
