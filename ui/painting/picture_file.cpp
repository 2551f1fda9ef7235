#include "ui/painting/picture_file.h"

#include <QBuffer>
#include <QFileInfo>
#include <QPageLayout>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>

#include "core/files.h"
#include "ui/painting/image_picture.h"
#include "ui/painting/metafile_device.h"

namespace tarnvik {

namespace {

constexpr double pixels_an_inch = 96;
constexpr double points_an_inch = 72;
constexpr double inches_a_metre = 1000 / 25.4;
constexpr double millimetres_an_inch = 25.4;
// The title block, points.
constexpr double title_height = 20;
constexpr double title_font = 9;
constexpr double title_margin = 6;
constexpr int pdf_dots_an_inch = 600;
// A drawing file keeps a fine grid below its nominal pixels, so that pixel points are not seen as steps.
constexpr int svg_grid = 8;

/// One of several pictures on a common painter: whoever draws next takes it over with its own clip, pen and
/// font.
class SharedPicture : public PainterPicture {
  public:
    SharedPicture(QPainter& painter, SharedPicture*& holder) : Common(painter), Holder(holder) {}
    bool Hidden = false;

  protected:
    QPainter* Active_Painter() override {
        if (Hidden) return nullptr;
        if (Holder != this) {
            Holder = this;
            Forget_State();
        }
        return &Common;
    }

