#include "records/trace_edits.h"

#include "records/set_pick.h"

namespace tarnvik {

void Pick_Trace(Workspace& workspace, int trace, double ms) {
    PickSetter picks(workspace);
    const EditScope edit(workspace, Trace_Edit_Name("Pick", picks.Layout(), trace));
    picks.Files().Set_Word(trace, words::trid, live_trace);
    picks.Set_Trace(trace, ms);
    picks.Tell_Faults("Pick");
}

void Remove_Pick(Workspace& workspace, int trace) {
    PickSetter picks(workspace);
    const EditScope edit(workspace, Trace_Edit_Name("Remove pick of", picks.Layout(), trace));
    picks.Set_Trace(trace, 0);
    picks.Tell_Faults("Pick");
}

void Kill_Trace(Workspace& workspace, int trace) {
    PickSetter picks(workspace);
    const EditScope edit(workspace, Trace_Edit_Name("Kill", picks.Layout(), trace));
    picks.Files().Set_Word(trace, words::trid, dead_trace);
    picks.Set_Trace(trace, 0);
    picks.Tell_Faults("Kill");
}

void Revive_Trace(Workspace& workspace, int trace) {
    PickSetter picks(workspace);
    const EditScope edit(workspace, Trace_Edit_Name("Revive", picks.Layout(), trace));
    picks.Files().Set_Word(trace, words::trid, live_trace);
    picks.Tell_Faults("Trace");
}

}  // namespace tarnvik
