#include "app/session_display.h"

#include <algorithm>
#include <utility>

#include "app/pages.h"
#include "app/record_choices.h"
#include "app/session.h"
#include "depth/grm_picture.h"
#include "output/profile_painting.h"
#include "records/su_loading.h"
#include "setup/build_grid.h"
#include "traveltime/curve_drawing.h"
#include "traveltime/curve_labels.h"
#include "traveltime/curve_overlays.h"
#include "traveltime/curve_selection.h"
#include "traveltime/curves.h"
#include "traveltime/shot_grid.h"

namespace tarnvik {

namespace {
// More cells than these are shown by one comparison of the whole table.
constexpr std::size_t most_single_cells = 50;
// A drawing that asks for itself must not turn for ever.
constexpr int most_rounds = 3;
}  // namespace

bool SessionDisplay::Has(const std::vector<Request>& requests, Request request) {
    return std::find(requests.begin(), requests.end(), request) != requests.end();
}

bool SessionDisplay::Waiting() const {
    return Held > 0 || Owner->Work.Edits.Is_Open();
}

void SessionDisplay::Ask(Request request) {
    if (!Waiting()) {
        Do(request);
        return;
    }
    std::erase(Wanted, request);
    Wanted.push_back(request);
}

void SessionDisplay::Show_Cell(int row, int column) {
    if (Waiting()) {
        WantedCells.insert({row, column});
    } else {
        Refresh_Cell(row, column);
    }
}

void SessionDisplay::Repaint_Page(Page page) {
    switch (page) {
        case Page::Curves:
            Ask(Request::PaintCurves);
            break;
        case Page::Record:
            Ask(Request::Record);
            break;
        case Page::Profile:
            Ask(Request::Profile);
            break;
        case Page::Section:
            Ask(Request::Section);
            break;
    }
}

void SessionDisplay::Release_Redraws() {
    struct Releasing {
        int& Held;
        ~Releasing() { --Held; }
    };
    {
        const Releasing releasing{Held};
        if (Held > 1 || Owner->Work.Edits.Is_Open()) return;
        // What a drawing asks for in its turn (the grids, the fields) joins what is still to be done.
        for (int round = 0; round < most_rounds && Do_Drawings(); ++round) {
        }
    }
    const std::vector<Request> wanted = std::exchange(Wanted, {});
    const auto cells = std::exchange(WantedCells, {});
    if (Has(wanted, Request::Grids) || cells.size() > most_single_cells) {
        Do(Request::Grids);
    } else {
        for (const auto& [row, column] : cells)
            Refresh_Cell(row, column);
    }
    if (Has(wanted, Request::Fields)) Do(Request::Fields);
}

bool SessionDisplay::Do_Drawings() {
    std::vector<Request> drawings;
    for (const Request request : Wanted) {
        if (request != Request::Grids && request != Request::Fields) drawings.push_back(request);
    }
    // A drawing makes the painting of the same picture needless.
    if (Has(drawings, Request::Curves)) std::erase(drawings, Request::PaintCurves);
    std::erase_if(Wanted,
                  [](Request request) { return request != Request::Grids && request != Request::Fields; });
    for (const Request request : drawings)
        Do(request);
    return !drawings.empty();
}

void SessionDisplay::Do(Request request) {
    switch (request) {
        case Request::Curves:
            Draw_Curves();
            break;
        case Request::Record:
            Draw_Record();
            break;
        case Request::Profile:
            Draw_Profile();
            break;
        case Request::PaintCurves:
            Paint_Curves();
            break;
        case Request::Section:
            Paint_Section();
            break;
        case Request::Grids:
            Refresh_Grids();
            break;
        case Request::Fields:
            Refresh_Fields();
            break;
    }
}

void SessionDisplay::Draw_Curves() {
    // The table follows the model with every redraw of the curves; the drawing ends by showing the grids.
    Fill_Grid(Owner->Work);
    if (Grm_Picture_Stands(Owner->Work)) {
        Show_Grm();
    } else {
        tarnvik::Show_Curves(Owner->Work, Owner->Outside);
    }
}

void SessionDisplay::Draw_Record() {
    const Project& project = Owner->Work.Project;
    Take_Up_Record_Choices(Owner->Work);
    tarnvik::Display_Record(Owner->Work, Owner->Outside, Su_Path(project), Curve_Colours(Owner->Work));
    Note_Record_Choices(Owner->Work);
    Owner->PickKeys.Follow();
}

void SessionDisplay::Draw_Profile() {
    if (!Page_Can_Be_Drawn(*Owner, Page::Profile)) return;
    Paint_Profile(Owner->Work, Canvas_Of(Canvas::Dromo1), Canvas_Of(Canvas::EchelleY1));
}

/// The GRM curves in the place of the travel times, and the profile gives way to them.
void SessionDisplay::Show_Grm() {
    Workspace& work = Owner->Work;
    work.Fields.Text1.clear();
    work.Mode.Display(DisplayMode::Dromo);
    work.Curves.FrameDrawn = 1;
    Fill_Shot_Grid(work);
    Paint_Curves();
    Canvas_Of(Canvas::Dromo).Set_Pointer(PointerShape::Cross);
    Show_Grids();
}

void SessionDisplay::Paint_Curves() {
    if (!Page_Can_Be_Drawn(*Owner, Page::Curves)) return;
    // The band and the cross go with the old picture.
    Owner->Work.Curves.Band = {};
    Owner->Work.Curves.Cross = {};
    Unlight_Curve(Owner->Work, Owner->Outside);
    Draw_Page(*Owner, Page::Curves,
              {Canvas_Of(Canvas::Dromo), Canvas_Of(Canvas::EchelleX), Canvas_Of(Canvas::EchelleY), false});
    Workspace& work = Owner->Work;
    if (Grm_Picture_Stands(work)) {
        work.Curves.Labels.clear();
    } else {
        work.Curves.Labels = Labels_Of_Curves(work, Canvas_Of(Canvas::Dromo));
        // On the screen alone: a print has no pick on the pointer.
        Draw_Caught_Pick(Canvas_Of(Canvas::Dromo), work);
    }
    if (work.Curves.DoubleView == 1) {
        // The second window shows the travel times whatever stands in the first.
        Draw_Curves_On(work, {Canvas_Of(Canvas::Dromo2), nullptr, nullptr, false});
        work.Curves.Labels2 = Labels_Of_Curves(work, Canvas_Of(Canvas::Dromo2));
    }
    Show_Moving_Marks(work, Owner->Outside);
}

/// Without a section the pictures are white: the former one is another line's.
void SessionDisplay::Paint_Section() {
    Draw_Page(*Owner, Page::Section,
              {Canvas_Of(Canvas::Section), Canvas_Of(Canvas::SectionX), Canvas_Of(Canvas::SectionZ), false});
    if (!Owner->Report.Shown()) Owner->Section.Draw_Cut();
}

void SessionDisplay::Refresh_Cell(int, int) {
    Refresh_Grids();
}

}  // namespace tarnvik
