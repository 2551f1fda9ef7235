#include "traveltime/velocity_ruler.h"

#include <algorithm>
#include <cmath>

#include "core/text/number.h"
#include "traveltime/curve_drawing.h"
#include "traveltime/rubber_band.h"

namespace tarnvik {

namespace {

enum RulerKey : int {
    PageUp = 33,
    PageDown = 34,
    Left = 37,
    Up = 38,
    Right = 39,
    Down = 40,
    Plus = 107,
    Minus = 109,
};

constexpr double widest_step = 32768;  // no end of the band could follow a wider one

/// True when the key is one of the ruler's.
bool Change_Ruler(CurveView& view, int key) {
    const double shift = view.RulerStep * 0.5;
    switch (key) {
        case Plus:
            view.RulerStep = std::min(view.RulerStep * 2, widest_step);
            return true;
        case Minus:
            view.RulerStep = std::max(view.RulerStep / 2, 1.0);
            return true;
        case PageDown:
            Store_If_It_Fits(view.DragEndY, view.DragEndY - view.RulerStep);
            return true;
        case PageUp:
            Store_If_It_Fits(view.DragEndY, view.DragEndY + view.RulerStep);
            return true;
        case Down:
            view.RulerY -= shift;
            return true;
        case Up:
            view.RulerY += shift;
            return true;
        case Left:
            view.RulerX -= shift;
            return true;
        case Right:
            view.RulerX += shift;
            return true;
        default:
            return false;
    }
}

/// The figure takes the time in ms without turning it into seconds: kept as the figure that users of the
/// ruler know.
double Ruler_Velocity(const Workspace& workspace) {
    const CurveView& view = workspace.Curves;
    const double distance =
        workspace.Project.LineLength * (view.DragEndX - view.DragStartX) / curve_picture_width;
    const double time = (view.DragEndY - view.DragStartY) * view.TimeFactor;
    return Rounded(std::abs(distance) / (std::abs(time) + 0.00001 / 1000));
}

void Draw_Cross(Picture& dromo, const DrawnCross& cross) {
    if (!cross.Stands) return;
    const double x = cross.X;
    const double y = cross.Y;
    dromo.Line(x, y, x - cross.HalfWidth, y + cross.Rise1, colours::Cyan);
    dromo.Line(x, y, x + cross.HalfWidth, y + cross.Rise2, colours::Cyan);
    dromo.Line(x, y, x, y + cross.Rise2, colours::White);
}

DrawnCross Cross_At(const Workspace& workspace, double x, double y) {
    const CurveView& view = workspace.Curves;
    if (view.CrossVelocity1 == 0 || view.CrossVelocity2 == 0 || view.PickFactor == 0) return {};
    const CurveWindow window = Visible_Window(view);
    const double half_width = (window.X2 - window.X1) * 0.25;
    const double distance = half_width * workspace.Project.LineLength / curve_picture_width;
    return {true,
            x,
            y,
            half_width,
            1000 * distance / view.CrossVelocity1 / view.PickFactor,
            1000 * distance / view.CrossVelocity2 / view.PickFactor};
}

/// Erases the cross that stands and draws another; unbuffered meanwhile.
void Redraw_Cross(Workspace& workspace, Ports& ports, const DrawnCross& cross) {
    Picture& dromo = ports.Show.Canvas_Of(Canvas::Dromo);
    dromo.Set_Buffering(false);
    dromo.Set_Draw_Mode(DrawMode::Xor);
    Draw_Cross(dromo, workspace.Curves.Cross);
    workspace.Curves.Cross = cross;
    Draw_Cross(dromo, cross);
    dromo.Set_Draw_Mode(DrawMode::Copy);
    dromo.Set_Buffering(true);
}

}  // namespace

void Velocity_Ruler(Workspace& workspace, Ports& ports) {
    CurveView& view = workspace.Curves;
    view.RulerShown = !view.RulerShown;
    if (view.RulerShown) {
        ports.Show.Open_Dialog(Dialog::vELINE, false);
    } else {
        ports.Show.Close_Dialog(Dialog::vELINE);
    }
    ports.Show.Canvas_Of(Canvas::Dromo).Set_Pointer(PointerShape::Cross);
}

void Velocity_Ruler_Key(Workspace& workspace, Ports& ports, int key) {
    CurveView& view = workspace.Curves;
    const DisplayMode mode = workspace.Mode.Current();
    if (mode != DisplayMode::Dromo && mode != DisplayMode::Vitesse2) return;
    if (view.DragStartX == 0 || !Change_Ruler(view, key)) return;
    Redraw_Band(workspace, ports,
                {true, view.DragStartX + view.RulerX, view.DragStartY + view.RulerY,
                 view.DragEndX + view.RulerX, view.DragEndY + view.RulerY, colours::Yellow});
    workspace.Fields.Text1 = Velocity_Text(workspace.Settings, Ruler_Velocity(workspace));
    ports.Show.Show_Fields();
}

void Move_Velocity_Cross(Workspace& workspace, Ports& ports, double x, double y) {
    Redraw_Cross(workspace, ports, Cross_At(workspace, x, y));
}

void Erase_Velocity_Cross(Workspace& workspace, Ports& ports) {
    if (workspace.Curves.Cross.Stands) Redraw_Cross(workspace, ports, {});
}

}  // namespace tarnvik
