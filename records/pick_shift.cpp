#include <algorithm>
#include <cstdint>

#include "core/text/number.h"
#include "records/record_buttons.h"
#include "records/set_pick.h"

namespace tarnvik {

namespace {

/// Picks of ShotTimes above 0 move; a pick moved to 0 or below is kept as it is. In the file every trace
/// moves.
void Shift_Receivers(Workspace& workspace, int record, int first, int last, double shift) {
    PickSetter picks(workspace, std::nullopt);
    RecordFiles& files = picks.Files();
    const std::int64_t before = picks.Layout().First_Trace(record) - 1;
    for (std::int64_t trace = before + first; trace <= before + last; ++trace) {
        const auto place = picks.Layout().Place_Of(trace);
        if (place && place->Shot >= 1 && workspace.Project.ShotTimes.Has(place->Shot, place->Receiver)) {
            const double time = workspace.Project.ShotTimes(place->Shot, place->Receiver);
            if (time > 0) picks.Set_Time(*place, Val(Format(time, "###0.00")) + shift, PickDigits::All);
        }
        const double old_time = files.Traces().Word(trace, words::First_Breaks).value_or(0) / 10.0;
        files.Set_Word(trace, words::First_Breaks, (old_time + shift) * 10);
    }
    files.Tell_Faults("FB shift");
}

}  // namespace

void Shift_Picks(Workspace& workspace, Ports& ports) {
    const int receivers = workspace.Project.NbReceivers;
    const int record = workspace.Record.Record;
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
    {
        const EditScope edit(workspace, "FB shift of record " + CStr(record));
        Shift_Receivers(workspace, record, first, last, shift);
    }
    ports.Show.Show_Fields();
}

}  // namespace tarnvik
