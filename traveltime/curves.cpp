#include "traveltime/curves.h"

#include "core/files.h"
#include "core/project_open.h"
#include "core/text/letters.h"
#include "traveltime/curve_drawing.h"
#include "traveltime/shot_grid.h"

namespace tarnvik {

namespace {

constexpr const char* curve_fault = "TV5 File  error";

CurvePictures Main_Pictures(Ports& ports) {
    return {ports.Show.Canvas_Of(Canvas::Dromo), &ports.Show.Canvas_Of(Canvas::EchelleX),
            &ports.Show.Canvas_Of(Canvas::EchelleY)};
}

bool Second_Window_Open(const Workspace& workspace) {
    return workspace.Curves.DoubleView == 1;
}

bool Is_Pattern(const Project& project) {
    return UCase(project.CurrentFile) == "*.TV5";
}

/// A curve of any project into the frames that stand, in the main picture and the second window.
void Draw_On_Screen(Workspace& workspace, Ports& ports, const Project& project, int shot, CurveStyle style) {
    CurveView& view = workspace.Curves;
    style.ZoomX = view.ZoomX;
    style.ByVelocity = workspace.Settings.ColorChoice;
    style.LastLabelled = view.LastLabelledShot;
    const bool labelled =
        Draw_Curve_On(ports.Show.Canvas_Of(Canvas::Dromo), project, workspace.Settings, shot, style);
    if (Second_Window_Open(workspace))
        Draw_Curve_On(ports.Show.Canvas_Of(Canvas::Dromo2), project, workspace.Settings, shot, style);
    if (labelled) view.LastLabelledShot = static_cast<std::int16_t>(shot);
}

void Clear_Canvas(Ports& ports, Canvas canvas) {
    ports.Show.Canvas_Of(canvas).Clear();
}

}  // namespace

void Dessine_Cadre(Workspace& workspace, Ports& ports) {
    Draw_Frame_On(workspace, Main_Pictures(ports));
    ports.Show.Canvas_Of(Canvas::Dromo).Set_Pointer(PointerShape::Cross);
    workspace.Curves.FrameDrawn = 1;
    // The numbers, the band and the cross went with the old picture.
    workspace.Curves.LastLabelledShot = 0;
    workspace.Curves.Band = {};
    workspace.Curves.Cross = {};
    if (Second_Window_Open(workspace)) Draw_Frame_On(workspace, {ports.Show.Canvas_Of(Canvas::Dromo2)});
}

void Dessine_Tir(Workspace& workspace, Ports& ports, int shot, Colour& colour, double shift,
                 double time_factor, double line_length) {
    const Project& project = workspace.Project;
    if (Is_Pattern(project)) return;
    if (shot < 1 || shot > project.NbShots) {
        ports.Ask.Say("Wrong Shot number", workspace.AppTitle, Icon::Critical);
        return;
    }
    if (workspace.Curves.FrameDrawn == 0) Dessine_Cadre(workspace, ports);
    if (colour == 0) {
        colour = workspace.Curves.LastColour;
        Couleur_Tir(project, shot, colour);
    }
    workspace.Curves.LastColour = colour;
    CurveStyle style;
    style.InColour = colour;
    style.LabelOffsetShot = workspace.Mode.Current() == DisplayMode::Dromo;
    style.Shift = shift;
    style.TimeFactor = time_factor == 0 ? 1 : time_factor;
    style.LineLength = line_length;
    try {
        Draw_On_Screen(workspace, ports, project, shot, style);
    } catch (const Fault&) {
        ports.Ask.Say(curve_fault, workspace.AppTitle, Icon::Critical);
    }
}

void Show_Curves(Workspace& workspace, Ports& ports) {
    CurveView& view = workspace.Curves;
    const Project& project = workspace.Project;
    Picture& dromo = ports.Show.Canvas_Of(Canvas::Dromo);
    workspace.Fields.Text1.clear();
    if (view.FrameDrawn == 2) {
        dromo.Clear();
        view.FrameDrawn = 0;
    }
    if (Second_Window_Open(workspace)) Clear_Canvas(ports, Canvas::Dromo2);
    dromo.Set_Pointer(PointerShape::Hourglass);
    view.DragStartX = 0;
    workspace.Mode.Display(DisplayMode::Dromo);
    Dessine_Cadre(workspace, ports);
    dromo.Set_Pointer(PointerShape::Hourglass);
    if (project.NbShots == 0 && File_Exists(project.CurrentFile)) {
        Read_Project(workspace, std::string(project.CurrentFile));
        Dessine_Cadre(workspace, ports);
    }
    Fill_Shot_Grid(workspace);

    CurveStyle style;
    style.TimeFactor = view.TimeFactor;
    style.LineLength = project.LineLength;
    style.InColour = view.LastColour;
    style.LabelOffsetShot = true;
    bool all_drawn = true;
    for (int shot = 1; shot <= project.NbShots && !Is_Pattern(project); ++shot) {
        workspace.Grids.Grille_Shot.CurrentRow = shot - 1;
        workspace.Grids.Grille_Shot.CurrentColumn = 0;
        if (!Shot_Displayed(workspace, shot)) continue;
        Couleur_Tir(project, shot, style.InColour);
        view.LastColour = style.InColour;
        try {
            Draw_On_Screen(workspace, ports, project, shot, style);
        } catch (const Fault&) {
            all_drawn = false;
        }
    }
    // Told once and not for each of up to 72 shots.
    if (!all_drawn) ports.Ask.Say(curve_fault, workspace.AppTitle, Icon::Critical);
    ports.Show.Show_Grids();
    dromo.Set_Pointer(PointerShape::Cross);
}

void Superpose(Workspace& workspace, Ports& ports, const Project& other) {
    if (workspace.Curves.FrameDrawn == 0) Dessine_Cadre(workspace, ports);
    CurveStyle style;
    style.TimeFactor = workspace.Curves.TimeFactor;
    style.LineLength = other.LineLength;
    style.LabelOffsetShot = workspace.Mode.Current() == DisplayMode::Dromo;
    workspace.Curves.LastLabelledShot = 0;  // its shot numbers are another line's
    try {
        for (int shot = 1; shot <= other.NbShots; ++shot) {
            Couleur_Tir(other, shot, style.InColour);
            Draw_On_Screen(workspace, ports, other, shot, style);
        }
    } catch (const Fault&) {
        ports.Ask.Say(curve_fault, workspace.AppTitle, Icon::Critical);
    }
}

}  // namespace tarnvik
