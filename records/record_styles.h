#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "core/ports/picture.h"

namespace tarnvik {

/// The samples of one trace as pixels, in their order; one list serves all traces of a drawing.
class TracePoints {
  public:
    /// Empties the list, with room for `most` samples.
    void Start(std::size_t most) {
        if (Places.size() < most) {
            Places.resize(most);
            Sides.resize(most);
        }
        Used = 0;
    }
    /// The next sample: its place, and by the sign of its value the side of the axis that it lies on.
    void Add(double value, int x, int y) {
        Places[Used] = {x, y};
        Sides[Used] = static_cast<signed char>((value > 0) - (value < 0));
        ++Used;
    }
    std::span<const PixelPoint> All() const { return {Places.data(), Used}; }
    int Side(std::size_t i) const { return Sides[i]; }
    std::size_t Count() const { return Used; }

  private:
    std::vector<PixelPoint> Places;
    std::vector<signed char> Sides;
    std::size_t Used = 0;
};

/// Draws traces in one style: lobes (runs of samples on one side of the axis) as filled polygons, the trace
/// itself as a polyline. A lobe or a trace ends at a fixed number of points; those beyond are left out.
class TracePainter {
  public:
    /// `style` is the index of the list; one that has no drawing draws nothing.
    TracePainter(int style, Picture& picture) : Style(style), Target(picture) {}

    /// A trace whose axis stands at `axis_pixel`; dead ones are grey.
    void Draw(const TracePoints& trace, int axis_pixel, bool dead);

  private:
    void Lobe(const TracePoints& trace, std::size_t first, std::size_t end, int axis_pixel, Colour fill);
    void Lobes(const TracePoints& trace, int axis_pixel, int side, Colour fill);

    int Style;
    Picture& Target;
    std::vector<PixelPoint> Outline;
};

}  // namespace tarnvik
