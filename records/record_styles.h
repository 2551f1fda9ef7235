#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "core/ports/picture.h"

namespace tarnvik {

/// Points of a lobe or a trace up to a fixed number; a point more than that is left out.
class PointList {
  public:
    explicit PointList(std::size_t most) : Most(most) {}
    void Add(int x, int y) {
        if (Points.size() < Most) Points.push_back({x, y});
    }
    void Empty() { Points.clear(); }
    bool Is_Empty() const { return Points.empty(); }
    std::span<const PixelPoint> All() const { return Points; }

  private:
    std::size_t Most;
    std::vector<PixelPoint> Points;
};

/// Draws traces in one style, sample by sample in pixels: lobes (runs of samples on one side of the axis) as
/// filled polygons, the trace itself as a polyline. One object draws all traces of a record and reuses its
/// lists.
class TracePainter {
  public:
    /// `style` is the index of the list; one that has no drawing draws nothing.
    TracePainter(int style, Picture& picture);

    /// Starts a trace on the axis at `axis_pixel`.
    void Begin(int axis_pixel, bool dead);
    /// The next sample; `value` decides the side, `x` and `y` are its place.
    void Sample(double value, int x, int y);
    /// Closes what is open with a point on the axis and draws it.
    void End();

  private:
    void Close_Positive(int y);
    void Close_Negative(int y);
    void Line_Through(PointList& points, Colour colour);

    int Style;
    Picture& Target;
    PointList FillPoints;
    PointList NegativePoints;
    PointList TracePoints;
    int AxisPixel = 0;
    int LastY = 0;
    bool Dead = false;
};

}  // namespace tarnvik