  private:
    QPainter& Common;
    SharedPicture*& Holder;
};

QByteArray Bitmap_Bytes(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    // Little loss where the type has any: thin lines and letters would get a haze.
    constexpr int jpg_quality = 95;
    const bool lossy = qstrnicmp(format, "jp", 2) == 0;
    if (!image.save(&buffer, format, lossy ? jpg_quality : -1)) bytes.clear();
    return bytes;
}

}  // namespace

void Draw_Page(QPainter& painter, const QRectF& area, double pixels_per_point, bool raster,
               const PageLayout& layout, const QString& font_family, const DrawPage& draw) {
    double below = layout.StripX * pixels_per_point;
    double beside = layout.StripY * pixels_per_point;
    double above = layout.Header * pixels_per_point;
    if (raster) {
        below = std::round(below);
        beside = std::round(beside);
        above = std::round(above);
    }
    const bool has_header = above > 0;
    const QRectF main_area = area.adjusted(beside, above, 0, -below);
    const QRectF x_area = has_header ? QRectF(area.left(), area.top(), area.width(), above)
                                     : QRectF(main_area.left(), main_area.bottom(), main_area.width(), below);
    const QRectF y_area(area.left(), main_area.top(), beside, main_area.height());

    SharedPicture* holder = nullptr;
    SharedPicture main(painter, holder);
    SharedPicture strip_x(painter, holder);
    SharedPicture strip_y(painter, holder);
    strip_x.Hidden = layout.StripX <= 0 && !has_header;
    strip_y.Hidden = layout.StripY <= 0;
    if (has_header) {
        strip_x.Set_Margins({.Left = beside / pixels_per_point, .Right = layout.Margins.Right});
    } else {
        strip_x.Follow_Columns_Of(&main);
    }
    strip_y.Follow_Rows_Of(&main);
    main.Set_Margins(layout.Margins);
    strip_y.Set_Margins({.Right = layout.StripYRoom});
    for (SharedPicture* picture : {&main, &strip_x, &strip_y})
        picture->Set_Font_Family(font_family);
    main.Attach(nullptr, main_area, pixels_per_point, raster);
    strip_x.Attach(nullptr, x_area, pixels_per_point, raster);
    strip_y.Attach(nullptr, y_area, pixels_per_point, raster);

    painter.save();
    painter.fillRect(area, Qt::white);
    draw(main, strip_x, strip_y);
    painter.restore();
}

QImage Page_Image(QSize size, double zoom, const PageLayout& layout, const QString& font_family,
                  const DrawPage& draw) {
    QImage image((QSizeF(size) * zoom).toSize().expandedTo({1, 1}), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    Draw_Page(painter, image.rect(), zoom * pixels_an_inch / points_an_inch, true, layout, font_family, draw);
    return image;
}

std::string Print_Page(QPagedPaintDevice& device, const PageLayout& layout, const QString& font_family,
                       const DrawPage& draw) {
    QPainter painter;
    if (!painter.begin(&device)) return "The page cannot be printed";
    const double density = device.logicalDpiX() / points_an_inch;
    const QRectF area(0, 0, device.width(), device.height());
    Draw_Page(painter, area, density, false, layout, font_family, draw);
    return painter.end() ? std::string() : "The page cannot be printed";
}

namespace {

/// The page with its title block under it: the texts side by side, as wide as they are, in a frame.
void Draw_Titled_Page(QPainter& painter, const QRectF& area, double density, bool raster,
                      const PageLayout& layout, const QString& font_family, const DrawPage& draw,
                      const TitleTexts& title) {
    double height = std::min(title_height * density, area.height() / 4);
    if (raster) height = std::round(height);
    const QRectF block(area.left(), area.bottom() - height, area.width(), height);
    Frame window;
    const DrawPage noting = [&](Picture& main, Picture& strip_x, Picture& strip_y) {
        draw(main, strip_x, strip_y);
        window = main.Current_Frame();
    };
    Draw_Page(painter, area.adjusted(0, 0, 0, -height), density, raster, layout, font_family, noting);

    painter.save();
    painter.fillRect(block, Qt::white);
    painter.setPen(QPen(Qt::black, std::max(1.0, density / 2)));
    painter.drawLine(block.topLeft(), block.topRight());
    QFont font(font_family.isEmpty() ? painter.font().family() : font_family);
    font.setPixelSize(std::max(1, qRound(title_font * density)));
    painter.setFont(font);
    const std::vector<std::string> texts = title(window, density * points_an_inch / millimetres_an_inch);
    const double room = area.width() - 2 * title_margin * density;
    double wanted = 0;
    for (const std::string& text : texts)
        wanted += painter.fontMetrics().horizontalAdvance(QString::fromStdString(text));
    const double spare =
        texts.size() > 1 ? std::max(0.0, room - wanted) / static_cast<double>(texts.size() - 1) : 0;
    if (wanted > room && wanted > 0) {
        // Small pictures: smaller letters instead of letters that are cut off.
        font.setPixelSize(std::max(1, static_cast<int>(font.pixelSize() * room / wanted * 0.95)));
        painter.setFont(font);
    }
    double x = block.left() + title_margin * density;
    for (const std::string& text : texts) {
        const QString letters = QString::fromStdString(text);
        const double width = painter.fontMetrics().horizontalAdvance(letters);
        painter.drawText(QRectF(x, block.top(), width + density, height),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, letters);
        x += width + spare;
    }
    painter.restore();
}

}  // namespace

MadePicture Make_Drawing(const std::string& ending, const PictureFormat& format,
                         const std::function<void(const DrawingPaper&)>& paint) {
    const QSizeF paper = QSizeF(format.Width, format.Height) / format.Dpi;  // inches
    const auto paint_on = [&](QPainter& painter, const QSizeF& size, double dots_an_inch, bool raster) {
        paint({painter, QRectF(QPointF(0, 0), size), dots_an_inch / points_an_inch, raster});
    };
    MadePicture made;
    if (ending == ".png" || ending == ".jpg" || ending == ".jpeg" || ending == ".bmp") {
        QImage image(QSize(format.Width, format.Height), QImage::Format_RGB32);
        if (image.isNull()) return {{}, "The picture is too large"};
        const int dots_a_metre = qRound(format.Dpi * inches_a_metre);
        image.setDotsPerMeterX(dots_a_metre);
        image.setDotsPerMeterY(dots_a_metre);
        image.fill(Qt::white);
        QPainter painter(&image);
        paint_on(painter, image.size(), format.Dpi, true);
        painter.end();
        made.Bytes = Bitmap_Bytes(image, ending.c_str() + 1);
    } else if (ending == ".svg") {
        const QSize nominal = (paper * pixels_an_inch).toSize();
        QBuffer buffer(&made.Bytes);
        QSvgGenerator generator;
        generator.setOutputDevice(&buffer);
        generator.setTitle("Tarnvik");
        generator.setResolution(static_cast<int>(pixels_an_inch));
        generator.setSize(nominal);
        generator.setViewBox(QRect(QPoint(0, 0), nominal * svg_grid));
        QPainter painter(&generator);
        paint_on(painter, nominal * svg_grid, svg_grid * pixels_an_inch, false);
    } else if (ending == ".pdf") {
        QBuffer buffer(&made.Bytes);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        writer.setCreator("Tarnvik");
        writer.setResolution(pdf_dots_an_inch);
        writer.setPageSize(
            QPageSize(paper * points_an_inch, QPageSize::Point, QString(), QPageSize::ExactMatch));
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        QPainter painter;
        if (!painter.begin(&writer)) return {{}, "The page cannot be printed"};
        paint_on(painter, QSizeF(writer.width(), writer.height()), writer.logicalDpiX(), false);
        if (!painter.end()) return {{}, "The page cannot be printed"};
    } else if (ending == ".wmf") {
        MetafileDevice device(paper);
        QPainter painter(&device);
        paint_on(painter, device.Size(), device.Dots_An_Inch(), false);
        painter.end();
        made.Bytes = device.Bytes();
    } else {
        return {{}, "No picture of this type can be written"};
    }
    if (made.Bytes.isEmpty()) made.Reason = "The picture cannot be made";
    return made;
}

MadePicture Make_Picture(const std::string& ending, const PictureFormat& format, const PageLayout& layout,
                         const QString& font_family, const DrawPage& draw, const TitleTexts& title) {
    return Make_Drawing(ending, format, [&](const DrawingPaper& paper) {
        if (format.TitleBlock && title) {
            Draw_Titled_Page(paper.Painter, paper.Area, paper.Density, paper.Raster, layout, font_family,
                             draw, title);
        } else {
            Draw_Page(paper.Painter, paper.Area, paper.Density, paper.Raster, layout, font_family, draw);
        }
    });
}

std::string Write_Picture_File(const std::string& path, const PictureFormat& format, const PageLayout& layout,
                               const QString& font_family, const DrawPage& draw, const TitleTexts& title) {
    const std::string ending = "." + QFileInfo(QString::fromStdString(path)).suffix().toLower().toStdString();
    const MadePicture made = Make_Picture(ending, format, layout, font_family, draw, title);
    if (!made.Reason.empty()) return made.Reason + ": " + path;
    return Replace_File(
        path, std::string_view(made.Bytes.constData(), static_cast<std::size_t>(made.Bytes.size())));
}

}  // namespace tarnvik
