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
void Show_Scrolled(Workspace& workspace, Ports& ports) {
    // What stands is only painted anew: a look at another part asks and fills nothing.
    if (workspace.Curves.FrameDrawn == 1) {
        ports.Show.Repaint_Page(Page::Curves);
    } else {
        ports.Show.Show_Curves();
    }
    ports.Show.Show_Fields();
}

/// What the window's edge has beyond the whole number of its bar, which at its end stands for the very end.
double Part_At(const ScrollBar& bar, double extent, double factor) {
    return bar.Value >= bar.Max ? extent - extent / factor - bar.Value : 0;
}

/// Puts an edge of the window where it is wanted, as far as the picture reaches.
void Place_Edge(ScrollBar& bar, double& part, double wanted, double extent, double factor) {
    const double edge = std::clamp(wanted, 0.0, std::max(0.0, extent - extent / factor));
    bar.Value = std::min(static_cast<int>(Int(edge)), bar.Max);
    part = edge - bar.Value;
}

double Within_Gestures(double factor) {
    constexpr double largest_by_gesture = 20;
    constexpr double nearly_whole = 1.02;
    const double wanted = std::clamp(factor, 1.0, largest_by_gesture);
    return wanted < nearly_whole ? 1 : wanted;
}

}  // namespace

void Set_Zoom(CurveView& view, double zoom_x, double zoom_y) {
    view.ZoomX = Usable(zoom_x);
    view.ZoomY = Usable(zoom_y);
    Set_Range(view.HScroll1, curve_picture_width, view.ZoomX);
    Set_Range(view.VScroll1, curve_picture_height, view.ZoomY);
    view.ExactWindow = false;
    view.PartX = view.PartY = 0;
}

void Enlarge_At(CurveView& view, double x, double y, double more_x, double more_y) {
    const CurveWindow window = Visible_Window(view);
    const double zoom_x = Within_Gestures(view.ZoomX * more_x);
    const double zoom_y = Within_Gestures(view.ZoomY * more_y);
    // What is under the pointer keeps its share of the window.
    const double left = x - (x - window.X1) / (window.X2 - window.X1) * curve_picture_width / zoom_x;
    const double earliest = y - (y - window.Yv) / (window.Yw - window.Yv) * curve_picture_height / zoom_y;
    Set_Zoom(view, zoom_x, zoom_y);
    view.ExactWindow = true;
    Place_Edge(view.HScroll1, view.PartX, left, curve_picture_width, zoom_x);
    Place_Edge(view.VScroll1, view.PartY, earliest, curve_picture_height, zoom_y);
}

void Pan(CurveView& view, double across, double later) {
    const CurveWindow window = Visible_Window(view);
    view.ExactWindow = true;
    if (view.ZoomX > 1)
        Place_Edge(view.HScroll1, view.PartX, window.X1 + across, curve_picture_width, view.ZoomX);
    if (view.ZoomY > 1)
        Place_Edge(view.VScroll1, view.PartY, window.Yv + later, curve_picture_height, view.ZoomY);
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
    CurveView& view = workspace.Curves;
    view.HScroll1.Value = value;
    view.PartX = Part_At(view.HScroll1, curve_picture_width, view.ZoomX);
    Show_Scrolled(workspace, ports);
}

void VScroll1_Change(Workspace& workspace, Ports& ports, int value) {
    CurveView& view = workspace.Curves;
    view.VScroll1.Value = value;
    view.PartY = Part_At(view.VScroll1, curve_picture_height, view.ZoomY);
    Show_Scrolled(workspace, ports);
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
