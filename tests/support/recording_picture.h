#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/ports/picture.h"

namespace tarnvik::test {

/// One verb as it was drawn, in world units (pixel points for polygons and polylines).
struct Drawn {
    enum class Verb { Line, Box, FilledBox, Circle, Arc, Point, Print, Polygon, Polyline };
    Verb What = Verb::Line;
    double X1 = 0;  ///< first point, centre, or place of a text
    double Y1 = 0;
    double X2 = 0;
    double Y2 = 0;
    double Radius = 0;
    double Start = 0;
    double End = 0;
    double Aspect = 1;
    Colour InColour = 0;
    std::string Text;
    std::vector<PixelPoint> Points;
    int Width = 1;
    int FontSize = 0;
    DrawMode Mode = DrawMode::Copy;
};

/// Picture that lists what is drawn on it. Clear empties the list, unless a clip keeps most of the picture. A
/// printed line of text is `LineHeight` world units high.
class RecordingPicture : public Picture {
  public:
    explicit RecordingPicture(double width = 960, double height = 500);

    void Scale(double left, double top, double right, double bottom) override;
    Frame Current_Frame() const override { return InForce; }
    void Clear() override;
    void Set_Clip(double x1, double y1, double x2, double y2) override;
    void Clear_Clip() override { Clipped.reset(); }
    void Keep_Background() override { Background = List.size(); }
    /// Takes off the list what was drawn on the background and lies wholly in the rectangle.
    bool Bring_Back(double x1, double y1, double x2, double y2) override;
    void Line(double x1, double y1, double x2, double y2, Colour colour) override;
    void Box(double x1, double y1, double x2, double y2, Colour colour, bool filled) override;
    void Circle(double x, double y, double radius, Colour colour) override;
    void Arc(double x, double y, double radius, Colour colour, double start, double end,
             double aspect) override;
    void Point(double x, double y, Colour colour) override;
    void Print(std::string_view text, Colour colour) override;
    void Polygon(std::span<const PixelPoint> points, Colour fill) override;
    void Polyline(std::span<const PixelPoint> points, Colour colour) override;
    void Move_To(double x, double y) override;
    double Pen_X() const override { return PenX; }
    double Pen_Y() const override { return PenY; }
    void Set_Draw_Mode(DrawMode mode) override { Mode = mode; }
    void Set_Draw_Width(int points) override { Width = points; }
    void Set_Font_Size(int points) override { FontSize = points; }
    void Set_Pointer(PointerShape shape) override { Pointer = shape; }
    void Set_Buffering(bool on) override { Buffering = on; }

    /// All entries of one verb, of one verb and colour, and all texts printed.
    std::vector<Drawn> Of(Drawn::Verb verb) const;
    std::vector<Drawn> Of(Drawn::Verb verb, Colour colour) const;
    std::vector<std::string> Texts() const;
    /// The entry that printed this text; null when nothing did.
    const Drawn* Printed(const std::string& text) const;
    bool Has_Line(double x1, double y1, double x2, double y2, Colour colour, double tolerance = 1e-6) const;

    std::vector<Drawn> List;
    PointerShape Pointer = PointerShape::Arrow;
    bool Buffering = true;
    int Clears = 0;
    struct Clip {
        double X1 = 0;
        double Y1 = 0;
        double X2 = 0;
        double Y2 = 0;
    };
    std::optional<Clip> Clipped;  ///< in force now
    std::vector<Clip> Clips;      ///< all that were set

  private:
    std::optional<std::size_t> Background;  ///< entries of the list that belong to it
    Drawn& Add(Drawn::Verb verb, double x1, double y1, Colour colour);
    Frame InForce;
    double PenX = 0;
    double PenY = 0;
    int Width = 1;
    int FontSize = 8;
    DrawMode Mode = DrawMode::Copy;
};

}  // namespace tarnvik::test
