#include "ui/painting/sheet_file.h"

#include <QBuffer>
#include <QFileInfo>
#include <QPdfWriter>
#include <algorithm>
#include <cmath>

#include "core/files.h"
#include "ui/painting/picture_file.h"

namespace tarnvik {

namespace {

constexpr double millimetres_an_inch = 25.4;
constexpr int pdf_dots_an_inch = 600;
constexpr const char* cannot_print = "The page cannot be printed";

QSizeF Points_Of(const Sheet& sheet) {
    return QSizeF(sheet.Width, sheet.Height) * points_a_millimetre;
}

/// Pixels of a bitmap and inches of a drawing come from one size.
PictureFormat Format_Of(const Sheet& sheet, double dpi) {
    const auto pixels = [dpi](double size) {
        return std::max(1, static_cast<int>(std::lround(size / millimetres_an_inch * dpi)));
    };
    return {.Width = pixels(sheet.Width), .Height = pixels(sheet.Height), .Dpi = dpi};
}

std::string Store(const std::string& path, const QByteArray& bytes) {
    const std::string reason =
        Replace_File(path, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    return reason.empty() ? reason : path + " cannot be written: " + reason;
}

std::string Ending_Of(const std::string& path) {
    return "." + QFileInfo(QString::fromStdString(path)).suffix().toLower().toStdString();
}

std::string Write_Document(const std::vector<Sheet>& sheets, const std::string& file,
                           const QString& font_family, const SheetProgress& progress) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    bool stopped = false;
    {
        QPdfWriter writer(&buffer);
        writer.setCreator("Tarnvik");
        writer.setResolution(pdf_dots_an_inch);
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        const SheetProgress watched = [&](int done) {
            stopped = progress && !progress(done);
            return !stopped;
        };
        const std::string reason =
            Print_Sheets(writer, sheets, 0, static_cast<int>(sheets.size()) - 1, font_family, watched);
        if (!reason.empty()) return reason;
    }
    return stopped ? std::string() : Store(file, bytes);
}

}  // namespace

void Draw_Sheet(QPainter& painter, const Sheet& sheet, double pixels_a_millimetre, bool raster,
                const QString& font_family) {
    const double density = pixels_a_millimetre / points_a_millimetre;
    for (const SheetPart& part : sheet.Parts) {
        QRectF area(part.Area.Left * pixels_a_millimetre, part.Area.Top * pixels_a_millimetre,
                    part.Area.Width * pixels_a_millimetre, part.Area.Height * pixels_a_millimetre);
        if (raster) area = QRectF(area.toRect());
        Draw_Page(painter, area, density, raster, part.Layout, font_family, part.Draw);
    }
}

void Preview_Sheet(QPainter& painter, const Sheet& sheet, double pixels_a_millimetre,
                   const QString& font_family) {
    const double fine = pdf_dots_an_inch / millimetres_an_inch;
    painter.save();
    painter.scale(pixels_a_millimetre / fine, pixels_a_millimetre / fine);
    Draw_Sheet(painter, sheet, fine, false, font_family);
    painter.restore();
}

std::string Print_Sheets(QPagedPaintDevice& device, const std::vector<Sheet>& sheets, int first, int last,
                         const QString& font_family, const SheetProgress& progress) {
    first = std::max(first, 0);
    last = std::min(last, static_cast<int>(sheets.size()) - 1);
    if (first > last) return {};
    const auto take_size = [&](const Sheet& sheet) {
        // A printer keeps the paper that the user has chosen for it.
        if (dynamic_cast<QPdfWriter*>(&device) != nullptr) {
            device.setPageSize(
                QPageSize(Points_Of(sheet), QPageSize::Point, QString(), QPageSize::ExactMatch));
        }
    };
    take_size(sheets[static_cast<std::size_t>(first)]);
    QPainter painter;
    if (!painter.begin(&device)) return cannot_print;
    for (int index = first; index <= last; ++index) {
        const Sheet& sheet = sheets[static_cast<std::size_t>(index)];
        if (index > first) {
            take_size(sheet);
            if (!device.newPage()) return cannot_print;
        }
        Draw_Sheet(painter, sheet, device.logicalDpiX() / millimetres_an_inch, false, font_family);
        if (progress && !progress(index - first + 1)) break;
    }
    return painter.end() ? std::string() : std::string(cannot_print);
}

std::string Write_Sheets(const std::vector<Sheet>& sheets, const std::vector<std::string>& files, double dpi,
                         const QString& font_family, const SheetProgress& progress) {
    if (sheets.empty() || files.empty()) return "There is nothing to be drawn";
    if (Ending_Of(files.front()) == ".pdf")
        return Write_Document(sheets, files.front(), font_family, progress);
    for (std::size_t index = 0; index < std::min(sheets.size(), files.size()); ++index) {
        const Sheet& sheet = sheets[index];
        const std::string ending = Ending_Of(files[index]);
        const bool bitmap = ending != ".svg" && ending != ".wmf";
        const MadePicture made = Make_Drawing(
            ending, Format_Of(sheet, bitmap ? dpi : pdf_dots_an_inch), [&](const DrawingPaper& paper) {
                Draw_Sheet(paper.Painter, sheet, paper.Density * points_a_millimetre, paper.Raster,
                           font_family);
            });
        if (!made.Reason.empty()) return files[index] + ": " + made.Reason;
        const std::string reason = Store(files[index], made.Bytes);
        if (!reason.empty()) return reason;
        if (progress && !progress(static_cast<int>(index) + 1)) break;
    }
    return {};
}

}  // namespace tarnvik
