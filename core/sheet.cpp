#include "core/sheet.h"

namespace tarnvik {

namespace {

/// Room of a layout around the window, mm.
struct Room {
    explicit Room(const PageLayout& layout)
        : Left((layout.StripY + layout.Margins.Left) / points_a_millimetre),
          Top((layout.Header + layout.Margins.Top) / points_a_millimetre),
          Right(layout.Margins.Right / points_a_millimetre),
          Bottom((layout.Margins.Bottom + layout.StripX) / points_a_millimetre) {}
    double Left;
    double Top;
    double Right;
    double Bottom;
};

}  // namespace

SheetArea Area_Around(const SheetArea& window, const PageLayout& layout) {
    const Room room(layout);
    return {window.Left - room.Left, window.Top - room.Top, window.Width + room.Left + room.Right,
            window.Height + room.Top + room.Bottom};
}

SheetArea Window_In(const SheetArea& area, const PageLayout& layout) {
    const Room room(layout);
    return {area.Left + room.Left, area.Top + room.Top, area.Width - room.Left - room.Right,
            area.Height - room.Top - room.Bottom};
}

}  // namespace tarnvik
