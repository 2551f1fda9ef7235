#include "app/su_chain_commands.h"

#include "app/session.h"
#include "app/view_commands.h"
#include "processing/new_su_files.h"
#include "processing/shift_traces.h"
#include "setup/stack_shots.h"

namespace tarnvik {

void Extract_From_Records(Session& session) {
    Extract_Traces(session.Work, session.Outside);
}

void Resize_Records(Session& session) {
    Resize_Channels(session.Work, session.Outside);
}

void Show_Su_Utility(Session& session) {
    session.Outside.Show.Open_Dialog(Dialog::rezize, true);
}

void Show_Trace_Numbers(Session& session) {
    session.Outside.Show.Open_Dialog(Dialog::Update_FLDR, false);
}

void Stack_Neighbours(Session& session) {
    Workspace& work = session.Work;
    const auto note = [&] { session.LeftOutByCount[work.Project.NbShots] = work.Curves.ShotsLeftOut; };
    Stack_Shots(work, session.Outside, [&] {
        Close_Computing_Dialogs(session);
        note();
    });
    note();
}

void Shift_Traces_By(Session& session, double shift_ms) {
    Shift_Traces(session.Work, session.Outside, shift_ms);
}

}  // namespace tarnvik
