#include "batch/headless_display.h"

#include "app/pages.h"
#include "app/session.h"
#include "ui/painting/picture_file.h"

namespace tarnvik {

std::string HeadlessDisplay::Save_Page(Page page, const std::string& path, const PictureFormat& format) {
    const PageLayout layout = page == Page::Curves    ? Curves_Layout()
                              : page == Page::Profile ? Profile_Layout()
                              : page == Page::Section ? Section_Layout()
                                                      : Record_Layout();
    return Write_Picture_File(
        path, format, layout, QString::fromStdString(Owner->Work.Settings.FontName),
        [this, page](Picture& main, Picture& strip_x, Picture& strip_y) {
            Draw_Page(*Owner, page, {main, strip_x, strip_y});
        },
        [this, page](const Frame& window, double pixels_a_millimetre) {
            return Page_Title(*Owner, page, window, pixels_a_millimetre);
        });
}

}  // namespace tarnvik
