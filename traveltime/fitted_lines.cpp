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
    picture.Set_Draw_Width(line_width);
    for (const Mark& part : Marks_Of_Fitted_Line(line, time_factor))
        picture.Line(part.X1, part.Y1, part.X2, part.Y2, part.InColour);
    picture.Set_Draw_Width(1);
}

}  // namespace

std::vector<Mark> Marks_Of_Fitted_Line(const FittedLine& line, double time_factor) {
    Mark part{.X1 = line.X1,
              .Y1 = Divide(line.T1, time_factor),
              .X2 = line.X2,
              .Y2 = Divide(line.T2, time_factor),
              .InColour = Layer_Colour(line.Layer),
              .Width = line_width};
    std::vector<Mark> marks{part};
    if (!line.ShotX) return marks;
    // From the end that is nearer to the shot.
    if (std::abs(*line.ShotX - line.X1) < std::abs(*line.ShotX - line.X2)) {
        part.X2 = part.X1;
        part.Y2 = part.Y1;
        part.X1 = *line.ShotX;
        part.Y1 = 0;
    } else {
        part.X1 = part.X2;
        part.Y1 = part.Y2;
        part.X2 = *line.ShotX;
        part.Y2 = 0;
    }
    marks.push_back(part);
    return marks;
}

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
