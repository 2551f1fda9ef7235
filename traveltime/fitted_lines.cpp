#include "traveltime/fitted_lines.h"

#include <algorithm>
#include <cmath>

#include "core/fault.h"
#include "traveltime/curves.h"
#include "traveltime/shot_grid.h"

namespace tarnvik {

namespace {

constexpr int line_width = 2;

void Draw_One(Picture& picture, const FittedLine& line, double time_factor) {
    const Colour colour = Layer_Colour(line.Layer);
    const double y1 = Divide(line.T1, time_factor);
    const double y2 = Divide(line.T2, time_factor);
    picture.Set_Draw_Width(line_width);
    picture.Line(line.X1, y1, line.X2, y2, colour);
    if (line.ShotX) {
        // From the end that is nearer to the shot.
        if (std::abs(*line.ShotX - line.X1) < std::abs(*line.ShotX - line.X2)) {
            picture.Line(*line.ShotX, 0, line.X1, y1, colour);
        } else {
            picture.Line(line.X2, y2, *line.ShotX, 0, colour);
        }
    }
    picture.Set_Draw_Width(1);
}

}  // namespace

void Keep_Fitted_Line(Workspace& workspace, Ports& ports, const StretchVelocity& fitted, int shot, int layer,
                      std::optional<double> shot_x) {
    CurveView& view = workspace.Curves;
    const double at_shot = Shot_Position_Ecran(workspace.Project, shot);
    const auto left_of_shot = [at_shot](double x1, double x2) { return x1 + x2 < 2 * at_shot; };
    const bool left = left_of_shot(fitted.X1, fitted.X2);
    const auto replaced = std::erase_if(view.Fitted, [&](const FittedLine& line) {
        return line.Shot == shot && line.Layer == layer && left_of_shot(line.X1, line.X2) == left;
    });
    if (fitted.X1 != fitted.X2)
        view.Fitted.push_back({shot, layer, fitted.X1, fitted.T1, fitted.X2, fitted.T2, shot_x});
    if (replaced > 0 && view.FrameDrawn == 1) ports.Show.Repaint_Page(Page::Curves);
}

void Show_Fitted_Lines(Workspace& workspace, Ports& ports) {
    if (workspace.Curves.FrameDrawn == 0) return;
    Draw_Fitted_Lines(ports.Show.Canvas_Of(Canvas::Dromo), workspace.Curves);
    if (workspace.Curves.DoubleView == 1)
        Draw_Fitted_Lines(ports.Show.Canvas_Of(Canvas::Dromo2), workspace.Curves);
}

void Forget_Fitted_Lines(CurveView& view) {
    view.Fitted.clear();
}

void Draw_Fitted_Lines(Picture& picture, const CurveView& view) {
    for (const FittedLine& line : view.Fitted) {
        if (view.ShotAlone == 0 || Stands_Alone(view, line.Shot)) Draw_One(picture, line, view.TimeFactor);
    }
}

}  // namespace tarnvik
