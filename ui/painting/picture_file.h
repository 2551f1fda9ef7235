#pragma once

#include <QPagedPaintDevice>
#include <QSize>
#include <QString>
#include <functional>
#include <string>
#include <vector>

#include "core/frame.h"
#include "core/page_layout.h"
#include "core/ports/display.h"
#include "core/sheet.h"
#include "ui/painting/painter_picture.h"

namespace tarnvik {

/// Draws the page on three pictures. A strip that the layout lacks swallows what is drawn on it.
using DrawPage = DrawPart;

/// One page on a painter whose coordinates are pixels.
void Draw_Page(QPainter& painter, const QRectF& area, double pixels_per_point, bool raster,
               const PageLayout& layout, const QString& font_family, const DrawPage& draw);

/// One page as a bitmap of `size` pixels at 96 pixels an inch times `zoom`.
QImage Page_Image(QSize size, double zoom, const PageLayout& layout, const QString& font_family,
                  const DrawPage& draw);

/// One page on a printer or PDF, as large as the paper allows; the orientation is the device's. Answers the
/// reason of a failure, empty when it went well.
std::string Print_Page(QPagedPaintDevice& device, const PageLayout& layout, const QString& font_family,
                       const DrawPage& draw);

/// The texts of a title block from left to right, of a picture with that window at that density.
using TitleTexts = std::function<std::vector<std::string>(const Frame& window, double pixels_a_millimetre)>;

/// A picture file in memory, or the reason why there is none.
struct MadePicture {
    QByteArray Bytes;
    std::string Reason;
};

/// What a picture file is painted on: an area in pixels of the painter, `Density` of them a point.
struct DrawingPaper {
    QPainter& Painter;
    QRectF Area;
    double Density = 1;
    bool Raster = true;
};
/// A picture file of any drawing, of the kinds of Make_Picture; the size alone counts of the format.
MadePicture Make_Drawing(const std::string& ending, const PictureFormat& format,
                         const std::function<void(const DrawingPaper&)>& paint);

/// The page as a picture of the kind that the ending tells: ".png", ".jpg", ".jpeg" or ".bmp", or ".svg",
/// ".pdf" or ".wmf", which get the size that the pixels of `format` have on paper. A title block stands under
/// the picture when the format wants one.
MadePicture Make_Picture(const std::string& ending, const PictureFormat& format, const PageLayout& layout,
                         const QString& font_family, const DrawPage& draw, const TitleTexts& title = {});

/// Writes it to a file of that ending. The old file stays whole when the new one cannot be written. Answers
/// the reason of a failure, empty when it went well.
std::string Write_Picture_File(const std::string& path, const PictureFormat& format, const PageLayout& layout,
                               const QString& font_family, const DrawPage& draw,
                               const TitleTexts& title = {});

}  // namespace tarnvik
