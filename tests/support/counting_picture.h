#pragma once

#include "core/ports/silent_picture.h"

namespace tarnvik::test {

/// Picture that only counts: for measuring the drawing routines and for feeding them with wild input.
class CountingPicture : public SilentPicture {
  public:
    using SilentPicture::SilentPicture;
    void Print(std::string_view text, Colour) override { Letters += text.size(); }
    void Polygon(std::span<const PixelPoint> points, Colour) override { Points += points.size(); }
    void Polyline(std::span<const PixelPoint> points, Colour) override { Points += points.size(); }

    std::size_t Points = 0;   ///< of polygons and polylines
    std::size_t Letters = 0;  ///< bytes printed
};

}  // namespace tarnvik::test
