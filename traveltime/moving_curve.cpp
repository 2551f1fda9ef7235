#include "traveltime/moving_curve.h"

#include <algorithm>
#include <cmath>

#include "core/text/number.h"
#include "traveltime/curve_axes.h"
#include "traveltime/curve_drawing.h"
#include "traveltime/curve_selection.h"

namespace tarnvik {

namespace {

constexpr int line_width = 2;
constexpr int dot_width = 2;

struct Spot {
    double X = 0;
    double Y = 0;
};

bool Can_Be_Drawn(const Workspace& workspace, const MovingCurve& curve) {
    const Project& line = workspace.Project;
    return curve.Shot >= 1 && curve.Shot <= line.NbShots && line.LineLength != 0 &&
           workspace.Curves.TimeFactor > 0 && line.ShotTimes.Has(curve.Shot, line.NbReceivers) &&
           line.ReceiverData.Has(ReceiverDistance, line.NbReceivers);
}

/// Its points in picture units, in the order of the receivers.
std::vector<Spot> Spots_Of(const Workspace& workspace, const MovingCurve& curve) {
    std::vector<Spot> spots;
    const Project& line = workspace.Project;
    for (int receiver = 1; receiver <= line.NbReceivers; ++receiver) {
        const auto y =
            Height_Of_Pick(line.ShotTimes(curve.Shot, receiver), workspace.Curves.TimeFactor, curve.Shift);
        if (y) spots.push_back({Position_Ecran(line, receiver), *y});
    }
    return spots;
}

/// Height of the curve at a place across the picture, and of its nearer end beyond them.
std::optional<double> Height_At(const std::vector<Spot>& spots, double x) {
    if (spots.empty()) return std::nullopt;
    if (x <= spots.front().X) return spots.front().Y;
    for (std::size_t place = 1; place < spots.size(); ++place) {
        const Spot& from = spots[place - 1];
        const Spot& to = spots[place];
        if (x > to.X || to.X == from.X) continue;
        return from.Y + (to.Y - from.Y) * (x - from.X) / (to.X - from.X);
    }
    return spots.back().Y;
}

}  // namespace

std::vector<std::optional<double>> Times_As_Drawn(const Workspace& workspace, const MovingCurve& curve) {
    std::vector<std::optional<double>> times;
    if (!Can_Be_Drawn(workspace, curve)) return times;
    const Project& line = workspace.Project;
    for (int receiver = 1; receiver <= line.NbReceivers; ++receiver) {
        const auto y =
            Height_Of_Pick(line.ShotTimes(curve.Shot, receiver), workspace.Curves.TimeFactor, curve.Shift);
        times.push_back(y ? std::optional(*y * workspace.Curves.TimeFactor) : std::nullopt);
    }
    return times;
}

std::vector<Mark> Marks_Of_Moving_Curve(const Workspace& workspace, const MovingCurve& curve) {
    std::vector<Mark> marks;
    if (!Can_Be_Drawn(workspace, curve)) return marks;
    std::optional<Spot> before;
    for (const Spot& spot : Spots_Of(workspace, curve)) {
        if (before) {
            marks.push_back({Mark::Kind::Line,
                             before->X,
                             before->Y,
                             spot.X,
                             spot.Y,
                             curve.InColour,
                             line_width,
                             false,
                             {}});
        }
        marks.push_back(
            {Mark::Kind::Dot, spot.X, spot.Y, spot.X, spot.Y, curve.InColour, dot_width, false, {}});
        before = spot;
    }
    if (before) {
        marks.push_back({Mark::Kind::Text, before->X - 1.5, before->Y + 4, 0, 0, curve.InColour, 1, false,
                         CStr(curve.Shot)});
    }
    return marks;
}

bool Lies_On_Moving_Curve(const Workspace& workspace, const Picture& dromo, const MovingCurve& curve,
                          double x, double y) {
    if (!Can_Be_Drawn(workspace, curve)) return false;
    const std::optional<double> height = Height_At(Spots_Of(workspace, curve), x);
    if (!height) return false;
    const Frame frame = dromo.Current_Frame();
    return std::abs(frame.To_Pixel_Y(*height) - frame.To_Pixel_Y(y)) <= Pointer_Reach(dromo);
}

}  // namespace tarnvik
