#include "ui/painting/metafile_device.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>
#include <vector>

#include "ui/painting/painter_picture.h"

namespace tarnvik {

namespace {

constexpr double millimetres_an_inch = 25.4;

int Whole(double value) {
    constexpr double beyond_any_unit = 1e6;
    return static_cast<int>(std::lround(std::clamp(value, -beyond_any_unit, beyond_any_unit)));
}

MetaBox Box_Of(const QRectF& rect) {
    return {Whole(rect.left()), Whole(rect.top()), Whole(rect.right()), Whole(rect.bottom())};
}

/// Turns what is painted into figures of the metafile. Bitmaps are left out: pictures have none on paper.
class MetafileEngine : public QPaintEngine {
  public:
    explicit MetafileEngine(Metafile& file)
        : QPaintEngine(AllFeatures &
                       ~(PatternTransform | PerspectiveTransform | ConicalGradientFill | RadialGradientFill |
                         LinearGradientFill | PorterDuff | AlphaBlend | ConstantOpacity)),
          File(file) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }

    void updateState(const QPaintEngineState& now) override {
        const DirtyFlags dirty = now.state();
        if (dirty & DirtyTransform) Placing = now.transform();
        if (dirty & (DirtyPen | DirtyTransform)) Take_Pen(now.pen());
        if (dirty & DirtyBrush) {
            const QBrush brush = now.brush();
            Filling = brush.style() == Qt::NoBrush ? std::nullopt : std::optional(From_QColor(brush.color()));
        }
        if (dirty & DirtyClipEnabled && !now.isClipEnabled()) Take_Clip(Qt::NoClip, {});
        if (dirty & DirtyClipRegion) Take_Clip(now.clipOperation(), now.clipRegion().boundingRect());
        if (dirty & DirtyClipPath) Take_Clip(now.clipOperation(), now.clipPath().boundingRect());
    }

    void drawRects(const QRectF* rects, int count) override {
        for (const QRectF& rect : std::span(rects, static_cast<std::size_t>(count))) {
            if (Stroking || !Filling || Placing.type() > QTransform::TxScale) {
                QPainterPath path;
                path.addRect(rect);
                drawPath(path);
            } else {
                File.Fill_Box(Box_Of(Placing.mapRect(rect)), *Filling);
            }
        }
    }

    void drawLines(const QLineF* lines, int count) override {
        for (const QLineF& line : std::span(lines, static_cast<std::size_t>(count))) {
            const QPointF ends[] = {line.p1(), line.p2()};
            drawPolygon(ends, 2, PolylineMode);
        }
    }

    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
        std::vector<MetaPoint> placed;
        placed.reserve(static_cast<std::size_t>(count));
        for (const QPointF& point : std::span(points, static_cast<std::size_t>(count)))
            placed.push_back(Place(point));
        Take_Ink();
        if (mode == PolylineMode) {
            if (Stroking) File.Polyline(placed);
        } else {
            File.Polygons({&placed, 1}, mode == WindingMode);
        }
    }

    void drawEllipse(const QRectF& rect) override {
        if (Placing.type() > QTransform::TxScale) {
            QPainterPath path;
            path.addEllipse(rect);
            drawPath(path);
            return;
        }
        Take_Ink();
        File.Ellipse(Box_Of(Placing.mapRect(rect)));
    }

    void drawPath(const QPainterPath& path) override {
        std::vector<std::vector<MetaPoint>> figures;
        // In units of the file already, so that bends are as smooth as it can tell them.
        for (const QPolygonF& figure : path.toSubpathPolygons(Placing)) {
            figures.emplace_back();
            for (const QPointF& point : figure)
                figures.back().push_back({Whole(point.x()), Whole(point.y())});
        }
        if (Filling) {
            File.Set_Pen(std::nullopt);
            File.Set_Brush(Filling);
            File.Polygons(figures, path.fillRule() == Qt::WindingFill);
        }
        if (!Stroking) return;
        File.Set_Pen(Stroking);
        for (const auto& figure : figures)
            File.Polyline(figure);
    }

    void drawTextItem(const QPointF& base, const QTextItem& item) override {
        const QFont font = item.font();
        const QFontInfo used(font);
        const double scale = std::sqrt(std::abs(Placing.determinant()));
        const double turned = -std::atan2(Placing.m12(), Placing.m11());
        const QString text = item.text();
        // The reader's letters may be wider or narrower; each stands where it was measured.
        const QFontMetricsF metrics(font);
        std::vector<int> advances;
        int before = 0;
        for (qsizetype end = 1; end <= text.size(); ++end) {
            const int reach = Whole(metrics.horizontalAdvance(text.left(end)) * scale);
            advances.push_back(reach - before);
            before = reach;
        }
        constexpr double tenth_degrees = 1800 / std::numbers::pi;
        File.Set_Font({.Family = used.family().toStdString(),
                       .Height = Whole((font.pixelSize() > 0 ? font.pixelSize() : used.pixelSize()) * scale),
                       .TenthDegrees = Whole(turned * tenth_degrees),
                       .Bold = font.bold(),
                       .Italic = font.italic()});
        File.Set_Text_Colour(Stroke);
        File.Text(Place(base), text.toStdString(), advances);
    }

    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}

  private:
    MetaPoint Place(const QPointF& point) const {
        const QPointF placed = Placing.map(point);
        return {Whole(placed.x()), Whole(placed.y())};
    }

    void Take_Pen(const QPen& pen) {
        Stroke = From_QColor(pen.color());
        const double scale = pen.isCosmetic() ? 1 : std::sqrt(std::abs(Placing.determinant()));
        Stroking = pen.style() == Qt::NoPen
                       ? std::nullopt
                       : std::optional(MetaPen{std::max(1, Whole(pen.widthF() * scale)), Stroke});
    }

    void Take_Ink() {
        File.Set_Pen(Stroking);
        File.Set_Brush(Filling);
    }

    void Take_Clip(Qt::ClipOperation operation, const QRectF& place) {
        if (operation == Qt::NoClip) {
            Clip.reset();
        } else {
            const QRectF placed = Placing.mapRect(place);
            Clip = operation == Qt::IntersectClip && Clip ? Clip->intersected(placed) : placed;
        }
        File.Set_Clip(Clip ? std::optional(Box_Of(*Clip)) : std::nullopt);
    }

    Metafile& File;
    QTransform Placing;
    std::optional<MetaPen> Stroking;
    Colour Stroke = 0;
    std::optional<Colour> Filling;
    std::optional<QRectF> Clip;
};

}  // namespace

MetafileDevice::MetafileDevice(const QSizeF& paper)
    : Density(Metafile::Density_For(paper.width(), paper.height())),
      Units((paper * Density).toSize().expandedTo({1, 1})),
      File(Units.width(), Units.height(), Density),
      Engine(std::make_unique<MetafileEngine>(File)) {}

MetafileDevice::~MetafileDevice() = default;

QPaintEngine* MetafileDevice::paintEngine() const {
    return Engine.get();
}

QByteArray MetafileDevice::Bytes() const {
    const std::string bytes = File.Bytes();
    return QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

int MetafileDevice::metric(PaintDeviceMetric what) const {
    switch (what) {
        case PdmWidth:
            return Units.width();
        case PdmHeight:
            return Units.height();
        case PdmWidthMM:
            return Whole(Units.width() * millimetres_an_inch / Density);
        case PdmHeightMM:
            return Whole(Units.height() * millimetres_an_inch / Density);
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return Density;
        default:
            return QPaintDevice::metric(what);
    }
}

}  // namespace tarnvik
