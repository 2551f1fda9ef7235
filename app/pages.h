#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/frame.h"
#include "core/page_layout.h"
#include "core/ports/display.h"
#include "core/project.h"
#include "output/section_picture.h"
#include "records/record_display.h"

namespace tarnvik {

class Session;

/// What a page is drawn on: its picture and the scale strips that belong to it, below (of a field record the
/// header above) and on the left. A
/// strip that the page does not use is left alone.
struct PagePictures {
    Picture& Main;
    Picture& Below;
    Picture& Beside;
    bool OnPaper = true;  ///< or on the screen, where what moves under the hand stands as marks
    std::optional<SectionRoom> Room = {};  ///< of a coloured section; nothing: as its letters need it
    bool Picks = true;                     ///< of a field record
};

/// The colours of the travel-time curves, for the record that shows them too. The project must outlive the
/// answer.
ShotColour Curve_Colours(const Workspace& workspace);

/// The page whose picture stands on the screen.
Page Page_On_Screen(const Session& session);

/// True for the section's page while it is that of a report, with a title block and axes of its own: it has
/// no scale strips.
bool Is_Report(const Session& session, Page page);

/// How the page's picture and its strips stand on one page.
PageLayout Layout_Of(const Session& session, Page page);

/// True when the page has something to show.
bool Page_Can_Be_Drawn(const Session& session, Page page);

/// The scale of a page's picture by its window in world units, as it stands on paper: what a centimetre means
/// across and upwards ("1 cm = 5.00 m horizontally, 12.0 ms vertically"). Empty where it cannot be told.
std::string Page_Scale(const Session& session, Page page, const Frame& window, double pixels_a_millimetre);

/// The title block of a page: name of the line and of what is drawn, date of today, scale.
std::vector<std::string> Page_Title(const Session& session, Page page, const Frame& window,
                                    double pixels_a_millimetre);

/// A report whose chosen scale does not fit a paper of that size in mm is drawn in one that does: the user is
/// told and asked. True when it may be drawn.
bool Scale_May_Change(Session& session, Page page, double width, double height);

/// Draws a page by the routine that also draws it on the screen: for the printer, PDF, SVG and PNG. Nothing
/// of the project changes.
void Draw_Page(Session& session, Page page, const PagePictures& pictures);

}  // namespace tarnvik
