#include "traveltime/rubber_band.h"

#include <algorithm>
#include <cmath>

#include "core/text/number.h"

namespace tarnvik {

namespace {

constexpr double ms_per_second = 1000;

void Draw_Band(Picture& dromo, const DrawnBand& band) {
    if (band.Stands) dromo.Line(band.X1, band.Y1, band.X2, band.Y2, band.InColour);
}

}  // namespace

std::optional<double> Band_Velocity(double down_distance, double down_time, double distance, double time) {
    const double dt = std::abs(down_time - time) / ms_per_second;
    if (dt == 0) return std::nullopt;
    return Int(std::abs(distance - down_distance) / dt);
}

std::string Velocity_Text(const Settings& settings, double velocity) {
    return "Velocity= " + CStr(velocity) + (settings.Metric() ? " m/s" : " f/s");
}

void Tell_Band_Velocity(Workspace& workspace) {
    const CurveView& view = workspace.Curves;
    const auto velocity = Band_Velocity(view.DownDistance, view.DownTime, view.MouseDistance, view.MouseTime);
    if (velocity) workspace.Fields.Text1 = Velocity_Text(workspace.Settings, *velocity);
}

void Redraw_Band(Workspace& workspace, Ports& ports, const DrawnBand& band) {
    Picture& dromo = ports.Show.Canvas_Of(Canvas::Dromo);
    dromo.Set_Buffering(false);
    dromo.Set_Draw_Mode(DrawMode::Xor);
    dromo.Set_Draw_Width(std::max<int>(1, workspace.Settings.VelocityLineWidth));
    Draw_Band(dromo, workspace.Curves.Band);
    workspace.Curves.Band = band;
    Draw_Band(dromo, band);
    dromo.Set_Draw_Width(1);
    dromo.Set_Draw_Mode(DrawMode::Copy);
    dromo.Set_Buffering(true);
}

void RubberBand::Start(const PointerEvent& press) {
    CurveView& view = Work.Curves;
    if (!Store_If_It_Fits(view.DragStartX, press.X)) view.DragStartX = 0;
    Store_If_It_Fits(view.DragStartY, press.Y);
    view.DragEndX = view.DragStartX;
    view.DragEndY = view.DragStartY;
    view.RulerX = 0;
    view.RulerY = 0;
    view.Band = {};
}

void RubberBand::Update(const PointerEvent& move) {
    CurveView& view = Work.Curves;
    if (!Is_Open()) return;
    Store_If_It_Fits(view.DragEndX, move.X);
    Store_If_It_Fits(view.DragEndY, move.Y);
    // The line follows the pointer itself, its whole-number ends would be off by many pixels.
    Redraw_Band(Work, Outside,
                {true, view.DownX, view.DownY, move.X, move.Y, Work.Settings.VelocityLineColor});
}

void RubberBand::End(const PointerEvent& release, bool fixed) {
    CurveView& view = Work.Curves;
    if (!Is_Open()) return;
    Store_If_It_Fits(view.DragEndX, release.X);
    Store_If_It_Fits(view.DragEndY, release.Y);
    if (!fixed || !view.Band.Stands) return;
    const DrawnBand line = view.Band;
    Redraw_Band(Work, Outside, {});
    Picture& dromo = Outside.Show.Canvas_Of(Canvas::Dromo);
    dromo.Set_Draw_Width(std::max<int>(1, Work.Settings.VelocityLineWidth));
    Draw_Band(dromo, line);
    dromo.Set_Draw_Width(1);
}

void RubberBand::Close() {
    Work.Curves.DragStartX = 0;
    Work.Curves.Band = {};
}

}  // namespace tarnvik
