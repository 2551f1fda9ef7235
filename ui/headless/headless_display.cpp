#include "ui/headless/headless_display.h"

#include "app/pages.h"
#include "app/session.h"
#include "ui/painting/picture_file.h"

namespace tarnvik {

std::string HeadlessDisplay::Save_Page(Page page, const std::string& path, const PictureFormat& format) {
    PictureFormat with_title = format;
    // A report has a title block of its own.
    if (Is_Report(*Owner, page)) with_title.TitleBlock = false;
    return Write_Picture_File(
        path, with_title, Layout_Of(*Owner, page), QString::fromStdString(Owner->Work.Settings.FontName),
        [this, page](Picture& main, Picture& strip_x, Picture& strip_y) {
            Draw_Page(*Owner, page, {main, strip_x, strip_y});
        },
        [this, page](const Frame& window, double pixels_a_millimetre) {
            return Page_Title(*Owner, page, window, pixels_a_millimetre);
        });
}

}  // namespace tarnvik
