#include "ui/painting/pixel_figures.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace tarnvik {

namespace {

// Places between pixels in 16 binary digits behind the point.
constexpr int fraction_bits = 16;
constexpr std::int64_t whole = std::int64_t{1} << fraction_bits;
constexpr std::uint32_t opaque = 256;

/// A sample of a huge gain may lie anywhere; far outside the picture its exact place is of no matter.
int Near(int pixel) {
    constexpr int far_pixel = 1 << 20;
    return std::clamp(pixel, -far_pixel, far_pixel);
}

// The four channels of a pixel in 16 bits each, so that one multiplication serves all.
constexpr std::uint64_t channel_bits = 0x00FF00FF00FF00FF;

inline std::uint64_t Spread_Out(QRgb pixel) {
    return (std::uint64_t{pixel} | std::uint64_t{pixel} << 24) & channel_bits;
}

/// Lays `share` 256ths of a colour over a pixel.
inline void Blend(QRgb& pixel, std::uint64_t colour, std::uint32_t share) {
    const std::uint64_t mixed = (colour * share + Spread_Out(pixel) * (opaque - share)) >> 8 & channel_bits;
    pixel = static_cast<QRgb>(mixed | mixed >> 24);
}

class Brush {
  public:
    Brush(const PixelPaper& paper, QRgb colour)
        : Pixels(reinterpret_cast<QRgb*>(paper.Image->bits())),
          Stride(paper.Image->bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb))),
          Colour(colour | 0xFF000000),
          Channels(Spread_Out(colour | 0xFF000000)) {
        const QRect clip = paper.Clip.intersected(paper.Image->rect());
        Left = clip.left();
        Top = clip.top();
        Right = clip.right();
        Bottom = clip.bottom();
    }

    /// Pixels from `from` to `to`, both included, in any order.
    void Span(int row, int from, int to) {
        if (row < Top || row > Bottom) return;
        if (from > to) std::swap(from, to);
        from = std::max(from, Left);
        to = std::min(to, Right);
        if (from <= to) std::fill_n(Pixels + row * Stride + from, to - from + 1, Colour);
    }

    void Segment(int x1, int y1, int x2, int y2) {
        const int dx = x2 - x1;
        const int dy = y2 - y1;
        if (std::abs(dy) >= std::abs(dx)) {
            Walk(y1, y2, x1, Slope(dx, dy), Top, Bottom, Left, Right, Stride, 1);
        } else {
            Walk(x1, x2, y1, Slope(dy, dx), Left, Right, Top, Bottom, 1, Stride);
        }
    }

  private:
    static std::int64_t Slope(int across, int along) {
        if (along == 0) return 0;
        // Division of 64 bits takes several times as long.
        if (std::abs(across) < 1 << 14) return across * static_cast<int>(whole) / along;
        return across * whole / along;
    }

    /// Along the axis that the segment is longer on, one pixel a step: `across` moves by `slope` each.
    void Walk(int from, int to, int across_from, std::int64_t slope, int first, int last, int across_first,
              int across_last, qsizetype along_step, qsizetype across_step) {
        const int begin = std::max(std::min(from, to), first);
        const int end = std::min(std::max(from, to), last);
        if (begin > end) return;
        std::int64_t across = across_from * whole + (std::int64_t{begin} - from) * slope;
        const std::int64_t across_end = across + (end - begin) * slope;
        const bool inside = std::min(across, across_end) >= across_first * whole &&
                            std::max(across, across_end) < across_last * whole;
        QRgb* row = Pixels + begin * along_step;
        if (inside && slope == 0 && (across & (whole - 1)) == 0) {
            row += (across >> fraction_bits) * across_step;
            for (int along = begin; along <= end; ++along, row += along_step)
                *row = Colour;
            return;
        }
        if (inside) {
            for (int along = begin; along <= end; ++along, across += slope, row += along_step) {
                QRgb* pixel = row + (across >> fraction_bits) * across_step;
                const auto beyond = static_cast<std::uint32_t>((across & (whole - 1)) >> (fraction_bits - 8));
                Blend(*pixel, Channels, opaque - beyond);
                Blend(pixel[across_step], Channels, beyond);
            }
            return;
        }
        for (int along = begin; along <= end; ++along, across += slope, row += along_step) {
            const auto place = static_cast<int>(across >> fraction_bits);
            const auto beyond = static_cast<std::uint32_t>((across & (whole - 1)) >> (fraction_bits - 8));
            QRgb* pixel = row + place * across_step;
            if (place >= across_first && place <= across_last) Blend(*pixel, Channels, opaque - beyond);
            if (place + 1 >= across_first && place + 1 <= across_last)
                Blend(pixel[across_step], Channels, beyond);
        }
    }

    QRgb* Pixels;
    qsizetype Stride;
    QRgb Colour;
    std::uint64_t Channels;
    int Left = 0;
    int Top = 0;
    int Right = -1;
    int Bottom = -1;
};

