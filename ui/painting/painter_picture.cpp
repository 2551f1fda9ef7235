#include "ui/painting/painter_picture.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace tarnvik {

namespace {

// Anchors this far outside the window (as a part of its size) still belong to a text of the margin.
constexpr double margin_text_reach = 0.08;

// Letters narrower than this (per cent) could not be read; texts that need it may overlap.
constexpr int narrowest_letters = 60;
constexpr double scale_text_gap = 1.5;  // points

// Painters lose precision far outside their device; polygons stop there.
constexpr int far_pixel = 30000;

/// Cuts a segment to a rectangle; false when nothing is left.
bool Cut_To(const QRectF& clip, QPointF& from, QPointF& to) {
    const double dx = to.x() - from.x();
    const double dy = to.y() - from.y();
    double first = 0;
    double last = 1;
    const auto side = [&](double direction, double distance) {
        if (direction == 0) return distance >= 0;
        const double at = distance / direction;
        if (direction < 0) first = std::max(first, at);
        if (direction > 0) last = std::min(last, at);
        return first <= last;
    };
    if (!side(-dx, from.x() - clip.left()) || !side(dx, clip.right() - from.x()) ||
        !side(-dy, from.y() - clip.top()) || !side(dy, clip.bottom() - from.y())) {
        return false;
    }
    const QPointF start = from;
    if (last < 1) to = start + QPointF(dx, dy) * last;
    if (first > 0) from = start + QPointF(dx, dy) * first;
    return true;
}

bool Numbers(std::initializer_list<double> values) {
    return std::all_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); });
}

double Brightness(const QColor& colour) {
    return 0.299 * colour.redF() + 0.587 * colour.greenF() + 0.114 * colour.blueF();
}

/// Colour of letters on paper: light ones (the cyan of the time scale) are darkened until they can be read.
/// White stays white, since it is used to wipe.
QColor Letter_Colour(Colour colour) {
    QColor ink = To_QColor(colour);
    if (colour == colours::White) return ink;
    constexpr double readable_brightness = 0.55;
    const double brightness = Brightness(ink);
    if (brightness <= readable_brightness) return ink;
    const double share = readable_brightness / brightness;
    return QColor::fromRgbF(ink.redF() * share, ink.greenF() * share, ink.blueF() * share);
}

/// Colour to invert with so that a band is seen on white paper: of the colour and its complement the darker
/// one appears there. Black alone would change nothing.
QColor Inverting_Colour(Colour colour) {
    const QColor ink = To_QColor(colour);
    const QColor opposite(255 - ink.red(), 255 - ink.green(), 255 - ink.blue());
    return Brightness(ink) < Brightness(opposite) ? opposite : ink;
}

