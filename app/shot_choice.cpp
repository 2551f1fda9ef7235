#include "app/shot_choice.h"

#include "app/session.h"
#include "core/text/number.h"
#include "records/record_choice.h"
#include "traveltime/shot_grid.h"

namespace tarnvik {

namespace {

/// The record of a shot has its number. What the record page shows already is not drawn again.
void Show_Record_Of(Session& session, int shot) {
    Workspace& work = session.Work;
    if (work.Project.SuFile.empty() || work.Record.NbTraces < 1 || shot > work.Record.NbRecords) return;
    if (work.Record.Record == shot && work.Record.Shot == shot) return;
    Go_To_Record(work, session.Outside, shot);
}

void Show_In_Dialogs(Session& session, int shot) {
    if (session.Outside.Show.Is_Open(Dialog::SpeedF) && session.Speed.Shot != CStr(shot)) {
        session.Speed.Shot = CStr(shot);
        session.Speed.Shot_Changed();
    }
    if (session.Outside.Show.Is_Open(Dialog::Fcalcul) && session.Depths.HScroll1.Value != shot) {
        session.Depths.HScroll1.Value = shot;
        session.Depths.HScroll1_Changed();
    }
    if (session.Outside.Show.Is_Open(Dialog::quick_interpret) && session.Quick.Shot != CStr(shot)) {
        session.Quick.Shot = CStr(shot);
        session.Quick.Shot_Changed();
    }
    if (session.Outside.Show.Is_Open(Dialog::Erase_TT)) session.TriggerFault.Choose(shot);
}

}  // namespace

void Choose_Shot(Session& session, PickPlace place) {
    Workspace& work = session.Work;
    if (place.Shot < 1 || place.Shot > work.Project.NbShots) return;
    Select_Shot_Row(work, place.Shot);
    Show_Record_Of(session, place.Shot);
    work.Velocity.CurrentShot = static_cast<std::int16_t>(place.Shot);
    TextGrid& table = work.Grids.Buildgrid;
    if (place.Shot < table.Columns()) table.CurrentColumn = place.Shot;
    if (place.Receiver >= 1 && place.Receiver < table.Rows()) table.CurrentRow = place.Receiver;
    Show_In_Dialogs(session, place.Shot);
    session.Outside.Show.Show_Grids();
    session.Outside.Show.Show_Fields();
}

}  // namespace tarnvik
