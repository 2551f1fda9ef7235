#pragma once

#include <QImage>
#include <QRect>
#include <span>

#include "core/ports/picture.h"

namespace tarnvik {

// The two figures that a field record is made of, straight into the pixels of an image. A record of 120
// traces has hundreds of thousands of points; a general painter takes several times as long for them.

/// Where figures are drawn: an opaque 32-bit image, the place of the point (0, 0) in it, and what may be
/// drawn on.
struct PixelPaper {
    QImage* Image = nullptr;
    int Left = 0;
    int Top = 0;
    QRect Clip;
};

/// True for a lobe: it runs from an axis downwards and comes back to the same axis.
bool Is_Lobe(std::span<const PixelPoint> points);

/// Fills a lobe from its axis to its points, row by row.
void Fill_Lobe(const PixelPaper& paper, std::span<const PixelPoint> lobe, QRgb colour);

/// A line one pixel wide through points, its slanting parts smoothed over two pixels.
void Draw_Thin_Line(const PixelPaper& paper, std::span<const PixelPoint> points, QRgb colour);

}  // namespace tarnvik
