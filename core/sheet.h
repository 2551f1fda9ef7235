#pragma once

#include <functional>
#include <vector>

#include "core/page_layout.h"

namespace tarnvik {

class Picture;

inline constexpr double points_a_millimetre = 72 / 25.4;

/// A rectangle on a sheet of paper, mm from its top left corner.
struct SheetArea {
    double Left = 0;
    double Top = 0;
    double Width = 0;
    double Height = 0;
    double Right() const { return Left + Width; }
    double Bottom() const { return Top + Height; }
};

/// Draws a page on its picture and its two strips; those that the layout lacks swallow what is drawn on them.
using DrawPart = std::function<void(Picture& main, Picture& strip_x, Picture& strip_y)>;

/// One of the pages that stand on a sheet. What it draws on must outlive it.
struct SheetPart {
    SheetArea Area;  ///< with strips and margins
    PageLayout Layout;
    DrawPart Draw;
};

/// A sheet of paper with pages of the program on it, in mm.
struct Sheet {
    double Width = 297;
    double Height = 210;
    std::vector<SheetPart> Parts;  ///< beside each other: each begins by wiping its own area
};

/// The whole area of a page whose world window is to stand there, and the window of an area.
SheetArea Area_Around(const SheetArea& window, const PageLayout& layout);
SheetArea Window_In(const SheetArea& area, const PageLayout& layout);

}  // namespace tarnvik