QRgb To_Rgb(Colour colour) {
    return qRgb(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

}  // namespace

QColor To_QColor(Colour colour) {
    return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

Colour From_QColor(const QColor& colour) {
    return colour.red() | (colour.green() << 8) | (colour.blue() << 16);
}

void PainterPicture::Attach(QPainter* painter, const QRectF& area, double pixels_per_point, bool raster) {
    if (pixels_per_point != Density) {
        Stamps.clear();
        LastStamp = nullptr;
        FontKnown = false;
    }
    Painter = painter;
    Outer = area;
    Density = pixels_per_point > 0 ? pixels_per_point : 1;
    Raster = raster;
    Forget_State();
    Place_Window();
}

void PainterPicture::Set_Margins(const PictureMargins& margins) {
    Margins = margins;
    Place_Window();
}

void PainterPicture::Set_Font_Family(const QString& family) {
    if (!family.isEmpty()) Font.setFamily(family);
    FontKnown = FontSet = false;
}

void PainterPicture::Scale(double left, double top, double right, double bottom) {
    if (!Numbers({left, top, right, bottom})) return;
    Asked.Left = left;
    Asked.Top = top;
    Asked.Right = right;
    Asked.Bottom = bottom;
    Place_Window();
}

void PainterPicture::Place_Window() {
    ScaleTexts.clear();
    Inner =
        Outer.marginsRemoved(QMarginsF(Margins.Left, Margins.Top, Margins.Right, Margins.Bottom) * Density);
    if (Raster) Inner = QRectF(Inner.toRect());
    if (Inner.width() < 1) Inner.setWidth(1);
    if (Inner.height() < 1) Inner.setHeight(1);
    InForce = Asked;
    const auto follows = [](double size, double begin, double end) {
        return size > 0 && std::isfinite(size) && std::isfinite(begin) && std::isfinite(end) && end > begin;
    };
    if (RowsOf != nullptr) {
        const double top = RowsOf->Device_Y(Asked.Top) + RowsDown;
        const double bottom = RowsOf->Device_Y(Asked.Bottom) + RowsDown;
        if (follows(bottom - top, top, bottom)) {
            Inner.setTop(top);
            Inner.setBottom(bottom);
        }
    }
    if (ColumnsOf != nullptr) {
        const double left = ColumnsOf->Device_X(Asked.Left);
        const double right = ColumnsOf->Device_X(Asked.Right);
        if (follows(right - left, left, right)) {
            Inner.setLeft(left);
            Inner.setRight(right);
        }
    }
    InForce.Width = Inner.width();
    InForce.Height = Inner.height();
    const double room = std::ceil(2 * Density);
    FigureClip = Inner.adjusted(-room, -room, room, room).intersected(Outer);
    FigurePixels = FigureClip.toAlignedRect();
    ClipSet = Clip::None;
}

QRect PainterPicture::Pixels_Of(double x1, double y1, double x2, double y2) const {
    const QRectF place = QRectF(QPointF(Device_X(x1), Device_Y(y1)), QPointF(Device_X(x2), Device_Y(y2)));
    QRectF found = place.normalized().intersected(Inner);
    if (found.left() <= Inner.left()) found.setLeft(Outer.left());
    if (found.top() <= Inner.top()) found.setTop(Outer.top());
    if (found.right() >= Inner.right()) found.setRight(Outer.right());
    if (found.bottom() >= Inner.bottom()) found.setBottom(Outer.bottom());
    return found.toAlignedRect();
}

void PainterPicture::Forget_State() {
    ClipSet = Clip::None;
    PenSet = FontSet = ModeSet = false;
}

double PainterPicture::Device_Width(int points) const {
    const double width = std::max(points, 1) * Density;
    return Raster ? std::max(1.0, std::floor(width)) : width * 0.5;
}

QPainter* PainterPicture::Ready(Clip clip) {
    QPainter* painter = Active_Painter();
    if (painter == nullptr) return nullptr;
    if (ClipSet != clip) {
        painter->setClipRect(Within_Clip(clip == Clip::Figures ? FigureClip : Outer));
        ClipSet = clip;
    }
    if (!ModeSet || PainterMode != Mode) {
        if (Raster) {
            painter->setCompositionMode(Mode == DrawMode::Xor ? QPainter::RasterOp_SourceXorDestination
                                                              : QPainter::CompositionMode_SourceOver);
        }
        // A figure drawn twice in XOR must vanish: no half-covered pixels.
        painter->setRenderHint(QPainter::Antialiasing, !Inverting());
        painter->setRenderHint(QPainter::TextAntialiasing, !Inverting());
        PainterMode = Mode;
        ModeSet = true;
        PenSet = false;
    }
    return painter;
}

QPainter* PainterPicture::Ready_To_Stroke(Colour colour) {
    QPainter* painter = Ready(Clip::Figures);
    if (painter == nullptr) return nullptr;
    if (!PenSet || PenColour != colour || PenWidth != Width) {
        QPen pen(Inverting() ? Inverting_Colour(colour) : To_QColor(colour));
        pen.setWidthF(Device_Width(Width));
        pen.setCosmetic(Raster);
        if (!Raster || Device_Width(Width) > 1) {
            pen.setCapStyle(Qt::RoundCap);
            pen.setJoinStyle(Qt::RoundJoin);
        }
        painter->setPen(pen);
        painter->setBrush(Qt::NoBrush);
        PenColour = colour;
        PenWidth = Width;
        PenSet = true;
    }
    return painter;
}

void PainterPicture::Clear() {
    PenX = PenY = 0;
    ScaleTexts.clear();
    if (LetterWidth != 100) {
        LetterWidth = 100;
        FontKnown = FontSet = false;
    }
    QPainter* painter = Active_Painter();
    if (painter == nullptr) return;
    Forget_State();
    painter->setClipping(false);
    if (Raster) painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter->fillRect(Within_Clip(Outer), Qt::white);
    Touch(Outer);
}

void PainterPicture::Set_Clip(double x1, double y1, double x2, double y2) {
    if (!Numbers({x1, y1, x2, y2})) return;
    const QRectF place = QRectF(QPointF(Device_X(x1), Device_Y(y1)), QPointF(Device_X(x2), Device_Y(y2)))
                             .normalized()
                             .intersected(Outer);
    // On whole pixels, so that none is drawn by halves.
    Kept = Raster ? QRectF(place.toAlignedRect()) : place;
    ClipSet = Clip::None;
}

void PainterPicture::Clear_Clip() {
    Kept.reset();
    ClipSet = Clip::None;
}

QRectF PainterPicture::Within_Clip(const QRectF& place) const {
    return Kept ? place.intersected(*Kept) : place;
}

void PainterPicture::Touch(const QRectF& place) {
    Touched(Within_Clip(place));
}

void PainterPicture::Stroke(QPointF from, QPointF to, Colour colour) {
    const double width = Device_Width(Width);
    if (!Cut_To(FigureClip.adjusted(-width, -width, width, width), from, to)) return;
    QPainter* painter = Ready_To_Stroke(colour);
    if (painter == nullptr) return;
    if (Raster) {
        // Upright and level lines fall on whole pixels, so that they are crisp.
        const double shift = static_cast<int>(width) % 2 == 1 ? 0.5 : 0.0;
        const auto whole = [shift](double value) { return std::floor(value + 0.5 - shift) + shift; };
        if (from.x() == to.x()) {
            from.setX(whole(from.x()));
            to.setX(from.x());
        }
        if (from.y() == to.y()) {
            from.setY(whole(from.y()));
            to.setY(from.y());
        }
    }
    painter->drawLine(from, to);
    const QRectF place = QRectF(from, to).normalized();
    Touch(place.adjusted(-width - 1, -width - 1, width + 1, width + 1));
}

void PainterPicture::Line(double x1, double y1, double x2, double y2, Colour colour) {
    if (!Numbers({x1, y1, x2, y2})) return;
    PenX = x2;
    PenY = y2;
    Stroke({Device_X(x1), Device_Y(y1)}, {Device_X(x2), Device_Y(y2)}, colour);
}

void PainterPicture::Box(double x1, double y1, double x2, double y2, Colour colour, bool filled) {
    if (!Numbers({x1, y1, x2, y2})) return;
    PenX = x2;
    PenY = y2;
    const QPointF a(Device_X(x1), Device_Y(y1));
    const QPointF b(Device_X(x2), Device_Y(y2));
    if (!filled) {
        Stroke(a, {b.x(), a.y()}, colour);
        Stroke({b.x(), a.y()}, b, colour);
        Stroke(b, {a.x(), b.y()}, colour);
        Stroke({a.x(), b.y()}, a, colour);
        return;
    }
    QPainter* painter = Ready(Clip::Figures);
    if (painter == nullptr) return;
    QRectF place = QRectF(a, b).normalized().intersected(FigureClip);
    if (place.isEmpty() && !place.isValid()) return;
    if (Raster) {
        const double left = std::floor(place.left());
        const double top = std::floor(place.top());
        place = QRectF(left, top, std::max(1.0, std::floor(place.right()) - left),
                       std::max(1.0, std::floor(place.bottom()) - top));
    }
    painter->fillRect(place, To_QColor(colour));
    Touch(place.adjusted(-1, -1, 1, 1));
}

const PainterPicture::Stamp& PainterPicture::Circle_Stamp(double radius, Colour colour) {
    const auto key =
        std::make_pair(static_cast<int>(std::lround(radius * 16)) * 16 + std::min(Width, 15), colour);
    if (LastStamp != nullptr && LastStampKey == key) return *LastStamp;
    LastStampKey = key;
    const auto found = Stamps.find(key);
    if (found != Stamps.end()) return *(LastStamp = &found->second);
    if (Stamps.size() > 256) Stamps.clear();
    Stamp stamp;
    stamp.Reach = std::ceil(radius + Device_Width(Width)) + 0.5;
    const int size = static_cast<int>(2 * stamp.Reach);
    stamp.Shape = QImage(size, size, QImage::Format_ARGB32_Premultiplied);
    stamp.Shape.fill(Qt::transparent);
    QPainter painter(&stamp.Shape);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(To_QColor(colour), Device_Width(Width)));
    painter.drawEllipse(QPointF(stamp.Reach, stamp.Reach), radius, radius);
    return *(LastStamp = &Stamps.emplace(key, std::move(stamp)).first->second);
}

void PainterPicture::Circle(double x, double y, double radius, Colour colour) {
    if (!Numbers({x, y, radius})) return;
    const double device_radius =
        InForce.Right == InForce.Left ? 0 : std::abs(radius / (InForce.Right - InForce.Left)) * Inner.width();
    const QPointF centre(Device_X(x), Device_Y(y));
    const double reach = device_radius + Device_Width(Width) + 2;
    if (!Raster || Inverting() || device_radius > 32) {
        Ellipse_Arc(x, y, radius, colour, 0, 2 * std::numbers::pi, 1);
        return;
    }
    PenX = x;
    PenY = y;
    // Thousands of picks carry the same small circle: it is drawn once and stamped.
    if (!FigureClip.adjusted(-reach, -reach, reach, reach).contains(centre)) return;
    QPainter* painter = Ready(Clip::Figures);
    if (painter == nullptr) return;
    const Stamp& stamp = Circle_Stamp(device_radius, colour);
    painter->drawImage(QPoint(static_cast<int>(std::lround(centre.x() - stamp.Reach + 0.5)),
                              static_cast<int>(std::lround(centre.y() - stamp.Reach + 0.5))),
                       stamp.Shape);
    Touch(QRectF(centre.x() - reach, centre.y() - reach, 2 * reach, 2 * reach));
}

void PainterPicture::Arc(double x, double y, double radius, Colour colour, double start, double end,
                         double aspect) {
    if (!Numbers({x, y, radius, start, end, aspect})) return;
    double sweep = std::fmod(end - start, 2 * std::numbers::pi);
    if (sweep <= 0) sweep += 2 * std::numbers::pi;
    Ellipse_Arc(x, y, radius, colour, start, sweep, aspect);
}

void PainterPicture::Ellipse_Arc(double x, double y, double radius, Colour colour, double start, double sweep,
                                 double aspect) {
    PenX = x;
    PenY = y;
    const double range = InForce.Right - InForce.Left;
    double across = range == 0 ? 0 : std::abs(radius / range) * Inner.width();
    double down = across * std::abs(aspect);
    if (aspect > 1) {
        // The longer half axis is the radius.
        down = across;
        across = down / aspect;
    }
    const QPointF centre(Device_X(x), Device_Y(y));
    const QRectF round(centre.x() - across, centre.y() - down, 2 * across, 2 * down);
    if (across > far_pixel || !round.adjusted(-2, -2, 2, 2).intersects(FigureClip)) return;
    QPainter* painter = Ready_To_Stroke(colour);
    if (painter == nullptr) return;
    if (sweep >= 2 * std::numbers::pi) {
        painter->drawEllipse(round);
    } else {
        const auto sixteenths = [](double angle) {
            return static_cast<int>(std::lround(angle * 180 / std::numbers::pi * 16));
        };
        painter->drawArc(round, sixteenths(start), sixteenths(sweep));
    }
    const double width = Device_Width(Width) + 1;
    Touch(round.adjusted(-width, -width, width, width));
}

void PainterPicture::Point(double x, double y, Colour colour) {
    if (!Numbers({x, y})) return;
    PenX = x;
    PenY = y;
    const double size = Device_Width(Width);
    const QPointF centre(Device_X(x), Device_Y(y));
    QRectF dot(centre.x() - size / 2, centre.y() - size / 2, size, size);
    if (!dot.intersects(FigureClip)) return;
    QPainter* painter = Ready(Clip::Figures);
    if (painter == nullptr) return;
    if (Raster) dot.moveTopLeft({std::floor(dot.left() + 0.5), std::floor(dot.top() + 0.5)});
    painter->fillRect(dot, To_QColor(colour));
    Touch(dot.adjusted(-1, -1, 1, 1));
}

/// Under a narrow picture all texts of the scale get narrower letters, so that none covers the one before it.
void PainterPicture::Make_Room_For(const ScaleText& next) {
    const auto before = std::find_if(ScaleTexts.rbegin(), ScaleTexts.rend(),
                                     [&next](const ScaleText& text) { return text.Y == next.Y; });
    if (before != ScaleTexts.rend() && before->X < next.X) {
        const double room = Device_X(next.X) - Device_X(before->X) - scale_text_gap * Density;
        const int fitting = std::max(narrowest_letters, static_cast<int>(100 * room / before->FullWidth));
        if (fitting < LetterWidth) {
            const std::vector<ScaleText> printed = ScaleTexts;
            Clear();
            LetterWidth = fitting;
            FontKnown = FontSet = false;
            for (const ScaleText& text : printed) {
                Move_To(text.X, text.Y);
                Print(text.Letters, text.Ink);
            }
        }
    }
    ScaleTexts.push_back(next);
}

void PainterPicture::Print(std::string_view text, Colour colour) {
    const double x = PenX;
    const double y = PenY;
    if (ColumnsOf != nullptr && Raster && !text.empty()) {
        QFont usual = Font;
        usual.setPixelSize(std::max(1, static_cast<int>(std::lround(FontPoints * Density))));
        usual.setStretch(QFont::Unstretched);
        const QString letters = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
        Make_Room_For({std::string(text), x, y, colour, QFontMetricsF(usual).horizontalAdvance(letters)});
    }
    if (!FontKnown) {
        Font.setStretch(LetterWidth);
        Font.setPixelSize(std::max(1, static_cast<int>(std::lround(FontPoints * Density))));
        FontKnown = true;
    }
    const QFontMetricsF metrics(Font);
    const double line_height = metrics.height();
    PenX = 0;
    PenY = InForce.To_World_Y(InForce.To_Pixel_Y(y) + line_height);
    if (text.empty()) return;

    const QString letters = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    QRectF place(Device_X(x), Device_Y(y), metrics.horizontalAdvance(letters), line_height);
    const double reach_x = margin_text_reach * Inner.width();
    const double reach_y = margin_text_reach * Inner.height();
    if (!Inner.adjusted(-reach_x, -reach_y, reach_x, reach_y).contains(place.topLeft())) return;
    if (place.right() > Outer.right()) place.moveRight(Outer.right());
    if (place.left() < Outer.left()) place.moveLeft(Outer.left());
    if (place.bottom() > Outer.bottom()) place.moveBottom(Outer.bottom());
    if (place.top() < Outer.top()) place.moveTop(Outer.top());

    QPainter* painter = Ready(Clip::Texts);
    if (painter == nullptr) return;
    if (!FontSet) {
        painter->setFont(Font);
        FontSet = true;
    }
    painter->setPen(Inverting() ? Inverting_Colour(colour) : Letter_Colour(colour));
    PenSet = false;
    QPointF base(place.left(), place.top() + metrics.ascent());
    if (Raster) base = QPointF(std::round(base.x()), std::round(base.y()));
    painter->drawText(base, letters);
    Touch(place.adjusted(-2, -2, 2, 2));
}

QVector<QPointF> PainterPicture::Device_Points(std::span<const PixelPoint> points) const {
    QVector<QPointF> device;
    device.reserve(static_cast<qsizetype>(points.size()));
    const double centre = Raster ? 0.5 : 0.0;
    for (const PixelPoint& point : points) {
        device.append({Inner.left() + std::clamp(point.X, -far_pixel, far_pixel) + centre,
                       Inner.top() + std::clamp(point.Y, -far_pixel, far_pixel) + centre});
    }
    return device;
}

/// Pixels for the figures of a record; none on paper and in XOR.
std::optional<PixelPaper> PainterPicture::Direct_Paper() {
    if (!Raster || Inverting()) return std::nullopt;
    QImage* image = Pixels();
    if (image == nullptr) return std::nullopt;
    return PixelPaper{image, static_cast<int>(Inner.left()), static_cast<int>(Inner.top()),
                      Kept ? Within_Clip(FigureClip).toAlignedRect() : FigurePixels};
}

void PainterPicture::Polygon(std::span<const PixelPoint> points, Colour fill) {
    if (points.size() < 3) return;
    if (const auto paper = Direct_Paper(); paper && Is_Lobe(points)) {
        Fill_Lobe(*paper, points, To_Rgb(fill));
        Touch(Inner);
        return;
    }
    QPainter* painter = Ready(Clip::Figures);
    if (painter == nullptr) return;
    const QVector<QPointF> device = Device_Points(points);
    painter->setPen(Qt::NoPen);
    painter->setBrush(To_QColor(fill));
    PenSet = false;
    painter->drawPolygon(device.constData(), static_cast<int>(device.size()), Qt::WindingFill);
    Touch(Inner);
}

void PainterPicture::Polyline(std::span<const PixelPoint> points, Colour colour) {
    if (points.size() < 2) return;
    if (const auto paper = Direct_Paper(); paper && Device_Width(Width) == 1) {
        Draw_Thin_Line(*paper, points, To_Rgb(colour));
        Touch(Inner);
        return;
    }
    QPainter* painter = Ready_To_Stroke(colour);
    if (painter == nullptr) return;
    const QVector<QPointF> device = Device_Points(points);
    painter->drawPolyline(device.constData(), static_cast<int>(device.size()));
    Touch(Inner);
}

void PainterPicture::Move_To(double x, double y) {
    if (!Numbers({x, y})) return;
    PenX = x;
    PenY = y;
}

void PainterPicture::Set_Draw_Width(int points) {
    Width = std::clamp(points, 1, 100);
}

void PainterPicture::Set_Font_Size(int points) {
    points = std::clamp(points, 1, 200);
    if (points == FontPoints) return;
    FontPoints = points;
    FontKnown = FontSet = false;
}

}  // namespace tarnvik
