#include "app/session_display.h"

#include "app/pages.h"
#include "app/session.h"
#include "output/profile_painting.h"
#include "records/su_loading.h"
#include "setup/build_grid.h"
#include "traveltime/curves.h"

namespace tarnvik {

void SessionDisplay::Show_Curves() {
    // The table follows the model with every redraw of the curves; the drawing ends by showing the grids.
    Fill_Grid(Owner->Work);
    tarnvik::Show_Curves(Owner->Work, Owner->Outside);
}

void SessionDisplay::Display_Record() {
    const Project& project = Owner->Work.Project;
    tarnvik::Display_Record(Owner->Work, Owner->Outside, Su_Path(project), Curve_Colours(project));
}

void SessionDisplay::Show_Profile() {
    if (!Page_Can_Be_Drawn(*Owner, Page::Profile)) return;
    Paint_Profile(Owner->Work, Canvas_Of(Canvas::Dromo1), Canvas_Of(Canvas::EchelleY1));
}

}  // namespace tarnvik
