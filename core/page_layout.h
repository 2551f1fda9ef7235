#pragma once

namespace tarnvik {

/// Room around the world window of a picture, in points. Figures end at the window; texts may run into the
/// room and are moved so far that none is cut.
struct PictureMargins {
    double Left = 0;
    double Top = 0;
    double Right = 0;
    double Bottom = 0;
};

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

}  // namespace tarnvik
