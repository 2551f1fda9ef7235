#include "app/pages.h"

#include "app/session.h"
#include "output/profile_painting.h"
#include "records/record_header.h"
#include "records/su_loading.h"
#include "traveltime/curve_drawing.h"
#include "traveltime/curves.h"

namespace tarnvik {

ShotColour Curve_Colours(const Project& project) {
    // A shot without a colour rule keeps that of the shot before it.
    return [&project, colour = Colour{0}](int shot) mutable {
        Couleur_Tir(project, shot, colour);
        return colour;
    };
}

Page Page_On_Screen(const Session& session) {
    return session.Work.Curves.FrameDrawn == 2 ? Page::Profile : Page::Curves;
}

bool Page_Can_Be_Drawn(const Session& session, Page page) {
    const Project& project = session.Work.Project;
    switch (page) {
        case Page::Curves:
            return project.ShotTimes.Last_Row() > 0 && project.LineLength != 0;
        case Page::Profile:
            return project.ShotTimes.Last_Row() > 0 && project.LineLength != 0 &&
                   session.Work.Curves.FrameDrawn == 2;
        case Page::Record:
            return session.Work.Record.RecordWidth > 0;
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
            Draw_Traces(session.Work, pictures.Main, Su_Path(session.Work.Project),
                        Curve_Colours(session.Work.Project));
            Draw_Time_Scale(session.Work.Record, pictures.Beside);
            Draw_Record_Header(session.Work, pictures.Below, Su_Path(session.Work.Project));
            break;
    }
}

}  // namespace tarnvik
