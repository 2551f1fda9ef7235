#include "batch/headless_display.h"

#include "app/pages.h"
#include "app/session.h"
#include "ui/painting/picture_file.h"

namespace tarnvik {

std::string HeadlessDisplay::Save_Page(Page page, const std::string& path) {
    const PageLayout layout = page == Page::Curves    ? Curves_Layout()
                              : page == Page::Profile ? Profile_Layout()
                                                      : Record_Layout();
    return Write_Picture_File(path, {Width, Height}, layout,
                              QString::fromStdString(Owner->Work.Settings.FontName),
                              [this, page](Picture& main, Picture& strip_x, Picture& strip_y) {
                                  Draw_Page(*Owner, page, {main, strip_x, strip_y});
                              });
}

}  // namespace tarnvik
