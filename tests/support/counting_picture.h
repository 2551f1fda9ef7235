#pragma once

#include "core/ports/picture.h"

namespace tarnvik::test {

/// Picture that only counts: for measuring the drawing routines and for feeding them with wild input.
class CountingPicture : public Picture {
  public:
    CountingPicture(double width, double height) {
        InForce.Width = width;
        InForce.Height = height;
    }
    void Scale(double left, double top, double right, double bottom) override {
        InForce = {left, top, right, bottom, InForce.Width, InForce.Height};
    }
    Frame Current_Frame() const override { return InForce; }
    void Clear() override {}
    void Line(double, double, double x2, double y2, Colour) override { Move_To(x2, y2); }
    void Box(double, double, double x2, double y2, Colour, bool) override { Move_To(x2, y2); }
    void Circle(double x, double y, double, Colour) override { Move_To(x, y); }
    void Arc(double x, double y, double, Colour, double, double, double) override { Move_To(x, y); }
    void Point(double x, double y, Colour) override { Move_To(x, y); }
    void Print(std::string_view text, Colour) override { Letters += text.size(); }
    void Polygon(std::span<const PixelPoint> points, Colour) override { Points += points.size(); }
    void Polyline(std::span<const PixelPoint> points, Colour) override { Points += points.size(); }
    void Move_To(double x, double y) override {
        PenX = x;
        PenY = y;
    }
    double Pen_X() const override { return PenX; }
    double Pen_Y() const override { return PenY; }
    void Set_Draw_Mode(DrawMode) override {}
    void Set_Draw_Width(int) override {}
    void Set_Font_Size(int) override {}
    void Set_Pointer(PointerShape) override {}
    void Set_Buffering(bool) override {}

    std::size_t Points = 0;   ///< of polygons and polylines
    std::size_t Letters = 0;  ///< bytes printed

  private:
    Frame InForce;
    double PenX = 0;
    double PenY = 0;
};

}  // namespace tarnvik::test
