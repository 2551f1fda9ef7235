#include "traveltime/curve_drawing.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "core/text/number.h"
#include "traveltime/curve_labels.h"
#include "traveltime/curve_overlays.h"
#include "traveltime/curves.h"
#include "traveltime/fitted_lines.h"
#include "traveltime/shot_grid.h"

namespace tarnvik {

namespace {

constexpr int shot_number_font = 9;
constexpr double point_radius = 0.3;
constexpr double caught_radius = 0.9;
constexpr double velocity_of_no_delay = 10000;  // two picks at the same time
constexpr double ms_per_second = 1000;

double Factor_Or_One(double factor) {
    return factor > 0 ? factor : 1;
}

/// The drawing of one curve: where its points lie and in which colour its segments stand.
class CurveDrawing {
  public:
    CurveDrawing(Picture& dromo, const Project& project, const Settings& settings, int shot,
                 const CurveStyle& style)
        : Dromo(dromo),
          Line(project),
          UserSettings(settings),
          Shot(shot),
          Style(style),
          InColour(style.InColour),
          Scale(Divide(curve_picture_width, style.LineLength)),
          // Places are compared as the receivers hold them, in single precision.
          ShotDistance(static_cast<float>(project.ShotDistance(shot))) {}

    bool Draw();

  private:
    float Time(int j) const { return Line.ShotTimes(Shot, j); }
    float Distance(int j) const { return Line.ReceiverData(ReceiverDistance, j); }
    bool Seen(double x1, double x2) const {
        return std::max(x1, x2) >= Style.SeenFrom && std::min(x1, x2) <= Style.SeenTo;
    }
    /// A stroke from the pen; out of sight the pen alone moves.
    void Stroke_To(double x, double y) {
        if (Seen(Dromo.Pen_X(), x)) {
            Dromo.Line_To(x, y, InColour);
        } else {
            Dromo.Move_To(x, y);
        }
    }
    double X(int j) const { return Distance(j) * Scale; }
    double Shot_X() const { return Line.ShotDistance(Shot) * Scale; }
    std::optional<double> Y(int j) const { return Height_Of_Pick(Time(j), Style.TimeFactor, Style.Shift); }
    void Take_Segment_Colour(int j);
    void Take_Velocity(double velocity) { InColour = Couleur_Vitesse(UserSettings, velocity); }
    void Draw_Point(int j);
    void Draw_Shot_Between(int j);
    void Print_Number(double x, double y);

