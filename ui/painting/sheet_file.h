#pragma once

#include <QPagedPaintDevice>
#include <QPainter>
#include <QString>
#include <functional>
#include <string>
#include <vector>

#include "core/sheet.h"

namespace tarnvik {

/// Told how many sheets are done; answers false to stop.
using SheetProgress = std::function<bool(int done)>;

/// A sheet on a painter, its top left corner at (0, 0). On a raster, places are whole pixels.
void Draw_Sheet(QPainter& painter, const Sheet& sheet, double pixels_a_millimetre, bool raster,
                const QString& font_family);

/// The same, laid out as on fine paper and brought to this size: what a preview shows is what is printed.
void Preview_Sheet(QPainter& painter, const Sheet& sheet, double pixels_a_millimetre,
                   const QString& font_family);

/// Sheets `first` to `last` (from 0) on a printer or PDF, each in its true size from the paper's corner.
/// Answers the reason of a failure, empty when it went well or was stopped.
std::string Print_Sheets(QPagedPaintDevice& device, const std::vector<Sheet>& sheets, int first, int last,
                         const QString& font_family, const SheetProgress& progress = {});

/// Writes the sheets: all of them to the one file of a ".pdf", otherwise each to the file of its place
/// (".svg", ".wmf", ".png", ".jpg"). Bitmaps have `dpi` pixels an inch. A file that cannot be written leaves
/// the old one whole; a stopped run writes no further one. Answers the reason of a failure, empty when it
/// went well or was stopped.
std::string Write_Sheets(const std::vector<Sheet>& sheets, const std::vector<std::string>& files, double dpi,
                         const QString& font_family, const SheetProgress& progress = {});

}  // namespace tarnvik
