#include "app/dialog_commands.h"

#include <string>

#include "app/dialog_rows.h"
#include "app/session.h"
#include "app/start.h"
#include "app/view_commands.h"
#include "core/files.h"
#include "core/project_open.h"
#include "core/project_save.h"
#include "core/text/number.h"
#include "depth/grm_picture.h"
#include "output/profile.h"
#include "processing/rewrite_su.h"
#include "records/record_buttons.h"
#include "records/spectrum_area.h"
#include "records/su_loading.h"
#include "setup/build_grid.h"
#include "setup/distance_correction.h"
#include "setup/elevations.h"
#include "setup/new_profile.h"
#include "setup/project_commands.h"
#include "setup/remove_shot.h"
#include "setup/true_distances.h"
#include "setup/xyz_commands.h"
#include "traveltime/velocity_ruler.h"

namespace tarnvik {

namespace {

void Show_Profile_In_Mode(Session& session, DisplayMode mode) {
    session.Work.Mode.Display(mode);
    session.Outside.Show.Select_Tab(Tab::Curves);
    Draw_Seismic_Profile(session.Work, session.Outside);
}

}  // namespace

void Open_Over_Curves(Session& session, Dialog dialog) {
    const DisplayMode mode = Row_Of(dialog)->Mode;
    const bool grm_stood = Grm_Picture_Stands(session.Work);
    if (mode != DisplayMode::None) session.Work.Mode.Take(dialog, mode);
    if (session.Work.Curves.FrameDrawn == 2 || Grm_Picture_Stands(session.Work) != grm_stood)
        session.Outside.Show.Show_Curves();
    session.Outside.Show.Select_Tab(Tab::Curves);
    session.Outside.Show.Open_Dialog(dialog, false);
}

void Show_Velocity_Dialog(Session& session) {
    Open_Over_Curves(session, Dialog::SpeedF);
}

void Save_Velocity_And_Go_On(Session& session) {
    if (!session.Speed.SaveEnabled || session.Speed.Velocity.empty()) return;
    session.Record.Load();
    session.Record.Command1();
    if (!session.Speed.SaveEnabled) session.Speed.Next_Layer();
}

void Show_True_Velocity_Dialog(Session& session) {
    Open_Over_Curves(session, Dialog::SpeedF2);
}

void Show_Hand_Velocity_Dialog(Session& session) {
    Open_Over_Curves(session, Dialog::SpeedF3);
}

void Toggle_Velocity_Ruler(Session& session) {
    if (!session.Work.Curves.RulerShown) session.Outside.Show.Select_Tab(Tab::Curves);
    Velocity_Ruler(session.Work, session.Outside);
    session.Outside.Show.Show_Fields();
}

void Show_Dip_Dialog(Session& session) {
    session.Outside.Show.Open_Dialog(Dialog::dip, false);
}

void Show_Header_Editor(Session& session) {
    session.Outside.Show.Open_Dialog(Dialog::Header, false);
}

void Show_Depth_Dialog(Session& session) {
    Open_Over_Curves(session, Dialog::Fcalcul);
}

void Show_Quick_Interpretation(Session& session) {
    Open_Over_Curves(session, Dialog::quick_interpret);
}

void Show_Phantom_Dialog(Session& session) {
    Open_Over_Curves(session, Dialog::FantomF);
}

void Show_Theoretic_Dialog(Session& session) {
    Open_Over_Curves(session, Dialog::Theoric_F);
}

void Show_Trigger_Correction(Session& session) {
    Open_Over_Curves(session, Dialog::Erase_TT);
}

void Show_Grm_Dialog(Session& session) {
    if (!session.GrmAnalysis.Delay_Times_Known()) return;
    const DisplayMode drawn = session.Work.Grm.Drawn;
    Open_Over_Curves(session, Dialog::GRM);
    if (drawn != DisplayMode::None) session.Work.Mode.Take(Dialog::GRM, drawn);
}

void Ask_Total_Time_For_Grm(Session& session) {
    Project& line = session.Work.Project;
    while (line.TotalTime == 0) {
        const std::string typed = session.Outside.Ask.Input(
            "You must enter Total time (=Reciprocal time determined with Delay module) <0 for EXIT",
            session.Work.AppTitle, "0");
        if (typed.empty()) return;
        const EditScope edit(session.Work, "Total time");
        line.TotalTime = Val(typed);
        // It stays below 0 all the same, so that the user is not asked again.
        if (line.TotalTime < 0) return;
    }
    Show_Grm_Dialog(session);
}

void Show_Intercept_Profile(Session& session) {
    Show_Profile_In_Mode(session, DisplayMode::Profil);
}

void Show_Abc_Profile(Session& session) {
    Show_Profile_In_Mode(session, DisplayMode::Profil2);
}

void Show_Grm_Profile(Session& session) {
    Show_Profile_In_Mode(session, DisplayMode::Profil4);
}

void Show_Full_Profile(Session& session) {
    Show_Profile_In_Mode(session, DisplayMode::Profil3);
}

void Show_Section(Session& session) {
    // Who asks for the coloured section wants to see it.
    session.Report.ShownChoice = 0;
    session.Section.Command13();
}

void Show_Curves_And_Profile(Session& session) {
    session.Outside.Show.Select_Tab(Tab::Curves);
    Show_Combined(session.Work, session.Outside);
}

void Start_New_Profile(Session& session) {
    Start_New_Profile_Of(session, {});
}

void Start_New_Profile_Of(Session& session, const std::string& records) {
    if (!May_Leave_Project(session)) return;
    if (!New_Profile(session.Work, session.Outside, session.NewProfile, records)) return;
    Add_Recent_File(session.Work.Settings, session.Work.Project.CurrentFile);
    session.LeftOutByCount.clear();
    Close_Computing_Dialogs(session);
    session.Work.Grm = {};
    session.Outside.Show.Select_Tab(Tab::Record);
    session.Outside.Show.Display_Record();
}

void Load_Records(Session& session) {
    if (Load_SU_File(session.Work, session.Outside)) session.Outside.Show.Select_Tab(Tab::Record);
}

void Load_Header_Picks(Session& session) {
    Load_FBP_From_SU_Header(session.Work, session.Outside);
    Tell_Times_Below_0(session.Work);
    session.Outside.Show.Show_Curves();
}

void Store_Header_Picks(Session& session) {
    Grid_2_SU(session.Work, session.Outside);
    session.Outside.Show.Display_Record();
}

void Arm_Spectrum(Session& session) {
    Spectre_Frequency(session.Work, session.Outside);
}

void Ask_Time_Shift(Session& session) {
    Ask_Pick_Time_Shift(session.Work, session.Outside);
}

void Scale_Or_Shift_Picks(Session& session) {
    shiftFBP(session.Work, session.Outside,
             [&session](const std::string& path) { return Open_File_Named(session, path); });
}

void Delete_File(Session& session) {
    Deletename(session.Work, session.Outside);
}

void True_Distances(Session& session) {
    Compute_Distances_According_To_Z(session.Work, session.Outside);
}

void Interpolate_Elevations(Session& session) {
    CalculAltiShot(session.Work, session.Outside, session.Elevations);
}

void Enter_Xyz(Session& session) {
    Enter_XYZ_Files(session.Work, session.Outside);
}

void Check_Xyz(Session& session) {
    Check_XYZ_File(session.Work, session.Outside);
}

void Correct_Distances(Session& session) {
    Distance_Correction(session.Work, session.Outside);
}

void Line_Length(Session& session) {
    Enter_Line_Length(session.Work, session.Outside);
}

void Remove_Current_Shot(Session& session) {
    RemoveShot(session.Work, session.Outside, session.Work.Grids.Buildgrid.CurrentColumn);
}

void Take_Out_Current_Shot(Session& session) {
    Workspace& work = session.Work;
    const int shot = work.Grids.Buildgrid.CurrentColumn;
    if (!session.Outside.Ask.Ask_Yes("Take shot " + CStr(shot) + " out of the project in memory ?",
                                     work.AppTitle)) {
        return;
    }
    // A record without a shot of its own would stand for the next shot.
    FreshFiles records;
    if (File_Exists(Su_Path(work.Project)) &&
        session.Outside.Ask.Ask_Yes("Take its field record out of " + work.Project.SuFile + " too ?",
                                    work.AppTitle)) {
        records = Rewrite_SU(work, session.Outside, shot);
        if (records.empty()) return;
    }
    Close_Computing_Dialogs(session);
    EditScope edit(work, "Take out shot " + CStr(shot));
    const std::string reason = Put_All(records);
    if (!reason.empty()) {
        edit.Give_Up();
        session.Outside.Ask.Say(reason, work.AppTitle, Icon::Critical);
        return;
    }
    session.LeftOutByCount[work.Project.NbShots] = work.Curves.ShotsLeftOut;
    Remove_Colonne(work, session.Outside, shot);
    session.LeftOutByCount[work.Project.NbShots] = work.Curves.ShotsLeftOut;
}

}  // namespace tarnvik