    Picture& Dromo;
    const Project& Line;
    const Settings& UserSettings;
    int Shot;
    const CurveStyle& Style;
    Colour InColour;
    double Scale;
    float ShotDistance;
    bool PointDrawn = false;
    bool PenOnCurve = false;  ///< the next stroke begins where the pen is
    bool Numbered = false;
};

void CurveDrawing::Take_Segment_Colour(int j) {
    if (j == 1) {
        // The segment that rises from a shot at the first receiver.
        if (ShotDistance == Distance(1) && Time(1) > 0)
            Take_Velocity(static_cast<double>(Distance(1)) / Time(1) * ms_per_second);
        return;
    }
    for (int earlier = j - 1; earlier >= std::max(1, j - 3); --earlier) {
        if (Time(earlier) <= 0) continue;
        const double distance = std::abs(static_cast<double>(Distance(j)) - Distance(earlier));
        const double time = std::abs(static_cast<double>(Time(j)) - Time(earlier));
        Take_Velocity(time == 0 ? velocity_of_no_delay : distance / time * ms_per_second);
        return;
    }
}

void CurveDrawing::Draw_Point(int j) {
    const std::optional<double> y = Y(j);
    if (!y) return;
    if (Style.ByVelocity) Take_Segment_Colour(j);
    const double x = X(j);
    if (PenOnCurve) {
        Stroke_To(x, *y);
    } else {
        Dromo.Move_To(x, *y);
    }
    if (Seen(x, x)) Dromo.Circle(x, *y, point_radius / Factor_Or_One(Style.ZoomX), InColour);
    PointDrawn = PenOnCurve = true;
}

void CurveDrawing::Print_Number(double x, double y) {
    Numbered = true;
    if (!Style.Numbers || !Seen(x, x)) return;
    Dromo.Set_Font_Size(shot_number_font);
    Dromo.Point(x, y, colours::White);
    Dromo.Print(CStr(Shot), colours::Black);
}

void CurveDrawing::Draw_Shot_Between(int j) {
    const double xs = Shot_X();
    const double there_and_back = std::max(0.0, static_cast<double>(Time(j))) + std::max(0.0F, Time(j + 1));
    if (Style.ByVelocity && there_and_back != 0) {
        const double spacing = static_cast<double>(Distance(j + 1)) - Distance(j);
        Take_Velocity(spacing / there_and_back * ms_per_second);
    }
    // Before the first pick of the curve there is nothing to come down from.
    if (PointDrawn) Stroke_To(xs, 0);
    if (Seen(xs, xs)) Dromo.Line(xs, curve_picture_height, xs, 0, InColour);
    Print_Number(xs - 1, 4);
    Dromo.Move_To(xs, 0);
    PenOnCurve = true;
    if (const std::optional<double> y = Y(j + 1)) Stroke_To(X(j + 1), *y);
}

bool CurveDrawing::Draw() {
    const int receivers = Line.NbReceivers;
    Dromo.Move_To(0, 0);
    // A shot between the start of the line and its first receiver: its curve rises from there.
    PenOnCurve = Style.LeadIn || (receivers > 0 && ShotDistance >= 0 && ShotDistance <= Distance(1));
    for (int j = 1; j <= receivers; ++j) {
        if (j == 1 && ShotDistance == Distance(1)) {
            Print_Number(0, 4);
            Dromo.Move_To(0, 0);  // the first segment rises from the shot
        }
        Draw_Point(j);
        if (j == receivers) {
            if (PointDrawn && ShotDistance == Distance(j)) Stroke_To(curve_picture_width, 0);
        } else if (Distance(j) < ShotDistance && ShotDistance < Distance(j + 1)) {
            Draw_Shot_Between(j);
        }
    }
    if (!Style.Numbers || Numbered || Shot == Style.LastLabelled) return false;
    const double x = Dromo.Pen_X() - 1.5;
    const double y = Dromo.Pen_Y() + 4;
    if (Style.LabelOffsetShot) {
        Print_Number(x, y);
    } else if (Seen(x, x)) {
        Dromo.Point(x, y, colours::White);
    }
    return Style.LabelOffsetShot;
}

}  // namespace

std::optional<double> Height_Of_Pick(double time, double time_factor, double shift) {
    const double raw = time / time_factor;
    if (!(raw > 0)) return std::nullopt;  // a time below 0 is no pick
    double y = raw - shift;
    if (y < 0 && shift > 0) y = 0.5;  // stays visible on the axis
    return y > 0 ? std::optional(y) : std::nullopt;
}

bool Draw_Curve_On(Picture& dromo, const Project& project, const Settings& settings, int shot,
                   const CurveStyle& style) {
    return CurveDrawing(dromo, project, settings, shot, style).Draw();
}

void Draw_Over_Curves(Picture& picture, const Workspace& workspace, const std::vector<CurveLabel>& labels) {
    Draw_Standing_Overlays(picture, workspace.Curves);
    Draw_Fitted_Lines(picture, workspace.Curves);
    Draw_Labels(picture, labels);
}

void Draw_Caught_Pick(Picture& dromo, const Workspace& workspace) {
    const CurveView& view = workspace.Curves;
    const Project& project = workspace.Project;
    if (view.PickMoving == 0 || !project.ShotTimes.Has(view.PickShot, view.PickReceiver)) return;
    if (project.LineLength == 0) return;
    const double y = Divide(project.ShotTimes(view.PickShot, view.PickReceiver), view.TimeFactor);
    dromo.Set_Draw_Width(2);
    dromo.Circle(Position_Ecran(project, view.PickReceiver), y, caught_radius / Factor_Or_One(view.ZoomX),
                 colours::Red);
    dromo.Set_Draw_Width(1);
}

CurveStrip Strip_Of_Pick(const Project& project, PickPlace pick, bool by_velocity) {
    constexpr int colour_reach = 3;  // a segment's velocity comes from one of the three receivers before it
    const int receivers = project.NbReceivers;
    const auto picked = [&](int receiver) { return project.ShotTimes(pick.Shot, receiver) > 0; };
    // Without a pick before or behind, the curve's beginning or its end moves, with the number beside it.
    CurveStrip strip{-curve_picture_width, 2 * curve_picture_width};
    for (int r = pick.Receiver - 1; r >= 1; --r) {
        if (!picked(r)) continue;
        strip.X1 = Position_Ecran(project, r);
        break;
    }
    for (int r = pick.Receiver + 1; r <= receivers; ++r) {
        if (!picked(r)) continue;
        bool own_colour = !by_velocity;
        for (int earlier = r - colour_reach; earlier < r; ++earlier)
            own_colour |= r > pick.Receiver + colour_reach && earlier >= 1 && picked(earlier);
        if (!own_colour) continue;
        strip.X2 = Position_Ecran(project, r);
        break;
    }
    if (strip.X1 > strip.X2) std::swap(strip.X1, strip.X2);
    return strip;
}

void Keep_To_Window(CurveStyle& style, const CurveView& view) {
    constexpr double share = 0.06;  // room for points and for strokes that begin outside
    const CurveWindow window = Visible_Window(view);
    const double room = share * (window.X2 - window.X1);
    style.SeenFrom = std::max(style.SeenFrom, window.X1 - room);
    style.SeenTo = std::min(style.SeenTo, window.X2 + room);
}

bool Draw_Curves_On(Workspace& workspace, const CurvePictures& pictures) {
    Draw_Frame_On(workspace, pictures);
    CurveStyle style;
    style.TimeFactor = workspace.Curves.TimeFactor;
    style.LineLength = workspace.Project.LineLength;
    style.ZoomX = workspace.Curves.ZoomX;
    style.ByVelocity = workspace.Settings.ColorChoice;
    style.Numbers = false;
    Keep_To_Window(style, workspace.Curves);
    style.LeadIn = workspace.Curves.LeadInStrokes;
    bool all_drawn = true;
    for (int shot = 1; shot <= workspace.Project.NbShots; ++shot) {
        Shot_Colour(workspace, shot, style.InColour);
        if (!Shot_Displayed(workspace, shot)) continue;
        CurveStyle own = style;
        if (Stands_Alone(workspace.Curves, shot)) own.InColour = Colour_Of_Shot_Alone(workspace);
        try {
            Draw_Curve_On(pictures.Dromo, workspace.Project, workspace.Settings, shot, own);
        } catch (const Fault&) {
            all_drawn = false;
        }
    }
    Draw_Over_Curves(pictures.Dromo, workspace, Labels_Of_Curves(workspace, pictures.Dromo));
    if (pictures.OnPaper) Draw_Moving_Overlays(pictures.Dromo, workspace.Curves);
    return all_drawn;
}

}  // namespace tarnvik
