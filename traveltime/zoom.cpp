#include "traveltime/zoom.h"

#include <algorithm>

#include "core/text/number.h"
#include "traveltime/curve_drawing.h"

namespace tarnvik {

namespace {

constexpr double largest_factor = 96;  // one unit of the picture in sight

double Usable(double factor) {
    return factor > 0 ? std::min(factor, largest_factor) : 1;
}

void Set_Range(ScrollBar& bar, double extent, double factor) {
    bar.Min = 0;
    // Below 1 the range runs to the negative side: more than the picture is in sight.
    bar.Max = static_cast<int>(std::max(Rounded(extent - extent / factor), -32768.0));
    bar.Value =
        factor == 1 ? 0 : std::clamp(bar.Value, std::min(bar.Min, bar.Max), std::max(bar.Min, bar.Max));
}

std::string Range_Text(double from, const char* unit, double to) {
    const auto tenths = [](double value) { return CStr(Int(10 * value) / 10); };
    return tenths(from) + unit + " to " + tenths(to);
}

/// The status label takes its text from Distance_Range_Text and Time_Range_Text by itself.
void Show_Scrolled(Ports& ports) {
    ports.Show.Show_Curves();
    ports.Show.Show_Fields();
}

}  // namespace

void Set_Zoom(CurveView& view, double zoom_x, double zoom_y) {
    view.ZoomX = Usable(zoom_x);
    view.ZoomY = Usable(zoom_y);
    Set_Range(view.HScroll1, curve_picture_width, view.ZoomX);
    Set_Range(view.VScroll1, curve_picture_height, view.ZoomY);
}

bool Scroll_Bar_Shown(double factor) {
    return factor != 1;
}

std::string Distance_Range_Text(const Workspace& workspace) {
    if (workspace.Curves.ZoomX == 1) return {};
    const CurveWindow window = Visible_Window(workspace.Curves);
    const double scale = workspace.Project.LineLength / curve_picture_width;
    return Range_Text(window.X1 * scale, workspace.Settings.Metric() ? " m" : " f", window.X2 * scale);
}

std::string Time_Range_Text(const Workspace& workspace) {
    if (workspace.Curves.ZoomY == 1) return {};
    const CurveWindow window = Visible_Window(workspace.Curves);
    const double scale = workspace.Curves.TimeFactor;
    return Range_Text(window.Yv * scale, " ms", window.Yw * scale);
}

void HScroll1_Change(Workspace& workspace, Ports& ports, int value) {
    workspace.Curves.HScroll1.Value = value;
    Show_Scrolled(ports);
}

void VScroll1_Change(Workspace& workspace, Ports& ports, int value) {
    workspace.Curves.VScroll1.Value = value;
    Show_Scrolled(ports);
}

Zoom::Zoom(Workspace& workspace, Ports& ports)
    : Combo1(CStr(workspace.Curves.ZoomX)),
      Combo2(CStr(workspace.Curves.ZoomY)),
      Work(workspace),
      Outside(ports) {}

void Zoom::Command1() {
    Set_Zoom(Work.Curves, Val(Combo1), Val(Combo2));
    Outside.Show.Show_Curves();
}

}  // namespace tarnvik
