#include "app/pages.h"

#include "app/session.h"
#include "output/profile_painting.h"
#include "traveltime/curve_drawing.h"

namespace tarnvik {

bool Page_Can_Be_Drawn(const Session& session, Page page) {
    const Project& project = session.Work.Project;
    switch (page) {
        case Page::Curves:
            return project.ShotTimes.Last_Row() > 0 && project.LineLength != 0;
        case Page::Profile:
            return project.ShotTimes.Last_Row() > 0 && project.LineLength != 0 &&
                   session.Work.Curves.FrameDrawn == 2;
        case Page::Record:
            return !project.SuFile.empty();
    }
    return false;
}

void Draw_Page(Session& session, Page page, const PagePictures& pictures) {
    switch (page) {
        case Page::Curves:
            Draw_Curves_On(session.Work, {pictures.Main, &pictures.Below, &pictures.Beside});
            break;
        case Page::Profile:
            Paint_Profile(session.Work, pictures.Main, pictures.Beside);
            break;
        case Page::Record:
            break;
    }
}

}  // namespace tarnvik
