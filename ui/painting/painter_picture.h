#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QRectF>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/page_layout.h"
#include "core/ports/picture.h"
#include "ui/painting/pixel_figures.h"

namespace tarnvik {

/// The verbs of a picture on any painter: screen, image, page or file. Coordinates of the painter are device
/// pixels. Rasters get whole-pixel lines, vector devices the exact places. World coordinates that are no
/// number draw nothing.
class PainterPicture : public Picture {
  public:
    /// A picture with nothing to draw on yet; nothing is drawn before Attach.
    PainterPicture() = default;
    PainterPicture(const PainterPicture&) = delete;
    PainterPicture& operator=(const PainterPicture&) = delete;

    /// Draws into the rectangle `area` of the painter, margins included. `pixels_per_point` is the density of
    /// the device (dpi / 72). The painter must live until the next Attach or Detach.
    void Attach(QPainter* painter, const QRectF& area, double pixels_per_point, bool raster);
    void Detach() { Painter = nullptr; }
    void Set_Margins(const PictureMargins& margins);
    void Set_Font_Family(const QString& family);
    /// A scale strip shows each world height (or place) exactly beside (or under) that of the picture that it
    /// belongs to, whatever window it asks for itself. The picture must outlive the strip.
    /// `down`: how far, in device pixels, that picture begins below this one.
    void Follow_Rows_Of(const PainterPicture* picture, double down = 0) {
        RowsOf = picture;
        RowsDown = down;
    }
    void Follow_Columns_Of(const PainterPicture* picture) { ColumnsOf = picture; }

    void Scale(double left, double top, double right, double bottom) override;
    Frame Current_Frame() const override { return InForce; }
    double Pixels_Per_Point() const override { return Density; }
    void Clear() override;
    void Set_Clip(double x1, double y1, double x2, double y2) override;
    void Clear_Clip() override;
    /// Only a picture in memory has a background; on paper nothing is taken off again.
    void Keep_Background() override {}
    bool Bring_Back(double, double, double, double) override { return false; }
    void Line(double x1, double y1, double x2, double y2, Colour colour) override;
    void Box(double x1, double y1, double x2, double y2, Colour colour, bool filled) override;
    void Circle(double x, double y, double radius, Colour colour) override;
    void Arc(double x, double y, double radius, Colour colour, double start, double end,
             double aspect) override;
    void Point(double x, double y, Colour colour) override;
    void Print(std::string_view text, Colour colour) override;
    TextSize Size_Of(std::string_view text) const override;
    void Polygon(std::span<const PixelPoint> points, Colour fill) override;
    void Polyline(std::span<const PixelPoint> points, Colour colour) override;
    void Move_To(double x, double y) override;
    double Pen_X() const override { return PenX; }
    double Pen_Y() const override { return PenY; }
    void Set_Draw_Mode(DrawMode mode) override { Mode = mode; }
    void Set_Draw_Width(int points) override;
    void Set_Font_Size(int points) override;
    void Set_Pointer(PointerShape) override {}
    void Set_Buffering(bool) override {}

    /// Place of the world window on the painter, in pixels.
    const QRectF& Window() const { return Inner; }

  protected:
    /// The painter to draw with; null when there is nothing to draw on.
    virtual QPainter* Active_Painter() { return Painter; }
    /// The opaque 32-bit image that the painter draws on, for figures drawn without it; null when there is
    /// none.
    virtual QImage* Pixels() { return nullptr; }
    /// Told of every place that was drawn on, in pixels of the painter.
    virtual void Touched(const QRectF&) {}
    /// The painter's clip, pen, font and mode are unknown from now on.
    void Forget_State();
    const QRectF& Area() const { return Outer; }
    bool Inverting() const { return Mode == DrawMode::Xor && Raster; }
    /// Pixels of a rectangle in world units, with the margin where it reaches the edge of the window.
    QRect Pixels_Of(double x1, double y1, double x2, double y2) const;

  private:
    enum class Clip { None, Figures, Texts };
    struct Stamp {
        QImage Shape;
        double Reach = 0;
    };

    /// A text of a distance scale as it was printed.
    struct ScaleText {
        std::string Letters;
        double X = 0;
        double Y = 0;
        Colour Ink = 0;
        double FullWidth = 0;  ///< of its letters in their usual width, pixels
    };

    void Touch(const QRectF& place);
    QRectF Within_Clip(const QRectF& place) const;
    void Place_Window();
    void Make_Room_For(const ScaleText& next);
    double Device_X(double x) const { return Inner.left() + InForce.To_Pixel_X(x); }
    double Device_Y(double y) const { return Inner.top() + InForce.To_Pixel_Y(y); }
    double Device_Width(int points) const;
    QPainter* Ready(Clip clip);
    QPainter* Ready_To_Stroke(Colour colour);
    void Stroke(QPointF from, QPointF to, Colour colour);
    void Ellipse_Arc(double x, double y, double radius, Colour colour, double start, double sweep,
                     double aspect);
    const Stamp& Circle_Stamp(double radius, Colour colour);
    bool Direct_Paper(PixelPaper& paper);
    QVector<QPointF> Device_Points(std::span<const PixelPoint> points) const;

    QPainter* Painter = nullptr;
    QRectF Outer;
    QRectF Inner;
    QRectF FigureClip;
    QRect FigurePixels;
    std::optional<QRectF> Kept;  ///< the rectangle of Set_Clip, pixels
    PictureMargins Margins;
    double Density = 1;
    bool Raster = true;
    Frame Asked;    ///< window as given to Scale
    Frame InForce;  ///< window on the pixels of Inner
    const PainterPicture* RowsOf = nullptr;
    double RowsDown = 0;
    const PainterPicture* ColumnsOf = nullptr;

    double PenX = 0;
    double PenY = 0;
    DrawMode Mode = DrawMode::Copy;
    int Width = 1;
    int FontPoints = 8;
    QFont Font;
    bool FontKnown = false;
    int LetterWidth = 100;              ///< per cent of the usual one
    std::vector<ScaleText> ScaleTexts;  ///< of a strip that follows columns, since it was cleared

    // What the painter holds at the moment, so that nothing is set twice.
    Clip ClipSet = Clip::None;
    bool PenSet = false;
    bool FontSet = false;
    bool ModeSet = false;
    Colour PenColour = 0;
    int PenWidth = 0;
    DrawMode PainterMode = DrawMode::Copy;
    std::map<std::pair<int, Colour>, Stamp> Stamps;  ///< circles already drawn once, by radius and colour
    std::pair<int, Colour> LastStampKey;
    const Stamp* LastStamp = nullptr;
};

/// Colour number as the painter takes it.
QColor To_QColor(Colour colour);
Colour From_QColor(const QColor& colour);

}  // namespace tarnvik
