#pragma once

#include "core/ports/display.h"
#include "core/project.h"
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
};

/// The colours of the travel-time curves, for the record that shows them too. The project must outlive the
/// answer.
ShotColour Curve_Colours(const Project& project);

/// The page whose picture stands on the screen.
Page Page_On_Screen(const Session& session);

/// True when the page has something to show.
bool Page_Can_Be_Drawn(const Session& session, Page page);

/// Draws a page by the routine that also draws it on the screen: for the printer, PDF, SVG and PNG. Nothing
/// of the project changes.
void Draw_Page(Session& session, Page page, const PagePictures& pictures);

}  // namespace tarnvik
