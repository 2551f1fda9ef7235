#include "records/record_styles.h"

#include <algorithm>

#include "records/record_display.h"

namespace tarnvik {

namespace {

constexpr Colour area_blue = 0xFF8080;

/// False for a lobe too small to leave the axis: it has no area and most lobes of a quiet trace are such.
bool Leaves_Axis(std::span<const PixelPoint> lobe, int axis_pixel) {
    return std::any_of(lobe.begin(), lobe.end(),
                       [axis_pixel](const PixelPoint& point) { return point.X != axis_pixel; });
}

constexpr std::size_t Most_Fill_Points(int style) {
    switch (style) {
        case VariableArea:
            return 20000;
        case WiggleOnly:
            return 10000;
        case TwoColours:
            return 5001;
        default:
            return 900001;
    }
}

}  // namespace

TracePainter::TracePainter(int style, Picture& picture)
    : Style(style),
      Target(picture),
      FillPoints(Most_Fill_Points(style)),
      NegativePoints(5001),
      TracePoints(10001) {}

void TracePainter::Begin(int axis_pixel, bool dead) {
    AxisPixel = axis_pixel;
    Dead = dead;
    FillPoints.Empty();
    NegativePoints.Empty();
    TracePoints.Empty();
}

void TracePainter::Sample(double value, int x, int y) {
    LastY = y;
    if (Style == WiggleOnly) {
        FillPoints.Add(x, y);
        return;
    }
    if (Style < VariableArea || Style > AreaOnly) return;
    if (Style == VariableArea) TracePoints.Add(x, y);
    if (value > 0) {
        Close_Negative(y);
        if (FillPoints.Is_Empty()) FillPoints.Add(AxisPixel, y);
        FillPoints.Add(x, y);
        return;
    }
    Close_Positive(y);
    if (Style != TwoColours) return;
    if (value < 0) {
        if (NegativePoints.Is_Empty()) NegativePoints.Add(AxisPixel, y);
        NegativePoints.Add(x, y);
    } else {
        Close_Negative(y);
    }
}

void TracePainter::End() {
    if (Style == WiggleOnly) {
        Line_Through(FillPoints, Dead ? colours::Grey : colours::Black);
        return;
    }
    Close_Positive(LastY);
    Close_Negative(LastY);
    Line_Through(TracePoints, colours::Black);
}

void TracePainter::Close_Positive(int y) {
    if (FillPoints.Is_Empty()) return;
    FillPoints.Add(AxisPixel, y);
    const Colour live = Style == TwoColours ? colours::Red : area_blue;
    if (Leaves_Axis(FillPoints.All(), AxisPixel)) {
        Target.Polygon(FillPoints.All(), Dead ? colours::Grey : live);
    }
    FillPoints.Empty();
}

void TracePainter::Close_Negative(int y) {
    if (NegativePoints.Is_Empty()) return;
    NegativePoints.Add(AxisPixel, y);
    if (Leaves_Axis(NegativePoints.All(), AxisPixel)) {
        Target.Polygon(NegativePoints.All(), Dead ? colours::Grey : colours::Blue);
    }
    NegativePoints.Empty();
}

void TracePainter::Line_Through(PointList& points, Colour colour) {
    if (!points.Is_Empty()) Target.Polyline(points.All(), colour);
    points.Empty();
}

}  // namespace tarnvik
