#pragma once

#include <string>

namespace tarnvik {

enum class Dialog;
class Session;

/// Opens a computing dialog over the curves, or brings it to the front: it has the picture from now on. A
/// profile that shares the picture goes away.
void Open_Over_Curves(Session& session, Dialog dialog);

/// Opens SpeedF over the curves.
void Show_Velocity_Dialog(Session& session);
/// Opens SpeedF2 over the curves.
void Show_True_Velocity_Dialog(Session& session);
/// Opens SpeedF3 over the curves.
void Show_Hand_Velocity_Dialog(Session& session);
/// Opens or closes vELINE, the velocities of the cross at the pointer.
void Toggle_Velocity_Ruler(Session& session);
void Show_Dip_Dialog(Session& session);
/// Opens Header on the project's field records, or on none.
void Show_Header_Editor(Session& session);
/// Opens Fcalcul beside the curves.
void Show_Depth_Dialog(Session& session);
/// Opens Erase_TT over the curves.
void Show_Trigger_Correction(Session& session);

/// Opens quick_interpret over the curves.
void Show_Quick_Interpretation(Session& session);
/// Opens FantomF over the curves.
void Show_Phantom_Dialog(Session& session);
/// Opens Theoric_F beside the curves; the dialog that has the picture keeps it.
void Show_Theoretic_Dialog(Session& session);

/// The velocity that SpeedF shows is recorded without another question, and the next layer is measured. When
/// it could not be saved, all stays.
void Save_Velocity_And_Go_On(Session& session);

/// The seismic profile with the depths that its mode tells.
void Show_Intercept_Profile(Session& session);  ///< mode "Profil"
void Show_Abc_Profile(Session& session);        ///< mode "Profil2"
void Show_Grm_Dialog(Session& session);
void Ask_Total_Time_For_Grm(Session& session);  ///< then the same dialog, unless the user gives up
void Show_Grm_Profile(Session& session);        ///< mode "Profil4"
void Show_Full_Profile(Session& session);       ///< mode "Profil3"
void Show_Section(Session& session);            ///< the coloured section
/// Curves and profile together, mode "BI".
void Show_Curves_And_Profile(Session& session);

/// Makes a new project of field records.
void Start_New_Profile(Session& session);
void Start_New_Profile_Of(Session& session, const std::string& records);  ///< of this SU file
/// Another SU file for the project in memory, or for a new one.
void Load_Records(Session& session);
/// Picks of the SU headers into the table, the model and the curves.
void Load_Header_Picks(Session& session);
/// Picks of the table into the SU headers.
void Store_Header_Picks(Session& session);
void Arm_Spectrum(Session& session);
void Ask_Time_Shift(Session& session);
void Scale_Or_Shift_Picks(Session& session);
void Delete_File(Session& session);

/// Buttons of the table's tab.
void True_Distances(Session& session);
/// Elevations of shots or of geophones, as Session::Elevations tells.
void Interpolate_Elevations(Session& session);
void Enter_Xyz(Session& session);
void Check_Xyz(Session& session);
void Correct_Distances(Session& session);
void Line_Length(Session& session);
/// The shot of Buildgrid's current column is taken out, in a project of a new name.
void Remove_Current_Shot(Session& session);
/// The same shot is taken out of the project in memory; its file stays until the next save.
void Take_Out_Current_Shot(Session& session);

}  // namespace tarnvik
