#include "app/session_display.h"

#include <algorithm>
#include <utility>

#include "app/pages.h"
#include "app/session.h"
#include "core/ports/silent_picture.h"
#include "output/profile.h"
#include "records/su_loading.h"
#include "setup/build_grid.h"
#include "traveltime/curves.h"

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
    Ask(page == Page::Curves   ? Request::PaintCurves
        : page == Page::Record ? Request::PaintRecord
                               : Request::PaintProfile);
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
    for (const auto& [drawing, painting] :
         {std::pair(Request::Curves, Request::PaintCurves), std::pair(Request::Record, Request::PaintRecord),
          std::pair(Request::Profile, Request::PaintProfile)}) {
        if (Has(drawings, drawing)) std::erase(drawings, painting);
        std::erase(Wanted, drawing);
        std::erase(Wanted, painting);
    }
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
            Paint_Again(Page::Curves);
            break;
        case Request::PaintRecord:
            Paint_Again(Page::Record);
            break;
        case Request::PaintProfile:
            Paint_Again(Page::Profile);
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
    tarnvik::Show_Curves(Owner->Work, Owner->Outside);
}

void SessionDisplay::Draw_Record() {
    const Project& project = Owner->Work.Project;
    tarnvik::Display_Record(Owner->Work, Owner->Outside, Su_Path(project), Curve_Colours(project));
}

void SessionDisplay::Draw_Profile() {
    Draw_Seismic_Profile(Owner->Work, Owner->Outside);
}

void SessionDisplay::Paint_Again(Page page) {
    if (!Page_Can_Be_Drawn(*Owner, page)) return;
    SilentPicture none;
    switch (page) {
        case Page::Curves:
            Draw_Page(*Owner, page,
                      PagePictures{Canvas_Of(Canvas::Dromo), Canvas_Of(Canvas::EchelleX),
                                   Canvas_Of(Canvas::EchelleY)});
            if (Owner->Work.Curves.DoubleView == 1)
                Draw_Page(*Owner, page, PagePictures{Canvas_Of(Canvas::Dromo2), none, none});
            break;
        case Page::Profile:
            Draw_Page(*Owner, page,
                      PagePictures{Canvas_Of(Canvas::Dromo1), none, Canvas_Of(Canvas::EchelleY1)});
            break;
        case Page::Record:
            Draw_Record();
            break;
    }
}

void SessionDisplay::Refresh_Cell(int, int) {
    Refresh_Grids();
}

}  // namespace tarnvik
