#pragma once

#include "core/ports/picture.h"

namespace tarnvik {

/// Picture that shows nothing: for runs without a screen. It keeps its scale, its size and its pen, so that
/// drawing routines do the same work as on any other.
class SilentPicture : public Picture {
  public:
    SilentPicture() : SilentPicture(960, 500) {}
    SilentPicture(double width, double height) {
        InForce.Width = width;
        InForce.Height = height;
    }

    void Scale(double left, double top, double right, double bottom) override {
        InForce.Left = left;
        InForce.Top = top;
        InForce.Right = right;
        InForce.Bottom = bottom;
    }
    Frame Current_Frame() const override { return InForce; }
    void Set_Clip(double, double, double, double) override {}
    void Clear_Clip() override {}
    void Clear() override {
        Move_To(0, 0);
        BackgroundKept = false;
    }
    void Keep_Background() override { BackgroundKept = true; }
    bool Bring_Back(double, double, double, double) override { return BackgroundKept; }
    void Line(double, double, double x2, double y2, Colour) override { Move_To(x2, y2); }
    void Box(double, double, double x2, double y2, Colour, bool) override { Move_To(x2, y2); }
    void Circle(double x, double y, double, Colour) override { Move_To(x, y); }
    void Arc(double x, double y, double, Colour, double, double, double) override { Move_To(x, y); }
    void Point(double x, double y, Colour) override { Move_To(x, y); }
    void Print(std::string_view, Colour) override {}
    void Polygon(std::span<const PixelPoint>, Colour) override {}
    void Polyline(std::span<const PixelPoint>, Colour) override {}
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

  private:
    Frame InForce;
    bool BackgroundKept = false;
    double PenX = 0;
    double PenY = 0;
};

}  // namespace tarnvik
