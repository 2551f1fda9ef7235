#pragma once

#include <QPagedPaintDevice>
#include <QSize>
#include <QString>
#include <functional>
#include <string>
#include <vector>

#include "core/frame.h"
#include "core/ports/display.h"
#include "ui/painting/painter_picture.h"

namespace tarnvik {

/// How a picture and its scale strips stand on one page: the strip of x under the picture, or a header above
/// it in its place, the strip of y left of it. Sizes in points; a strip of size 0 is not there.
struct PageLayout {
    PictureMargins Margins;  ///< of the picture itself
    double StripX = 0;       ///< height of the strip under the picture
    double StripY = 0;       ///< width of the strip beside it
    double StripYRoom = 0;   ///< width of its right part that is for texts alone
    double Header = 0;  ///< height of the header above picture and strip of y; its left margin is as wide
                        ///< as that strip
};

/// The layouts of the program's pictures; the screen uses the same numbers.
PageLayout Curves_Layout();
PageLayout Profile_Layout();
PageLayout Record_Layout();
PageLayout Section_Layout();
/// The section page of a report has its axes and its margins in the picture itself.
PageLayout Report_Layout();

/// Draws the page on three pictures. A strip that the layout lacks swallows what is drawn on it.
using DrawPage = std::function<void(Picture& main, Picture& strip_x, Picture& strip_y)>;

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
