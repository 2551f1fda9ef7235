#include "traveltime/curve_selection.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "core/text/number.h"
#include "traveltime/curve_axes.h"
#include "traveltime/curves.h"
#include "traveltime/shot_grid.h"

namespace tarnvik {

namespace {

constexpr double usual_letter = 14;  // pixels high on a screen of usual density
constexpr double reach_on_usual_screen = 8;
constexpr int lit_width = 2;
constexpr double none_so_far = 1e30;

struct Spot {
    double X = 0;
    double Y = 0;
};

/// Distance of a spot from a stretch, pixels.
double Distance_To(Spot spot, Spot from, Spot to) {
    const double dx = to.X - from.X;
    const double dy = to.Y - from.Y;
    const double length = dx * dx + dy * dy;
    const double along = length == 0 ? 0 : ((spot.X - from.X) * dx + (spot.Y - from.Y) * dy) / length;
    const double part = std::clamp(along, 0.0, 1.0);
    return std::hypot(from.X + part * dx - spot.X, from.Y + part * dy - spot.Y);
}

/// The points of a shot's curve, its foot among them, which has receiver 0.
template <class Visit>
void Each_Point(const Workspace& workspace, int shot, Visit visit) {
    const Project& line = workspace.Project;
    const double foot = Shot_Position_Ecran(line, shot);
    bool foot_told = false;
    const int receivers = std::min<int>(line.NbReceivers, line.ShotTimes.Last_Column());
    const auto first = static_cast<double>(Position_Ecran(line, 1));
    const double last = Position_Ecran(line, receivers);
    const bool on_line = foot >= first && foot <= last;
    for (int receiver = 1; receiver <= receivers; ++receiver) {
        const double x = Position_Ecran(line, receiver);
        if (on_line && !foot_told && (foot < x || (foot == x && receiver == 1))) {
            foot_told = true;
            visit(0, foot, 0.0);
        }
        const double time = line.ShotTimes(shot, receiver);
        if (time > 0) visit(receiver, x, time / workspace.Curves.TimeFactor);
    }
    if (on_line && !foot_told) visit(0, foot, 0.0);
}

bool Can_Be_Searched(const Workspace& workspace) {
    const Project& line = workspace.Project;
    return line.LineLength != 0 && line.NbReceivers > 0 && workspace.Curves.TimeFactor > 0 &&
           line.ReceiverData.Has(ReceiverDistance, line.NbReceivers) && workspace.Curves.FrameDrawn != 0;
}

std::vector<Mark> Marks_Of(const Workspace& workspace, PickPlace lit) {
    std::vector<Mark> marks;
    Colour colour = 0;
    for (int shot = 1; shot <= lit.Shot; ++shot)
        Shot_Colour(workspace, shot, colour);
    if (Stands_Alone(workspace.Curves, lit.Shot)) colour = Colour_Of_Shot_Alone(workspace);
    std::optional<Spot> before;
    Mark dot;
    dot.Shape = Mark::Kind::Dot;
    dot.InColour = colour;
    dot.Width = 3;
    Each_Point(workspace, lit.Shot, [&](int receiver, double x, double y) {
        if (before) {
            marks.push_back({Mark::Kind::Line, before->X, before->Y, x, y, colour, lit_width, false, {}});
        }
        before = Spot{x, y};
        if (receiver != lit.Receiver) return;
        dot.X1 = x;
        dot.Y1 = y;
    });
    marks.push_back(dot);
    return marks;
}

}  // namespace

std::optional<PickPlace> Curve_At(const Workspace& workspace, const Frame& frame, double x, double y,
                                  double reach, int preferred) {
    if (!Can_Be_Searched(workspace)) return std::nullopt;
    const Spot pointer{frame.To_Pixel_X(x), frame.To_Pixel_Y(y)};
    std::optional<PickPlace> found;
    double nearest = none_so_far;
    const int shots = std::min<int>(workspace.Project.NbShots, workspace.Project.ShotTimes.Last_Row());
    for (int shot = 1; shot <= shots; ++shot) {
        if (!Shot_Displayed(workspace, shot)) continue;
        std::optional<std::pair<int, Spot>> before;
        double away = none_so_far;
        int receiver_met = 0;
        double pick_away = none_so_far;
        Each_Point(workspace, shot, [&](int receiver, double at_x, double at_y) {
            const Spot spot{frame.To_Pixel_X(at_x), frame.To_Pixel_Y(at_y)};
            away = std::min(away, Distance_To(pointer, before ? before->second : spot, spot));
            before = {receiver, spot};
            const double apart = std::hypot(spot.X - pointer.X, spot.Y - pointer.Y);
            if (receiver == 0 || apart >= pick_away) return;
            pick_away = apart;
            receiver_met = receiver;
        });
        // Within reach the preferred one needs not be the nearest.
        const double counted = shot == preferred && away <= reach ? -1 : away;
        if (receiver_met == 0 || away > reach || counted >= nearest) continue;
        nearest = counted;
        found = PickPlace{shot, receiver_met};
    }
    return found;
}

double Pointer_Reach(const Picture& picture) {
    return reach_on_usual_screen * std::max(1.0, picture.Size_Of("0").Height / usual_letter);
}

void Light_Curve(Workspace& workspace, Ports& ports, double x, double y) {
    const Picture& dromo = ports.Show.Canvas_Of(Canvas::Dromo);
    const PickPlace lit =
        Curve_At(workspace, dromo.Current_Frame(), x, y, Pointer_Reach(dromo)).value_or(PickPlace{});
    if (lit == workspace.Curves.Lit) return;
    workspace.Curves.Lit = lit;
    ports.Show.Show_Marks(Canvas::Dromo, MarkLayer::Selection,
                          lit.Shot == 0 ? std::vector<Mark>{} : Marks_Of(workspace, lit));
}

void Unlight_Curve(Workspace& workspace, Ports& ports) {
    if (workspace.Curves.Lit.Shot == 0) return;
    workspace.Curves.Lit = {};
    ports.Show.Show_Marks(Canvas::Dromo, MarkLayer::Selection, {});
}

std::string Lit_Text(const Workspace& workspace) {
    const PickPlace lit = workspace.Curves.Lit;
    if (lit.Shot < 1 || !workspace.Project.ShotTimes.Has(lit.Shot, lit.Receiver)) return {};
    const double time = workspace.Project.ShotTimes(lit.Shot, lit.Receiver);
    return "Shot " + CStr(lit.Shot) + ", receiver " + CStr(lit.Receiver) + ": " + Format(time, "##0.00") +
           " ms";
}

int Nearest_Receiver(const Project& project, double x) {
    int nearest = 0;
    double apart = none_so_far;
    for (int receiver = 1; receiver <= project.NbReceivers; ++receiver) {
        const double distance = std::abs(Position_Ecran(project, receiver) - x);
        if (distance >= apart) continue;
        apart = distance;
        nearest = receiver;
    }
    return nearest;
}

}  // namespace tarnvik
