#include "app/table_commands.h"

#include "app/session.h"
#include "depth/delay_times.h"
#include "output/tables/delay_list.h"
#include "output/tables/delay_result.h"
#include "output/tables/depth_file.h"
#include "output/tables/shot_depths.h"

namespace tarnvik {

namespace {

ExportSource Line_In_Memory(Session& session) {
    return {session.Work.AppTitle, [&session] { return &session.Work; }, ""};
}

}  // namespace

void Show_Results(Session& session) {
    session.Outside.Show.Open_Dialog(Dialog::resu, false);
}

void Record_Depth_File(Session& session) {
    Export_Depth_File(session.Outside, Line_In_Memory(session));
}

void Record_Delay_Results(Session& session) {
    Record_Delay_Result(session.Outside, Line_In_Memory(session));
}

void Record_Delay_List(Session& session) {
    Export_Delay_List(session.Outside, Line_In_Memory(session));
}

void Record_Shot_Depths(Session& session) {
    Export_Shot_Depths(session.Outside, Line_In_Memory(session));
}

void Record_Ascii_Files(Session& session) {
    Record_Delay_List(session);
    Record_Shot_Depths(session);
    // Without any, the list has told so.
    if (Has_Delays(session.Work.Project)) Record_Delay_Results(session);
}

}  // namespace tarnvik
