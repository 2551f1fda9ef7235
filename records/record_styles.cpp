#include "records/record_styles.h"

#include <algorithm>

#include "records/record_display.h"

namespace tarnvik {

namespace {

constexpr Colour area_blue = 0xFF8080;
constexpr std::size_t most_line_points = 10001;

constexpr std::size_t Most_Lobe_Points(int style) {
    switch (style) {
        case VariableArea:
            return 20000;
        case TwoColours:
            return 5001;
        default:
            return 900001;
    }
}

}  // namespace

void TracePainter::Draw(const TracePoints& trace, int axis_pixel, bool dead) {
    if (trace.Count() == 0 || Style < VariableArea || Style > AreaOnly) return;
    if (Style != WiggleOnly) {
        const Colour live = Style == TwoColours ? colours::Red : area_blue;
        Lobes(trace, axis_pixel, 1, dead ? colours::Grey : live);
    }
    if (Style == TwoColours) Lobes(trace, axis_pixel, -1, dead ? colours::Grey : colours::Blue);
    if (Style == VariableArea || Style == WiggleOnly) {
        const std::size_t count = std::min(trace.Count(), most_line_points - (Style == WiggleOnly ? 1 : 0));
        Target.Polyline(trace.All().first(count), dead ? colours::Grey : colours::Black);
    }
}

void TracePainter::Lobes(const TracePoints& trace, int axis_pixel, int side, Colour fill) {
    const std::size_t count = trace.Count();
    for (std::size_t i = 0; i < count; ++i) {
        if (trace.Side(i) != side) continue;
        const std::size_t first = i;
        // A lobe too small to leave the axis has no area, and most lobes of a quiet trace are such.
        bool leaves_axis = false;
        for (; i < count && trace.Side(i) == side; ++i)
            leaves_axis = leaves_axis || trace.All()[i].X != axis_pixel;
        if (leaves_axis) Lobe(trace, first, i, axis_pixel, fill);
    }
}

/// Samples `first` to before `end`, from the axis and back to it: at the sample behind the lobe, or at the
/// end of the trace.
void TracePainter::Lobe(const TracePoints& trace, std::size_t first, std::size_t end, int axis_pixel,
                        Colour fill) {
    const std::span<const PixelPoint> points = trace.All();
    Outline.clear();
    Outline.push_back({axis_pixel, points[first].Y});
    for (std::size_t i = first; i < end; ++i)
        Outline.push_back(points[i]);
    Outline.push_back({axis_pixel, points[std::min(end, points.size() - 1)].Y});
    if (Outline.size() > Most_Lobe_Points(Style)) Outline.resize(Most_Lobe_Points(Style));
    Target.Polygon(Outline, fill);
}

}  // namespace tarnvik
