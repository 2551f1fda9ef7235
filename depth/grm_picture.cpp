#include "depth/grm_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "core/text/number.h"
#include "traveltime/curve_selection.h"

namespace tarnvik {

namespace {

constexpr double point_radius = 0.2;
constexpr int title_font = 12;
constexpr int text_font = 8;
constexpr int lit_width = 2;
constexpr int lit_dot = 3;

struct Spot {
    double X = 0;
    double Y = 0;
};

Spot Spot_Of(const Workspace& workspace, GrmPlace place) {
    const GrmPoint& point = workspace.Grm.Curves[place.Curve].Points[place.Point];
    return {Position_Ecran(workspace.Project, point.Receiver),
            Height_Of_Grm_Value(workspace, place.Curve, point.Value)};
}

/// World height of half a letter of the font in force, upwards on the device.
double Half_A_Letter(const Picture& picture) {
    const Frame frame = picture.Current_Frame();
    return (frame.To_World_Y(0) - frame.To_World_Y(picture.Size_Of("0").Height)) / 2;
}

void Draw_Curve(const Workspace& workspace, Picture& dromo, std::size_t curve) {
    const GrmCurve& own = workspace.Grm.Curves[curve];
    if (own.Points.empty()) return;
    const auto colour = Colour_Of_XY(own.XY);
    const double radius = point_radius / std::max(1.0, workspace.Curves.ZoomX);
    Spot before;
    Spot last;
    for (std::size_t point = 0; point < own.Points.size(); ++point) {
        last = Spot_Of(workspace, {curve, point});
        if (colour) {
            if (before.X > 0) dromo.Line(before.X, before.Y, last.X, last.Y, *colour);
            dromo.Circle(last.X, last.Y, radius, *colour);
            dromo.Circle(last.X, last.Y, radius / 2, *colour);  // filled
        }
        before = last;
    }
    constexpr double beside = 0.7;
    dromo.Print_At(last.X + beside, last.Y + Half_A_Letter(dromo), CStr(own.XY),
                   colour.value_or(colours::Black));
}

void Draw_Titles(const Workspace& workspace, Picture& dromo) {
    const bool velocity = workspace.Grm.Drawn == DisplayMode::GrmV;
    // The places count from the top of the picture, also where time 0 is there.
    const auto y = [&workspace](double height) {
        return workspace.Curves.ZeroOnTop ? curve_picture_height - height : height;
    };
    dromo.Set_Font_Size(title_font);
    dromo.Print_At(60, y(90), velocity ? "GRM Velocity function" : " GRM Time depth curves", colours::Black);
    dromo.Set_Font_Size(text_font);
    // One bracket too many is part of the title that users know.
    dromo.Print_At(60, y(85),
                   velocity ? " T(v)= (Tay - Tbx + Tab) / 2)" : " T(g)= (Tay + Tbx - (Tab + XY / Vref)) / 2",
                   colours::Black);
    dromo.Line(10, y(98), 30, y(98), colours::Black);
    dromo.Print_At(30, y(98) + Half_A_Letter(dromo), " XY= 0 " + workspace.Settings.Units, colours::Black);
}

}  // namespace

bool Grm_Picture_Stands(const Workspace& workspace) {
    return workspace.Grm.Drawn != DisplayMode::None && workspace.Mode.Held_By(Dialog::GRM);
}

std::optional<Colour> Colour_Of_XY(int xy) {
    constexpr std::array<Colour, 8> of_even = {255, 0xFF0000, 65280, 0xFF00FF, 0xFFFF00, 16512, 0, 0xFF8080};
    const int place = xy / 2 - 1;
    if (xy > 16 || place < 0) return std::nullopt;
    return of_even.at(static_cast<std::size_t>(place));
}

double Height_Of_Grm_Value(const Workspace& workspace, std::size_t curve, double value) {
    return workspace.Grm.CurveStep * static_cast<double>(curve) + value / workspace.Curves.TimeFactor;
}

void Draw_Grm_On(Workspace& workspace, const CurvePictures& pictures) {
    Draw_Frame_On(workspace, pictures);
    if (workspace.Project.LineLength == 0) return;
    pictures.Dromo.Set_Font_Size(text_font);
    for (std::size_t curve = 0; curve < workspace.Grm.Curves.size(); ++curve)
        Draw_Curve(workspace, pictures.Dromo, curve);
    Draw_Titles(workspace, pictures.Dromo);
}

std::optional<GrmPlace> Grm_Point_At(const Workspace& workspace, const Picture& dromo, double x, double y) {
    const Frame frame = dromo.Current_Frame();
    std::optional<GrmPlace> found;
    if (workspace.Project.LineLength == 0) return found;
    double nearest = Pointer_Reach(dromo);
    for (std::size_t curve = 0; curve < workspace.Grm.Curves.size(); ++curve) {
        if (!Colour_Of_XY(workspace.Grm.Curves[curve].XY)) continue;
        for (std::size_t point = 0; point < workspace.Grm.Curves[curve].Points.size(); ++point) {
            const Spot spot = Spot_Of(workspace, {curve, point});
            const double away = std::hypot(frame.To_Pixel_X(spot.X) - frame.To_Pixel_X(x),
                                           frame.To_Pixel_Y(spot.Y) - frame.To_Pixel_Y(y));
            if (away > nearest) continue;
            nearest = away;
            found = GrmPlace{curve, point};
        }
    }
    return found;
}

void Light_Grm_Point(const Workspace& workspace, Ports& ports, GrmPlace place) {
    const GrmCurve& curve = workspace.Grm.Curves[place.Curve];
    const Colour colour = Colour_Of_XY(curve.XY).value_or(colours::Black);
    std::vector<Mark> marks;
    for (std::size_t point = 1; point < curve.Points.size(); ++point) {
        const Spot from = Spot_Of(workspace, {place.Curve, point - 1});
        const Spot to = Spot_Of(workspace, {place.Curve, point});
        marks.push_back({Mark::Kind::Line, from.X, from.Y, to.X, to.Y, colour, lit_width, false, {}});
    }
    const Spot met = Spot_Of(workspace, place);
    marks.push_back({Mark::Kind::Dot, met.X, met.Y, met.X, met.Y, colours::Red, lit_dot, false, {}});
    ports.Show.Show_Marks(Canvas::Dromo, MarkLayer::Selection, std::move(marks));
}

void Unlight_Grm_Point(Ports& ports) {
    ports.Show.Show_Marks(Canvas::Dromo, MarkLayer::Selection, {});
}

std::string Text_Of_Grm_Point(const Workspace& workspace, GrmPlace place) {
    const GrmCurve& curve = workspace.Grm.Curves[place.Curve];
    const GrmPoint& point = curve.Points[place.Point];
    return "XY= " + CStr(curve.XY) + ", receiver " + CStr(point.Receiver) + ": " +
           (workspace.Grm.Drawn == DisplayMode::GrmV ? "Tv= " : "Tg= ") + Format(point.Value, "##0.00") +
           " ms";
}

}  // namespace tarnvik