/// True for a line that goes down by one row a point at most.
bool Is_Dense(std::span<const PixelPoint> points) {
    constexpr std::size_t fewest = 64;  // a short line is no trace of a record
    if (points.size() < fewest) return false;
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const std::int64_t down = std::int64_t{points[i + 1].Y} - points[i].Y;
        if (down < 0 || down > 1) return false;
    }
    return true;
}

/// A dense line row by row, each as far as the line goes in it: among hundreds of its like smoothing is not
/// seen. A segment changes its row in its middle.
void Draw_Dense_Line(Brush& brush, const PixelPaper& paper, std::span<const PixelPoint> points) {
    int row = points.front().Y;
    int least = Near(points.front().X);
    int most = least;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const int x = Near(points[i].X);
        if (points[i].Y != row) {
            const int before = Near(points[i - 1].X);
            const int middle = before + (x - before) / 2;
            brush.Span(Near(row) + paper.Top, std::min(least, middle) + paper.Left,
                       std::max(most, middle) + paper.Left);
            row = points[i].Y;
            least = most = middle;
        }
        least = std::min(least, x);
        most = std::max(most, x);
    }
    brush.Span(Near(row) + paper.Top, least + paper.Left, most + paper.Left);
}

}  // namespace

bool Is_Lobe(std::span<const PixelPoint> points) {
    if (points.size() < 3 || points.front().X != points.back().X) return false;
    return std::is_sorted(points.begin(), points.end(),
                          [](const PixelPoint& a, const PixelPoint& b) { return a.Y < b.Y; });
}

void Fill_Lobe(const PixelPaper& paper, std::span<const PixelPoint> lobe, QRgb colour) {
    Brush brush(paper, colour);
    const int axis = Near(lobe.front().X) + paper.Left;
    const int first_row = paper.Clip.top() - paper.Top;
    const int last_row = paper.Clip.bottom() - paper.Top;
    for (std::size_t i = 0; i + 1 < lobe.size(); ++i) {
        const PixelPoint from = {Near(lobe[i].X), Near(lobe[i].Y)};
        const PixelPoint to = {Near(lobe[i + 1].X), Near(lobe[i + 1].Y)};
        brush.Span(from.Y + paper.Top, axis, from.X + paper.Left);
        if (to.Y - from.Y < 2) continue;
        const std::int64_t slope = (std::int64_t{to.X} - from.X) * whole / (to.Y - from.Y);
        for (int row = std::max(from.Y + 1, first_row); row < to.Y && row <= last_row; ++row) {
            const std::int64_t x = from.X * whole + slope * (row - from.Y) + whole / 2;
            brush.Span(row + paper.Top, axis, static_cast<int>(x >> fraction_bits) + paper.Left);
        }
    }
}

void Draw_Thin_Line(const PixelPaper& paper, std::span<const PixelPoint> points, QRgb colour) {
    Brush brush(paper, colour);
    if (Is_Dense(points)) {
        Draw_Dense_Line(brush, paper, points);
        return;
    }
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        brush.Segment(Near(points[i].X) + paper.Left, Near(points[i].Y) + paper.Top,
                      Near(points[i + 1].X) + paper.Left, Near(points[i + 1].Y) + paper.Top);
    }
}

}  // namespace tarnvik
