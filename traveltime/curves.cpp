#include "traveltime/curves.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/text/letters.h"
#include "traveltime/curve_drawing.h"
#include "traveltime/curve_labels.h"
#include "traveltime/curve_overlays.h"
#include "traveltime/curve_selection.h"
#include "traveltime/rubber_band.h"
#include "traveltime/shot_grid.h"
#include "traveltime/velocity_ruler.h"

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
    style.LeadIn = view.LeadInStrokes;
    style.LastLabelled = view.LastLabelledShot;
    const bool labelled =
        Draw_Curve_On(ports.Show.Canvas_Of(Canvas::Dromo), project, workspace.Settings, shot, style);
    if (Second_Window_Open(workspace))
        Draw_Curve_On(ports.Show.Canvas_Of(Canvas::Dromo2), project, workspace.Settings, shot, style);
    if (labelled) view.LastLabelledShot = static_cast<std::int16_t>(shot);
}

/// All curves that are not left out, into the frame that stands, and over them fitted lines and numbers.
/// False when one of them could not be drawn.
bool Draw_All(Workspace& workspace, Ports& ports, CurveStyle style) {
    CurveView& view = workspace.Curves;
    const Project& project = workspace.Project;
    Picture& dromo = ports.Show.Canvas_Of(Canvas::Dromo);
    style.TimeFactor = view.TimeFactor;
    style.LineLength = project.LineLength;
    style.InColour = view.LastColour;
    style.Numbers = false;
    Keep_To_Window(style, view);
    bool all_drawn = true;
    for (int shot = 1; shot <= project.NbShots && !Is_Pattern(project); ++shot) {
        Shot_Colour(workspace, shot, style.InColour);
        view.LastColour = style.InColour;
        if (!Shot_Displayed(workspace, shot)) continue;
        CurveStyle own = style;
        if (Stands_Alone(view, shot)) own.InColour = Colour_Of_Shot_Alone(workspace);
        try {
            Draw_On_Screen(workspace, ports, project, shot, own);
        } catch (const Fault&) {
            all_drawn = false;
        }
    }
    view.Labels = Labels_Of_Curves(workspace, dromo);
    Draw_Over_Curves(dromo, workspace, view.Labels);
    if (Second_Window_Open(workspace)) {
        Picture& second = ports.Show.Canvas_Of(Canvas::Dromo2);
        view.Labels2 = Labels_Of_Curves(workspace, second);
        Draw_Over_Curves(second, workspace, view.Labels2);
    }
    Draw_Caught_Pick(dromo, workspace);
    return all_drawn;
}

/// The part of a picture across the line where numbers have come, gone or moved.
void Widen_By_Labels(CurveStrip& strip, const std::vector<CurveLabel>& before,
                     const std::vector<CurveLabel>& now) {
    const auto widen = [&strip](const std::vector<CurveLabel>& these, const std::vector<CurveLabel>& those) {
        for (const CurveLabel& label : these) {
            if (std::find(those.begin(), those.end(), label) != those.end()) continue;
            strip.X1 = std::min({strip.X1, label.X1, label.PointX});
            strip.X2 = std::max({strip.X2, label.X2, label.PointX});
        }
    };
    widen(before, now);
    widen(now, before);
}

/// World units that the circle of a pick, or the number beside it, takes across a picture.
double Room_For_Marks(const Picture& picture) {
    constexpr double pixels = 48;
    const Frame frame = picture.Current_Frame();
    return std::abs(frame.Right - frame.Left) * pixels / std::max(frame.Width, 1.0);
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
        Shot_Colour(workspace, shot, colour);
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
    Picture& dromo = ports.Show.Canvas_Of(Canvas::Dromo);
    workspace.Fields.Text1.clear();
    if (view.FrameDrawn == 2) {
        dromo.Clear();
        view.FrameDrawn = 0;
    }
    if (Second_Window_Open(workspace)) Clear_Canvas(ports, Canvas::Dromo2);
    dromo.Set_Pointer(PointerShape::Hourglass);
    view.DragStartX = 0;
    Unlight_Curve(workspace, ports);
    workspace.Mode.Display(DisplayMode::Dromo);
    Dessine_Cadre(workspace, ports);
    dromo.Set_Pointer(PointerShape::Hourglass);
    Fill_Shot_Grid(workspace);
    const bool all_drawn = Draw_All(workspace, ports, {});
    // Told once and not for each of up to 72 shots.
    if (!all_drawn) ports.Ask.Say(curve_fault, workspace.AppTitle, Icon::Critical);
    Show_Moving_Marks(workspace, ports);
    ports.Show.Show_Grids();
    dromo.Set_Pointer(PointerShape::Cross);
}

void Refresh_Curves(Workspace& workspace, Ports& ports, std::span<const PickPlace> picks) {
    CurveView& view = workspace.Curves;
    const Project& project = workspace.Project;
    if (view.FrameDrawn == 0 || picks.empty() || Is_Profile(workspace.Mode.On_Display())) return;
    const DisplayMode mode = workspace.Mode.Current();
    const bool plain = mode == DisplayMode::Dromo || mode == DisplayMode::Both;
    if (!plain || project.LineLength == 0 || Time_Factor(Latest_Pick(project)) != view.DrawnTimeFactor) {
        ports.Show.Show_Curves();
        return;
    }
    CurveStrip strip{2 * curve_picture_width, -curve_picture_width};
    for (const PickPlace pick : picks) {
        if (!project.ShotTimes.Has(pick.Shot, pick.Receiver) || pick.Receiver > project.NbReceivers) continue;
        const CurveStrip touched = Strip_Of_Pick(project, pick, workspace.Settings.ColorChoice);
        strip.X1 = std::min(strip.X1, touched.X1);
        strip.X2 = std::max(strip.X2, touched.X2);
    }
    if (strip.X1 > strip.X2) return;
    Unlight_Curve(workspace, ports);
    Widen_By_Labels(strip, view.Labels, Labels_Of_Curves(workspace, ports.Show.Canvas_Of(Canvas::Dromo)));
    if (Second_Window_Open(workspace)) {
        Widen_By_Labels(strip, view.Labels2,
                        Labels_Of_Curves(workspace, ports.Show.Canvas_Of(Canvas::Dromo2)));
    }

    // XOR lines over the strip are taken off meanwhile: half of one would stay for ever.
    const DrawnBand band = view.Band;
    if (band.Stands) Redraw_Band(workspace, ports, {});
    Erase_Velocity_Cross(workspace, ports);
    view.LastLabelledShot = 0;
    std::vector<Picture*> pictures{&ports.Show.Canvas_Of(Canvas::Dromo)};
    if (Second_Window_Open(workspace)) pictures.push_back(&ports.Show.Canvas_Of(Canvas::Dromo2));
    double room = 0;
    for (const Picture* picture : pictures)
        room = std::max(room, Room_For_Marks(*picture));
    for (Picture* picture : pictures) {
        picture->Set_Clip(strip.X1 - room, -curve_picture_height, strip.X2 + room, 2 * curve_picture_height);
        Draw_Frame_On(workspace, {*picture});
    }
    // What begins outside may reach in by as much.
    CurveStyle style;
    style.SeenFrom = strip.X1 - 2 * room;
    style.SeenTo = strip.X2 + 2 * room;
    Draw_All(workspace, ports, style);
    for (Picture* picture : pictures)
        picture->Clear_Clip();
    if (band.Stands) Redraw_Band(workspace, ports, band);
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
