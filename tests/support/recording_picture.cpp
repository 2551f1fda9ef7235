#include "support/recording_picture.h"

#include <algorithm>
#include <cmath>

namespace tarnvik::test {

RecordingPicture::RecordingPicture(double width, double height) {
    InForce.Width = width;
    InForce.Height = height;
}

void RecordingPicture::Scale(double left, double top, double right, double bottom) {
    InForce.Left = left;
    InForce.Top = top;
    InForce.Right = right;
    InForce.Bottom = bottom;
}

void RecordingPicture::Clear() {
    if (!Clipped) List.clear();
    Background.reset();
    Move_To(0, 0);
    ++Clears;
}

void RecordingPicture::Set_Clip(double x1, double y1, double x2, double y2) {
    Clipped = Clip{x1, y1, x2, y2};
    Clips.push_back(*Clipped);
}

bool RecordingPicture::Bring_Back(double x1, double y1, double x2, double y2) {
    if (!Background) return false;
    const auto inside = [&](const Drawn& drawn) {
        return std::min(drawn.X1, drawn.X2) >= x1 && std::max(drawn.X1, drawn.X2) <= x2 &&
               std::min(drawn.Y1, drawn.Y2) >= y1 && std::max(drawn.Y1, drawn.Y2) <= y2;
    };
    const auto first = List.begin() + static_cast<std::ptrdiff_t>(*Background);
    List.erase(std::remove_if(first, List.end(), inside), List.end());
    return true;
}

Drawn& RecordingPicture::Add(Drawn::Verb verb, double x1, double y1, Colour colour) {
    Drawn drawn;
    drawn.What = verb;
    drawn.X1 = x1;
    drawn.Y1 = y1;
    drawn.InColour = colour;
    drawn.Width = Width;
    drawn.FontSize = FontSize;
    drawn.Mode = Mode;
    Move_To(x1, y1);
    List.push_back(drawn);
    return List.back();
}

void RecordingPicture::Line(double x1, double y1, double x2, double y2, Colour colour) {
    Drawn& line = Add(Drawn::Verb::Line, x1, y1, colour);
    line.X2 = x2;
    line.Y2 = y2;
    Move_To(x2, y2);
}

void RecordingPicture::Box(double x1, double y1, double x2, double y2, Colour colour, bool filled) {
    Drawn& box = Add(filled ? Drawn::Verb::FilledBox : Drawn::Verb::Box, x1, y1, colour);
    box.X2 = x2;
    box.Y2 = y2;
    Move_To(x2, y2);
}

void RecordingPicture::Circle(double x, double y, double radius, Colour colour) {
    Add(Drawn::Verb::Circle, x, y, colour).Radius = radius;
}

void RecordingPicture::Arc(double x, double y, double radius, Colour colour, double start, double end,
                           double aspect) {
    Drawn& arc = Add(Drawn::Verb::Arc, x, y, colour);
    arc.Radius = radius;
    arc.Start = start;
    arc.End = end;
    arc.Aspect = aspect;
}

void RecordingPicture::Point(double x, double y, Colour colour) {
    Add(Drawn::Verb::Point, x, y, colour);
}

void RecordingPicture::Print(std::string_view text, Colour colour) {
    Add(Drawn::Verb::Print, PenX, PenY, colour).Text = text;
}

void RecordingPicture::Polygon(std::span<const PixelPoint> points, Colour fill) {
    Add(Drawn::Verb::Polygon, PenX, PenY, fill).Points.assign(points.begin(), points.end());
}

void RecordingPicture::Polyline(std::span<const PixelPoint> points, Colour colour) {
    Add(Drawn::Verb::Polyline, PenX, PenY, colour).Points.assign(points.begin(), points.end());
}

void RecordingPicture::Move_To(double x, double y) {
    PenX = x;
    PenY = y;
}

std::vector<Drawn> RecordingPicture::Of(Drawn::Verb verb) const {
    std::vector<Drawn> found;
    for (const Drawn& drawn : List) {
        if (drawn.What == verb) found.push_back(drawn);
    }
    return found;
}

std::vector<Drawn> RecordingPicture::Of(Drawn::Verb verb, Colour colour) const {
    std::vector<Drawn> found;
    for (const Drawn& drawn : List) {
        if (drawn.What == verb && drawn.InColour == colour) found.push_back(drawn);
    }
    return found;
}

std::vector<std::string> RecordingPicture::Texts() const {
    std::vector<std::string> texts;
    for (const Drawn& drawn : List) {
        if (drawn.What == Drawn::Verb::Print) texts.push_back(drawn.Text);
    }
    return texts;
}

const Drawn* RecordingPicture::Printed(const std::string& text) const {
    for (const Drawn& drawn : List) {
        if (drawn.What == Drawn::Verb::Print && drawn.Text == text) return &drawn;
    }
    return nullptr;
}

bool RecordingPicture::Has_Line(double x1, double y1, double x2, double y2, Colour colour,
                                double tolerance) const {
    const auto near = [tolerance](double a, double b) { return std::abs(a - b) <= tolerance; };
    for (const Drawn& drawn : List) {
        if (drawn.What == Drawn::Verb::Line && drawn.InColour == colour && near(drawn.X1, x1) &&
            near(drawn.Y1, y1) && near(drawn.X2, x2) && near(drawn.Y2, y2)) {
            return true;
        }
    }
    return false;
}

}  // namespace tarnvik::test
