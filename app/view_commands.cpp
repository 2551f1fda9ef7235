#include "app/view_commands.h"

#include <string>

#include "app/dialog_rows.h"
#include "app/pages.h"
#include "app/session.h"
#include "core/files.h"
#include "core/project_file.h"
#include "core/project_open.h"
#include "core/text/letters.h"
#include "output/section_print.h"
#include "records/su_loading.h"
#include "traveltime/curves.h"
#include "traveltime/shot_grid.h"
#include "traveltime/zoom.h"

namespace tarnvik {

namespace {

void Save_Page_As(Session& session, const std::string& path) {
    const Page page = Page_On_Screen(session);
    const PictureFormat format;
    if (!Scale_May_Change(session, page, format.Width_In_Millimetres(), format.Height_In_Millimetres()))
        return;
    const std::string reason = session.Outside.Show.Save_Page(page, path, format);
    if (!reason.empty()) {
        session.Outside.Ask.Say(path + " cannot be written: " + reason, session.Work.AppTitle,
                                Icon::Critical);
    }
}

bool May_Replace(Session& session, const std::string& path) {
    return !File_Exists(path) ||
           session.Outside.Ask.Ask_Yes(path + " already exists, overwrite ?", session.Work.AppTitle);
}

void Set_Units(Session& session, const char* units) {
    session.Work.Settings.Units = units;
    session.Outside.Show.Show_Fields();
    session.Outside.Show.Show_Curves();
}

void Set_Line_Width(Session& session, std::int16_t width) {
    session.Work.Settings.VelocityLineWidth = width;
    session.Outside.Show.Show_Fields();
}

void Set_Colour_Choice(Session& session, bool by_velocity) {
    session.Work.Settings.ColorChoice = by_velocity;
    session.Outside.Show.Show_Fields();
    session.Outside.Show.Show_Curves();
}

}  // namespace

void Clear_Screen(Session& session) {
    for (const Canvas canvas :
         {Canvas::Dromo, Canvas::EchelleX, Canvas::EchelleY, Canvas::Dromo1, Canvas::EchelleY1}) {
        session.Outside.Show.Canvas_Of(canvas).Clear();
    }
    session.Work.Curves.FrameDrawn = 0;
}

void Clear_Display(Session& session) {
    Clear_Screen(session);
    if (session.Work.Curves.DoubleView == 1) Toggle_Second_Window(session);
    Close_Records(session.Work, session.Outside);
    session.Outside.Show.Select_Tab(Tab::Record);
}

void Close_Computing_Dialogs(Session& session) {
    session.Delay.Hide_Delay_Curve();
    session.Section.Project_Left();
    session.Report.Project_Left();
    for (const DialogRow& row : Dialog_Rows()) {
        if (!row.ClosesWithProject) continue;
        session.Outside.Show.Close_Dialog(row.Which);
        session.Work.Mode.Release(row.Which);
    }
}

void Back_To_Curves(Session& session) {
    const std::string path = session.Work.Project.CurrentFile;
    if (session.Work.Project.NbShots == 0 && File_Exists(path)) Read_Project(session.Work, path);
    Clear_Selection(session.Work.Curves);
    Show_Alone(session.Work.Curves, 0);
    session.Delay.Hide_Delay_Curve();
    session.GrmAnalysis.Give_Up_Picture();
    session.Work.Mode.Display(DisplayMode::Dromo);
    session.Outside.Show.Select_Tab(Tab::Curves);
    session.Outside.Show.Show_Curves();
}

void Toggle_Second_Window(Session& session) {
    CurveView& curves = session.Work.Curves;
    if (curves.DoubleView == 0) {
        curves.DoubleView = 1;
        session.Outside.Show.Open_Dialog(Dialog::Travel_Time_2, false);
        session.Outside.Show.Show_Curves();
    } else {
        curves.DoubleView = 0;
        session.Outside.Show.Close_Dialog(Dialog::Travel_Time_2);
    }
}

void Toggle_Zero_On_Top(Session& session) {
    session.Work.Curves.ZeroOnTop = !session.Work.Curves.ZeroOnTop;
    session.Outside.Show.Show_Fields();
    session.Outside.Show.Show_Curves();
}

void Toggle_Side_By_Side(Session& session) {
    session.Work.Fields.SideBySide = !session.Work.Fields.SideBySide;
    session.Outside.Show.Show_Fields();
}

void Toggle_Dark_Windows(Session& session) {
    session.Work.Fields.DarkWindows = !session.Work.Fields.DarkWindows;
    session.Outside.Show.Show_Fields();
}

void Toggle_Multi_Screen(Session& session) {
    session.Work.Settings.MultiScreen = !session.Work.Settings.MultiScreen;
    session.Outside.Show.Show_Fields();
}

void Toggle_Receiver_Intercepts(Session& session) {
    session.Work.Curves.ShowReceiverIntercepts = !session.Work.Curves.ShowReceiverIntercepts;
    session.Outside.Show.Show_Fields();
    session.Outside.Show.Show_Curves();
}

void Toggle_Lead_In_Strokes(Session& session) {
    session.Work.Curves.LeadInStrokes = !session.Work.Curves.LeadInStrokes;
    session.Outside.Show.Show_Fields();
    session.Outside.Show.Show_Curves();
}

void Show_Zoom(Session& session) {
    if (session.Work.Mode.On_Display() == DisplayMode::Both) {
        session.Outside.Ask.Say("Not available with this display", session.Work.AppTitle, Icon::Critical);
        return;
    }
    session.Outside.Show.Open_Dialog(Dialog::Zoom, false);
}

void No_Zoom(Session& session) {
    Set_Zoom(session.Work.Curves, 1, 1);
    session.Outside.Show.Show_Fields();
    session.Outside.Show.Show_Curves();
}

void Whole_Picture(Session& session) {
    Set_Zoom(session.Work.Curves, 1, 1);
    ProfileView& profile = session.Work.Profile;
    profile.ZoomX = profile.ZoomY = 1;
    profile.Across = profile.Up = 0;
    session.Outside.Show.Repaint_Page(session.Work.Curves.FrameDrawn == 2 ? Page::Profile : Page::Curves);
    session.Outside.Show.Show_Fields();
}

void Toggle_Distinct_Colours(Session& session) {
    session.Work.Curves.DistinctColours = !session.Work.Curves.DistinctColours;
    session.Outside.Show.Show_Fields();
    // The list of shots shows the colours too.
    session.Outside.Show.Show_Grids();
    session.Outside.Show.Repaint_Page(Page::Curves);
}

void Show_Ruler(Session& session) {
    session.Outside.Show.Open_Dialog(Dialog::RulerF, false);
}

void Superpose_File(Session& session) {
    const std::string path = session.Outside.Ask.Open_File(
        {"Tarnvik File selection", "File Tarnvik TV5 |*.TV5|", "*.TV5", session.Work.Project.ProjectDir});
    if (path.empty()) return;
    const auto content = Read_File(path);
    if (!content) {
        session.Outside.Ask.Say("This file does not exist !", session.Work.AppTitle, Icon::Critical);
        return;
    }
    Project other;
    const ReadingReport report = Parse_Project(*content, other);
    if (!report.Refusal.empty()) {
        session.Outside.Ask.Say(No_Project_Text(path, report), session.Work.AppTitle, Icon::Critical);
        return;
    }
    Superpose(session.Work, session.Outside, other);
}

void Print_Picture(Session& session) {
    if (!session.Outside.Show.Print_Page(Page_On_Screen(session))) {
        session.Outside.Ask.Say("The GRAPHIC cannot be printed", session.Work.AppTitle, Icon::Critical);
    }
}

void Choose_Printer(Session& session) {
    session.Outside.Show.Choose_Printer();
}

void Save_Screen_As_Bmp(Session& session) {
    const std::string name =
        session.Outside.Ask.Input("File name without extension", "Save screen display as BMP",
                                  session.Work.Project.ProjectDir + session.Work.Project.ProjectName);
    if (name.empty()) return;
    const std::string path = (Folder_Of(name).empty() ? session.Work.Project.ProjectDir : "") + name + ".bmp";
    if (May_Replace(session, path)) Save_Page_As(session, path);
}

void Export_Picture(Session& session) {
    session.SavePicture.Open();
}

void Copy_Picture(Session& session) {
    PictureExport& pictures = session.SavePicture;
    const std::string reason = session.Outside.Show.Copy_Page(pictures.In_Sight(), pictures.Usual_Format());
    if (!reason.empty()) {
        session.Outside.Ask.Say("The picture cannot be copied: " + reason, session.Work.AppTitle,
                                Icon::Critical);
        return;
    }
    session.Work.Fields.Status = "The picture is on the clipboard";
    session.Outside.Show.Show_Fields();
}

namespace {

void Put_Out_Section(Session& session, SectionOutput output) {
    const PictureFormat format = session.SavePicture.Usual_Format();
    if (Scale_May_Change(session, Page::Section, format.Width_In_Millimetres(),
                         format.Height_In_Millimetres()))
        olectra_print(session.Work, session.Outside, output, format, session.Report.Shown());
}

}  // namespace

void Section_To_Metafile(Session& session) {
    Put_Out_Section(session, SectionOutput::Metafile);
}

void Section_To_Jpg(Session& session) {
    Put_Out_Section(session, SectionOutput::Jpg);
}

void Section_To_Clipboard(Session& session) {
    Put_Out_Section(session, SectionOutput::Clipboard);
}

void Choose_Font(Session& session) {
    session.Outside.Ask.Say("You can select fonts on", session.Work.AppTitle, Icon::Information);
    const auto font = session.Outside.Ask.Choose_Font(session.Work.Settings.FontName);
    if (!font) return;
    session.Work.Settings.FontName = *font;
    session.Outside.Show.Show_Fields();
    session.Outside.Show.Show_Curves();
}

void Choose_Velocity_Line_Colour(Session& session) {
    const auto colour = session.Outside.Ask.Choose_Colour(session.Work.Settings.VelocityLineColor);
    if (colour) session.Work.Settings.VelocityLineColor = *colour;
}

void Wide_Velocity_Line(Session& session) {
    Set_Line_Width(session, 2);
}

void Thin_Velocity_Line(Session& session) {
    Set_Line_Width(session, 1);
}

void One_Colour_A_Trace(Session& session) {
    Set_Colour_Choice(session, false);
}

void Colour_By_Velocity(Session& session) {
    Set_Colour_Choice(session, true);
}

void Use_Meters(Session& session) {
    Set_Units(session, "meters");
}

void Use_Feet(Session& session) {
    Set_Units(session, "feet");
}

}  // namespace tarnvik
