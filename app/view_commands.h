#pragma once

namespace tarnvik {

class Session;

/// Closes what belongs to the previous project: pictures wiped, the second window closed, the record's tab
/// selected.
void Clear_Display(Session& session);
/// Closes the dialogs that compute on the project in memory, since another one has come or will come.
void Close_Computing_Dialogs(Session& session);
/// Back to the plain travel-time curves; a project that is named and not in memory yet is loaded.
void Back_To_Curves(Session& session);
/// Opens or closes the second travel-time window.
void Toggle_Second_Window(Session& session);
void Toggle_Zero_On_Top(Session& session);
void Toggle_Multi_Screen(Session& session);
/// Record and travel times beside each other in the main window.
void Toggle_Side_By_Side(Session& session);
void Toggle_Dark_Windows(Session& session);
void Toggle_Receiver_Intercepts(Session& session);
/// Strokes from (0, 0) to the first pick of every curve.
void Toggle_Lead_In_Strokes(Session& session);
void Show_Zoom(Session& session);
void No_Zoom(Session& session);
/// Curves and profile, whichever stands, as a whole.
void Whole_Picture(Session& session);
void Toggle_Distinct_Colours(Session& session);
void Show_Ruler(Session& session);
/// Wipes the pictures; the next command draws them afresh.
void Clear_Screen(Session& session);

/// Curves of a second project file over those on the screen.
void Superpose_File(Session& session);

void Print_Picture(Session& session);
void Choose_Printer(Session& session);
/// The picture on the screen as a bitmap, its name asked for.
void Save_Screen_As_Bmp(Session& session);
/// The picture on the screen as a file of any kind.
void Export_Picture(Session& session);
/// The picture on the screen to the clipboard, as large as the last one saved.
void Copy_Picture(Session& session);
/// The coloured section as a metafile, as a JPG picture, and to the clipboard.
void Section_To_Metafile(Session& session);
void Section_To_Jpg(Session& session);
void Section_To_Clipboard(Session& session);

void Choose_Font(Session& session);
void Choose_Velocity_Line_Colour(Session& session);
void Wide_Velocity_Line(Session& session);
void Thin_Velocity_Line(Session& session);
void One_Colour_A_Trace(Session& session);
void Colour_By_Velocity(Session& session);
void Use_Meters(Session& session);
void Use_Feet(Session& session);

}  // namespace tarnvik
