#include <array>

#include "app/commands.h"
#include "app/delay_commands.h"
#include "app/dialog_commands.h"
#include "app/documents.h"
#include "app/edit_commands.h"
#include "app/export_commands.h"
#include "app/file_commands.h"
#include "app/pages.h"
#include "app/refusals.h"
#include "app/session.h"
#include "app/start.h"
#include "app/su_chain_commands.h"
#include "app/table_commands.h"
#include "app/tool_launches.h"
#include "app/view_commands.h"
#include "core/files.h"
#include "core/language.h"

namespace tarnvik {

namespace {

template <int place>
void Open_Recent(Session& session) {
    Open_Recent_File(session, place);
}

template <int place>
std::string Recent_Caption(const Session& session) {
    return session.Work.Settings.RecentFiles[place - 1];
}

template <char letter>
void Choose_Language(Session& session) {
    Set_Language(session.Work.Settings, letter);
    session.Outside.Show.Show_Fields();
}

std::string Without_Picture(const Session& session) {
    return Page_Can_Be_Drawn(session, Page_On_Screen(session)) ? "" : "Nothing is drawn yet";
}

std::string Without_Any_Picture(const Session& session) {
    return Page_Can_Be_Drawn(session, Page::Record) ? "" : Without_Picture(session);
}

std::string Without_Coloured_Section(const Session& session) {
    return session.Report.Shown() ? Without_Report(session.Work.Project) : Without_Section(session.Work);
}

void Quit_From_Menu(Session& session) {
    Quit(session, false);
}

void Quit_From_Toolbar(Session& session) {
    Quit(session, true);
}

void Show_Keys(Session& session) {
    session.Outside.Show.Open_Dialog(Dialog::Keys, false);
}

void Show_Splash(Session& session) {
    session.Outside.Show.Open_Dialog(Dialog::frmSplash, true);
}

bool Side_By_Side(const Session& session) {
    return session.Work.Fields.SideBySide;
}

bool Dark_Windows(const Session& session) {
    return session.Work.Fields.DarkWindows;
}

bool Velocity_Ruler_Shown(const Session& session) {
    return session.Work.Curves.RulerShown;
}

bool Delay_Curve(const Session& session) {
    return session.Delay.Delay_Curve_Shown();
}

bool Multi_Screen(const Session& session) {
    return session.Work.Settings.MultiScreen;
}
bool Zero_On_Top(const Session& session) {
    return session.Work.Curves.ZeroOnTop;
}
bool Receiver_Intercepts(const Session& session) {
    return session.Work.Curves.ShowReceiverIntercepts;
}

bool Lead_In_Strokes(const Session& session) {
    return session.Work.Curves.LeadInStrokes;
}
bool Wide_Line(const Session& session) {
    return session.Work.Settings.VelocityLineWidth == 2;
}
bool Thin_Line(const Session& session) {
    return !Wide_Line(session);
}
bool By_Velocity(const Session& session) {
    return session.Work.Settings.ColorChoice;
}
bool One_Colour(const Session& session) {
    return !By_Velocity(session);
}
bool Distinct_Colours(const Session& session) {
    return session.Work.Curves.DistinctColours;
}
bool Meters(const Session& session) {
    return session.Work.Settings.Metric();
}
bool Feet(const Session& session) {
    return !Meters(session);
}
template <std::int16_t Settings::*flag>
bool Language(const Session& session) {
    return session.Work.Settings.*flag != 0;
}

constexpr std::string_view file_menu = "&File";
constexpr std::string_view conversion_menu = "&File/Conversion";
constexpr std::string_view export_menu = "&File/Export";
constexpr std::string_view import_menu = "&File/Import";
constexpr std::string_view edit_menu = "&Edit";
constexpr std::string_view recent_menu = "&File/Recent files";
constexpr std::string_view processing_menu = "&Processing";
constexpr std::string_view screen_menu = "Screen Displa&y";
constexpr std::string_view printer_menu = "P&rinter";
constexpr std::string_view section_menu = "P&rinter/Colored section";
constexpr std::string_view utility_menu = "&Utility";
constexpr std::string_view ascii_menu = "&Utility/ASCII files";
constexpr std::string_view csv_menu = "&Utility/CSV tools";
constexpr std::string_view options_menu = "&Display options";
constexpr std::string_view time_menu = "&Display options/Display time option";
constexpr std::string_view line_menu = "&Display options/Velocity line";
constexpr std::string_view colour_menu = "&Display options/Curve colours";
constexpr std::string_view units_menu = "&Display options/Units";
constexpr std::string_view language_menu = "&Language (Printed texts)";
constexpr std::string_view info_menu = "I&nfo";

constexpr Command Separator(std::string_view menu) {
    return {.Name = "", .Menu = menu, .Caption = "-"};
}

// clang-format off
const std::array command_table = {
    // Toolbar, in the order of the buttons.
    Command{.Name = "erase", .Tooltip = "Move up/down a traveltime", .Icon = "erase", .Run = Show_Trigger_Correction, .Refusal = Without_Project},
    Command{.Name = "frequency", .Tooltip = "SU enhancement", .Icon = "frequency", .Run = Launch_Enhancement},
    Command{.Name = "herz", .Tooltip = "Frequency spectrum", .Icon = "herz", .Run = Arm_Spectrum, .Refusal = Without_Shown_Records},
    Command{.Name = "help", .Tooltip = "Launch help file", .Icon = "help", .Run = Open_Manual},
    Command{.Name = "tv4", .Tooltip = "Start a new traveltime", .Icon = "tv4", .Run = Start_New_Profile},
    Command{.Name = "Double", .Tooltip = "Display dromo + field record", .Icon = "Double", .Run = Toggle_Second_Window},
    Command{.Name = "quick", .Tooltip = "Quick interpretation", .Icon = "quick", .Run = Show_Quick_Interpretation, .Refusal = Without_Project},
    Command{.Name = "edit", .Tooltip = "EDIT travel time informations", .Icon = "edit", .Run = Edit_Notes},
    Command{.Name = "ruler", .Tooltip = "velocity reference line", .Icon = "ruler", .Run = Toggle_Velocity_Ruler, .Refusal = Without_Project},
    Command{.Name = "tosu", .Tooltip = "Seismograph File conversion", .Icon = "tosu", .Run = Launch_Conversion},
    Command{.Name = "open", .Tooltip = "Open existing TV5 File", .Icon = "open", .Run = Open_From_Toolbar},
    Command{.Name = "save", .Tooltip = "Save TV5 File", .Icon = "save", .Run = Save_Data, .Refusal = Without_Project},
    Command{.Name = "dromo", .Tooltip = "Display travel time", .Icon = "dromo", .Run = Back_To_Curves},
    Command{.Name = "prop", .Tooltip = "New profile from field records", .Icon = "prop", .Run = Start_New_Profile},
    Command{.Name = "fantom", .Tooltip = "Fantoming travel time", .Icon = "fantom", .Run = Show_Phantom_Dialog, .Refusal = Without_Project},
    Command{.Name = "vitess1", .Tooltip = "velocity / linear regression", .Icon = "vitess1", .Run = Show_Velocity_Dialog, .Refusal = Without_Project},
    Command{.Name = "velo2", .Tooltip = "velocity / Straight line", .Icon = "velo2", .Run = Show_Hand_Velocity_Dialog, .Refusal = Without_Project},
    Command{.Name = "vitess3", .Tooltip = "True velocity", .Icon = "vitess3", .Run = Show_True_Velocity_Dialog, .Refusal = Without_Project},
    Command{.Name = "sum", .Tooltip = "Thickness computation", .Icon = "sum", .Run = Show_Depth_Dialog, .Refusal = Without_Project},
    Command{.Name = "print", .Tooltip = "Print travel time or profile", .Icon = "print", .Run = Start_Superprint},
    Command{.Name = "ruler2", .Tooltip = "Display ruler", .Icon = "ruler2", .Run = Show_Ruler},
    Command{.Name = "drawing", .Tooltip = "display profile", .Icon = "drawing", .Run = Show_Intercept_Profile, .Refusal = Without_Project},
    Command{.Name = "smallcap", .Tooltip = "delay /ABC method", .Icon = "smallcap", .Run = Show_Delay_Dialog, .Refusal = Without_Project},
    Command{.Name = "GRM", .Tooltip = "GRM Method", .Icon = "GRM", .Run = Ask_Total_Time_For_Grm, .Refusal = Without_Project},
    Command{.Name = "find", .Tooltip = "Zoom", .Icon = "find", .Run = Show_Zoom, .Refusal = Without_Project},
    Command{.Name = "stop", .Tooltip = "Exit Tarnvik", .Icon = "stop", .Run = Quit_From_Toolbar},
    Command{.Name = "nozoom", .Tooltip = "No more zoom", .Icon = "nozoom", .Run = No_Zoom, .Refusal = Without_Project},
    Command{.Name = "abc", .Tooltip = "Record abc result", .Icon = "abc", .Run = Record_Delay_Results, .Refusal = Without_Project},

    // File
    Command{.Name = "NewDromoName", .Menu = file_menu, .Caption = "&Open travel time...", .Icon = "open", .Shortcut = "Ctrl+O", .Run = Open_Travel_Time},
    Command{.Name = "T_Assembly", .Menu = file_menu, .Caption = "New travel time", .Icon = "tv4", .Shortcut = "Ctrl+N", .Run = Start_New_Profile},
    Separator(file_menu),
    Command{.Name = "SaveName", .Menu = file_menu, .Caption = "Save Data ", .Icon = "save", .Shortcut = "Ctrl+S", .Run = Save_Data, .Refusal = Without_Project},
    Command{.Name = "Save_As", .Menu = file_menu, .Caption = "Save data As", .Shortcut = "Ctrl+Shift+S", .Run = Save_Data_As},
    Command{.Name = "Deletename", .Menu = file_menu, .Caption = "Delete File", .Run = Delete_File},
    Separator(file_menu),
    Command{.Name = "SEG22SU", .Menu = conversion_menu, .Caption = "SEG2 to SU conversion", .Run = Launch_Seg2_Conversion},
    Command{.Name = "conver", .Menu = conversion_menu, .Caption = "Other Seismograph file conversion", .Icon = "tosu", .Run = Launch_Conversion},
    Command{.Name = "backup", .Menu = conversion_menu, .Caption = "TV5 to *.BAK", .Run = Ask_For_Backup},
    Command{.Name = "NBak", .Menu = conversion_menu, .Caption = "*.BAK to *.TV5", .Run = Convert_Bak_To_Tv5},
    Command{.Name = "TV57", .Menu = conversion_menu, .Caption = "Old TV4 to TV5", .Run = Convert_Tv4_To_Tv5},
    Command{.Name = "PLOTREFA_CNV", .Menu = export_menu, .Caption = "TV5  to PLOTREFA", .Run = Export_To_Plotrefa},
    Command{.Name = "optim", .Menu = export_menu, .Caption = "TV5 to Seisopt@2D", .Run = Export_To_SeisOpt2D},
    Command{.Name = "Rayfract", .Menu = export_menu, .Caption = "TV5 to Rayfract ASCII", .Run = Export_To_Rayfract},
    Command{.Name = "Command22", .Menu = export_menu, .Caption = "SURFER Export", .Tooltip = "Grid, colours and script of the coloured section for the map program", .Run = Export_To_Surfer, .Refusal = Without_Project},
    Separator(export_menu),
    Command{.Name = "Unified_M", .Menu = export_menu, .Caption = "Picks in the unified data format (SGT)", .Tooltip = "Positions and times, as pyGIMLi reads them", .Run = Export_To_Unified_Format, .Refusal = Without_Project},
    Command{.Name = "PicksCsv_M", .Menu = export_menu, .Caption = "Picks with positions (CSV)", .Run = Export_Picks_As_Csv, .Refusal = Without_Project},
    Command{.Name = "Dxf_M", .Menu = export_menu, .Caption = "Profile as a drawing (DXF)", .Tooltip = "Ground, shots, receivers and interfaces, each on a layer of its own", .Run = Export_Profile_As_Dxf, .Refusal = Without_Project},
    Command{.Name = "ImportPicks_M", .Menu = import_menu, .Caption = "Picks of PLOTREFA, Rayfract or unified data...", .Tooltip = "A file of picks becomes a new project", .Run = Import_Pick_File},
    Command{.Name = "F1_F", .Menu = recent_menu, .Run = Open_Recent<1>, .Text = Recent_Caption<1>},
    Command{.Name = "F2_F", .Menu = recent_menu, .Run = Open_Recent<2>, .Text = Recent_Caption<2>},
    Command{.Name = "F3_F", .Menu = recent_menu, .Run = Open_Recent<3>, .Text = Recent_Caption<3>},
    Command{.Name = "F4_F", .Menu = recent_menu, .Run = Open_Recent<4>, .Text = Recent_Caption<4>},
    Command{.Name = "F5_F", .Menu = recent_menu, .Run = Open_Recent<5>, .Text = Recent_Caption<5>},
    Separator(file_menu),
    Command{.Name = "Fin_Mnu", .Menu = file_menu, .Caption = "End", .Icon = "stop", .Shortcut = "Ctrl+Q", .Run = Quit_From_Menu},
    Command{.Name = "Exit_M", .Menu = file_menu, .Caption = "Exit without saving", .Run = Exit_At_Once},

    // Edit
    Command{.Name = "Undo_M", .Menu = edit_menu, .Caption = "&Undo", .Shortcut = "Ctrl+Z", .Run = Undo_Edit, .Text = Undo_Caption, .Refusal = Undo_Refusal},
    Command{.Name = "Redo_M", .Menu = edit_menu, .Caption = "&Redo", .Shortcut = "Ctrl+Shift+Z", .Run = Redo_Edit, .Text = Redo_Caption, .Refusal = Redo_Refusal},
    Command{.Name = "History_M", .Menu = edit_menu, .Caption = "&History...", .Run = Show_History},

    // Processing
    Command{.Name = "VelCalcul", .Menu = processing_menu, .Caption = "&Velocity with linear regression", .Icon = "vitess1", .Shortcut = "F5", .Run = Show_Velocity_Dialog, .Refusal = Without_Project},
    Command{.Name = "VelCalName", .Menu = processing_menu, .Caption = "Velocity from point to point", .Icon = "velo2", .Shortcut = "Shift+F5", .Run = Show_Hand_Velocity_Dialog, .Refusal = Without_Project},
    Command{.Name = "Vel2name", .Menu = processing_menu, .Caption = "True Velocity", .Icon = "vitess3", .Shortcut = "Ctrl+F5", .Run = Show_True_Velocity_Dialog, .Refusal = Without_Project},
    Command{.Name = "v_r", .Menu = processing_menu, .Caption = "Velocity ruler", .Icon = "ruler", .Run = Toggle_Velocity_Ruler, .Checked = Velocity_Ruler_Shown, .Refusal = Without_Project},
    Command{.Name = "dipc", .Menu = processing_menu, .Caption = "Dip computation", .Run = Show_Dip_Dialog},
    Separator(processing_menu),
    Command{.Name = "PhantomName", .Menu = processing_menu, .Caption = "Phantom Trace", .Icon = "fantom", .Run = Show_Phantom_Dialog, .Refusal = Without_Project},
    Command{.Name = "QuickInterpretation", .Menu = processing_menu, .Caption = "Quick Interpretation", .Icon = "quick", .Run = Show_Quick_Interpretation, .Refusal = Without_Project},
    Command{.Name = "IT_Compute", .Menu = processing_menu, .Caption = "Intercept time depth computation", .Icon = "sum", .Shortcut = "F6", .Run = Show_Depth_Dialog, .Refusal = Without_Project},
    Separator(processing_menu),
    Command{.Name = "DTDetName", .Menu = processing_menu, .Caption = "De&lay Times det.", .Icon = "smallcap", .Run = Show_Delay_Dialog, .Refusal = Without_Project},
    Command{.Name = "DepthName", .Menu = processing_menu, .Caption = "Depth Calculation", .Run = Show_Abc_Dialog, .Refusal = Without_Project},
    Command{.Name = "NEditABC", .Menu = processing_menu, .Caption = "Edit Delay times", .Run = Edit_Delays, .Refusal = Without_Project},
    Command{.Name = "MnuDisplayelay", .Menu = processing_menu, .Caption = "Display Delay", .Run = Toggle_Delay_Curve, .Checked = Delay_Curve, .Refusal = Without_Project},
    Command{.Name = "MnuDepthFile", .Menu = processing_menu, .Caption = "Distance - Depth ASCII file", .Run = Record_Depth_File, .Refusal = Without_Project},
    Separator(processing_menu),
    Command{.Name = "GRM_mnu", .Menu = processing_menu, .Caption = "Generalized Reciprocal Method", .Icon = "GRM", .Run = Show_Grm_Dialog, .Refusal = Without_Total_Time},

    // Screen Display
    Command{.Name = "TT_Mnu", .Menu = screen_menu, .Caption = "Travel time", .Icon = "dromo", .Shortcut = "F2", .Run = Back_To_Curves},
    Command{.Name = "TT_IT_MN", .Menu = screen_menu, .Caption = "Travel time and Delay", .Run = Show_Curves_And_Delay, .Refusal = Without_Project},
    Command{.Name = "S2", .Menu = screen_menu, .Caption = "Depth with Intercept time", .Icon = "drawing", .Shortcut = "F3", .Run = Show_Intercept_Profile, .Refusal = Without_Project},
    Command{.Name = "S3", .Menu = screen_menu, .Caption = "Depth + ABC", .Run = Show_Abc_Profile, .Refusal = Without_Project},
    Command{.Name = "S4", .Menu = screen_menu, .Caption = "Depth + GRM", .Run = Show_Grm_Profile, .Refusal = Without_Project},
    Command{.Name = "S5", .Menu = screen_menu, .Caption = "Depth + ABC + GRM", .Run = Show_Full_Profile, .Refusal = Without_Project},
    Command{.Name = "Command13", .Menu = screen_menu, .Caption = "Colored section", .Tooltip = "Saves the project and computes the coloured section of the depths chosen", .Shortcut = "Shift+F3", .Run = Show_Section, .Refusal = Without_Project},
    Command{.Name = "BI_M", .Menu = screen_menu, .Caption = "Travel time and profile", .Run = Show_Curves_And_Profile, .Refusal = Without_Project},
    Separator(screen_menu),
    Command{.Name = "Superpose", .Menu = screen_menu, .Caption = "Superpose a new Tarnvik file", .Run = Superpose_File, .Refusal = Without_Project},
    Command{.Name = "theoric", .Menu = screen_menu, .Caption = "Superpose a computed curve", .Run = Show_Theoretic_Dialog, .Refusal = Without_Project},
    Separator(screen_menu),
    Command{.Name = "Zerop", .Menu = screen_menu, .Caption = "Zero time on top", .Shortcut = "Ctrl+T", .Run = Toggle_Zero_On_Top, .Checked = Zero_On_Top},
    Command{.Name = "SideBySide_M", .Menu = screen_menu, .Caption = "Record and travel times side by side", .Shortcut = "F7", .Run = Toggle_Side_By_Side, .Checked = Side_By_Side},
    Command{.Name = "MultiScreen", .Menu = screen_menu, .Caption = "Multi screen", .Run = Toggle_Multi_Screen, .Checked = Multi_Screen},
    Command{.Name = "TShift", .Menu = screen_menu, .Caption = "Time Shift", .Run = Ask_Time_Shift},

    // Printer
    Command{.Name = "winprint", .Menu = printer_menu, .Caption = "Dromo Printer module", .Tooltip = "Travel times, profile and section on one sheet", .Icon = "print", .Run = Start_Superprint},
    Command{.Name = "PrintPicture_M", .Menu = printer_menu, .Caption = "Print picture...", .Tooltip = "The picture in sight, as large as the paper allows", .Shortcut = "Ctrl+P", .Run = Print_Picture},
    Command{.Name = "Export_M", .Menu = printer_menu, .Caption = "Save picture...", .Tooltip = "As PNG, JPG, SVG, PDF or WMF", .Shortcut = "Ctrl+E", .Run = Export_Picture, .Refusal = Without_Any_Picture},
    Command{.Name = "CopyPicture_M", .Menu = printer_menu, .Caption = "Copy picture", .Tooltip = "To the clipboard, as large as the last one saved", .Shortcut = "Ctrl+Shift+C", .Run = Copy_Picture, .Refusal = Without_Any_Picture},
    Command{.Name = "SectionWmf_M", .Menu = section_menu, .Caption = "Windows Meta File...", .Run = Section_To_Metafile, .Refusal = Without_Coloured_Section},
    Command{.Name = "SectionJpg_M", .Menu = section_menu, .Caption = "JPG picture...", .Run = Section_To_Jpg, .Refusal = Without_Coloured_Section},
    Command{.Name = "SectionClipboard_M", .Menu = section_menu, .Caption = "Clipboard", .Run = Section_To_Clipboard, .Refusal = Without_Coloured_Section},
    Command{.Name = "Print_rec", .Menu = printer_menu, .Caption = "SU Record printer module", .Run = Launch_Record_Printer},
    Command{.Name = "psetup", .Menu = printer_menu, .Caption = "Printer selection", .Run = Choose_Printer},
    Command{.Name = "Print_Comput", .Menu = printer_menu, .Caption = "Print computation", .Tooltip = "Velocities and thicknesses below the shots as a table", .Run = Show_Results, .Refusal = Without_Project},

    // Utility
    Command{.Name = "headerx", .Menu = utility_menu, .Caption = "Seismic Unix Header editing", .Run = Show_Header_Editor},
    Command{.Name = "Edit_Mnu", .Menu = utility_menu, .Caption = "Edit Data File", .Run = Edit_Data_File},
    Command{.Name = "Font_Mnu", .Menu = utility_menu, .Caption = "Font selection", .Run = Choose_Font},
    Command{.Name = "shiftFBP", .Menu = utility_menu, .Caption = "Time pick scale or shift", .Run = Scale_Or_Shift_Picks},
    Separator(utility_menu),
    Command{.Name = "FS", .Menu = utility_menu, .Caption = "Frequency spectrum", .Icon = "herz", .Run = Arm_Spectrum, .Refusal = Without_Shown_Records},
    Command{.Name = "filtr", .Menu = utility_menu, .Caption = "Filtering + AGC", .Icon = "frequency", .Run = Launch_Filter},
    Command{.Name = "Rev_Trace", .Menu = utility_menu, .Caption = "Reverse traces", .Run = Launch_Trace_Reversal},
    Command{.Name = "Fldrec", .Menu = utility_menu, .Caption = "Update trace number / record number", .Tooltip = "Numbers the traces and records of an SU file anew", .Run = Show_Trace_Numbers},
    Command{.Name = "Rezize_M", .Menu = utility_menu, .Caption = "SU file utility", .Tooltip = "A new SU file with shorter records, another number of samples or fewer channels", .Run = Show_Su_Utility},
    Command{.Name = "Resize", .Menu = utility_menu, .Caption = "Resize channels", .Tooltip = "The records at 1 ms, one and a half times as long as the latest first break, as a new SU file", .Run = Resize_Records, .Refusal = Without_Line_Or_Records},
    Command{.Name = "extrax", .Menu = utility_menu, .Caption = "Extract traces", .Tooltip = "Some channels of all records as a new SU file", .Run = Extract_From_Records, .Refusal = Without_Records},
    Command{.Name = "Stack_M", .Menu = utility_menu, .Caption = "Stack shots", .Tooltip = "Use this option to stack (add) contiguous shots,  up to 5 shots to enhance seismic signal", .Run = Stack_Neighbours, .Refusal = Without_Line_Or_Records},
    Separator(utility_menu),
    Command{.Name = "addcsv", .Menu = csv_menu, .Caption = "Add CSV", .Run = Launch_Add_Csv},
    Command{.Name = "dp", .Menu = csv_menu, .Caption = "Display Profile", .Run = Launch_Profile_Display},
    Command{.Name = "MF", .Menu = csv_menu, .Caption = "Merge CSV files", .Run = Launch_Merge_Csv},
    Command{.Name = "ASCII", .Menu = ascii_menu, .Caption = "Record Tarnvik data in ASCII files", .Tooltip = "Delay times, depths at shot points and delay depths, one after the other", .Run = Record_Ascii_Files, .Refusal = Without_Project},
    Command{.Name = "DT", .Menu = ascii_menu, .Caption = "Delay time", .Run = Record_Delay_List, .Refusal = Without_Project},
    Command{.Name = "Z_shot", .Menu = ascii_menu, .Caption = "Depth at shot point", .Run = Record_Shot_Depths, .Refusal = Without_Project},
    Command{.Name = "Zfile", .Menu = ascii_menu, .Caption = "Delay Depth computations", .Run = Record_Delay_Results, .Refusal = Without_Project},
    Separator(utility_menu),
    Command{.Name = "Copy_M", .Menu = utility_menu, .Caption = "Save screen as BMP", .Run = Save_Screen_As_Bmp, .Refusal = Without_Picture},
    Command{.Name = "Clear_M", .Menu = utility_menu, .Caption = "Clear Screen", .Run = Clear_Screen},
    Command{.Name = "Register_M", .Menu = utility_menu, .Caption = "Open TV5 files with Tarnvik", .Run = Register_File_Type},

    // Display options
    Command{.Name = "ZZ", .Menu = options_menu, .Caption = "Enlargement factors", .Icon = "find", .Shortcut = "F4", .Run = Show_Zoom, .Refusal = Without_Project},
    Command{.Name = "Intercept_M", .Menu = time_menu, .Caption = "Intercept times at receivers", .Run = Toggle_Receiver_Intercepts, .Checked = Receiver_Intercepts},
    Command{.Name = "LeadIn_M", .Menu = time_menu, .Caption = "Lead-in strokes", .Run = Toggle_Lead_In_Strokes, .Checked = Lead_In_Strokes},
    Command{.Name = "Dark_M", .Menu = options_menu, .Caption = "Dark windows", .Run = Toggle_Dark_Windows, .Checked = Dark_Windows},
    Command{.Name = "Vel_line_Col_Mnu", .Menu = line_menu, .Caption = "Line Color", .Run = Choose_Velocity_Line_Colour},
    Command{.Name = "Large_Mnu", .Menu = line_menu, .Caption = "Large", .Run = Wide_Velocity_Line, .Checked = Wide_Line},
    Command{.Name = "Thin_Mnu", .Menu = line_menu, .Caption = "Thin", .Run = Thin_Velocity_Line, .Checked = Thin_Line},
    Command{.Name = "color_1", .Menu = colour_menu, .Caption = "one color/ trace", .Run = One_Colour_A_Trace, .Checked = One_Colour},
    Command{.Name = "color_2", .Menu = colour_menu, .Caption = "color / velocity", .Run = Colour_By_Velocity, .Checked = By_Velocity},
    Command{.Name = "DistinctColours_M", .Menu = colour_menu, .Caption = "Distinct shot colours", .Tooltip = "A colour of its own for each of a dozen shots", .Run = Toggle_Distinct_Colours, .Checked = Distinct_Colours},
    Command{.Name = "Meters_M", .Menu = units_menu, .Caption = "Meters", .Run = Use_Meters, .Checked = Meters},
    Command{.Name = "Feet_M", .Menu = units_menu, .Caption = "Feet", .Run = Use_Feet, .Checked = Feet},

    // Language
    Command{.Name = "English_M", .Menu = language_menu, .Caption = "English", .Run = Choose_Language<'E'>, .Checked = Language<&Settings::LangEnglish>},
    Command{.Name = "French_M", .Menu = language_menu, .Caption = "Français", .Run = Choose_Language<'F'>, .Checked = Language<&Settings::LangFrench>},
    Command{.Name = "Spanish_M", .Menu = language_menu, .Caption = "Spanish", .Run = Choose_Language<'S'>, .Checked = Language<&Settings::LangSpanish>},
    Command{.Name = "German_M", .Menu = language_menu, .Caption = "German", .Run = Choose_Language<'G'>, .Checked = Language<&Settings::LangGerman>},
    Command{.Name = "Italian_M", .Menu = language_menu, .Caption = "Italian", .Run = Choose_Language<'I'>, .Checked = Language<&Settings::LangItalian>},

    // Info
    Command{.Name = "Help_M", .Menu = info_menu, .Caption = "Help on this page", .Tooltip = "Chapter of the manual about what is in front", .Shortcut = help_key, .Run = Open_Help},
    Command{.Name = "Keys_M", .Menu = info_menu, .Caption = "Keys and mouse", .Shortcut = "Shift+F1", .Run = Show_Keys},
    Command{.Name = "Mnu_Info", .Menu = info_menu, .Caption = "Help file", .Icon = "help", .Run = Open_Manual},
    Command{.Name = "WSH", .Menu = info_menu, .Caption = "Tarnvik history", .Run = Open_History},
    Command{.Name = "video", .Menu = info_menu, .Caption = "Videos", .Run = Open_Video},
    Command{.Name = "REDPATH", .Menu = info_menu, .Caption = "Redpath book", .Run = Open_Redpath_Book},
    Command{.Name = "pps", .Menu = info_menu, .Caption = "Powerpoint slide show", .Run = Open_Slide_Show},
    Separator(info_menu),
    Command{.Name = "Version_N", .Menu = info_menu, .Caption = "Tarnvik Version Info", .Run = Show_Splash},
};
// clang-format on

}  // namespace

std::span<const Command> Command_Table() {
    return command_table;
}

const Command* Find_Command(std::string_view name) {
    for (const auto& table : {Command_Table(), Record_Page_Commands(), Tables_Page_Commands(),
                              Curves_Page_Commands(), Picking_Commands()}) {
        for (const Command& command : table) {
            if (command.Name == name) return &command;
        }
    }
    return nullptr;
}

std::string Not_Available_Text(const Command& command) {
    const std::string_view name = command.Caption.empty() ? command.Tooltip : command.Caption;
    return std::string(name) + ": not available in this version";
}

std::string Refusal_Of(const Command& command, const Session& session) {
    if (!command.Available()) return Not_Available_Text(command);
    return command.Refusal == nullptr ? std::string() : command.Refusal(session);
}

void Run_Command(Session& session, std::string_view name) {
    const Command* command = Find_Command(name);
    if (command == nullptr || !command->Available()) return;
    const std::string refusal = Refusal_Of(*command, session);
    // What was told of an earlier command holds no longer.
    const bool told = !session.Work.Fields.Status.empty();
    session.Work.Fields.Status = refusal;
    if (refusal.empty()) {
        command->Run(session);
        if (told) session.Outside.Show.Show_Fields();
        return;
    }
    session.Outside.Show.Show_Fields();
}

}  // namespace tarnvik
