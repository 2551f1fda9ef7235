#include "app/pages.h"

#include <chrono>
#include <cmath>

#include "app/local_time.h"
#include "app/session.h"
#include "core/text/number.h"
#include "depth/grm_picture.h"
#include "output/profile_painting.h"
#include "output/report_picture.h"
#include "records/record_files.h"
#include "records/record_header.h"
#include "records/su_loading.h"
#include "traveltime/curve_drawing.h"
#include "traveltime/curves.h"

namespace tarnvik {

ShotColour Curve_Colours(const Workspace& workspace) {
    // A shot without a colour rule keeps that of the shot before it.
    return [&workspace, colour = Colour{0}](int shot) mutable {
        Shot_Colour(workspace, shot, colour);
        return colour;
    };
}

Page Page_On_Screen(const Session& session) {
    if (session.Outside.Show.Tab_In_Sight() == Tab::Section && Page_Can_Be_Drawn(session, Page::Section))
        return Page::Section;
    return session.Work.Curves.FrameDrawn == 2 ? Page::Profile : Page::Curves;
}

bool Is_Report(const Session& session, Page page) {
    return page == Page::Section && session.Report.Shown();
}

PageLayout Layout_Of(const Session& session, Page page) {
    switch (page) {
        case Page::Profile:
            return Profile_Layout();
        case Page::Record:
            return Record_Layout();
        case Page::Section:
            return Is_Report(session, page) ? Report_Layout() : Section_Layout();
        case Page::Curves:
            break;
    }
    return Curves_Layout();
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
        case Page::Section:
            return session.Report.Shown() ? Without_Report(project).empty()
                                          : session.Work.Section.Grid.has_value();
    }
    return false;
}

std::string Page_Scale(const Session& session, Page page, const Frame& window, double pixels_a_millimetre) {
    const Project& project = session.Work.Project;
    // World units of a length unit across, and of a millisecond or a length unit upwards.
    double across = 0;
    double upwards = 0;
    const std::string length = session.Work.Settings.Metric() ? " m" : " ft";
    std::string unit = " ms";
    switch (page) {
        case Page::Curves: {
            const int last = project.NbReceivers;
            if (last < 2) return {};
            const double metres =
                project.ReceiverData(ReceiverDistance, last) - project.ReceiverData(ReceiverDistance, 1);
            if (metres != 0) across = (Position_Ecran(project, last) - Position_Ecran(project, 1)) / metres;
            if (session.Work.Curves.TimeFactor != 0) upwards = 1 / session.Work.Curves.TimeFactor;
            break;
        }
        case Page::Profile: {
            const ProfilePlaces places = Places_Of_Profile(session.Work);
            across = places.UnitsAcross;
            upwards = places.VerticalScale * places.VerticalFactor;
            unit = length;
            break;
        }
        case Page::Section:
            // Drawn in distances and elevations themselves.
            across = 1;
            upwards = 1;
            unit = length;
            break;
        case Page::Record:
            if (project.GeoSpace != 0) across = trace_width / project.GeoSpace;
            if (session.Work.Record.SampleInterval > 0) upwards = 1000.0 / session.Work.Record.SampleInterval;
            break;
    }
    constexpr double millimetres_a_centimetre = 10;
    const double centimetre = millimetres_a_centimetre * pixels_a_millimetre;  // pixels
    const auto meaning = [centimetre](double world, double pixels, double units) {
        const double all = std::abs(world) * units;
        return pixels > 0 && all > 0 ? centimetre * std::abs(world) / (pixels * units) : 0;
    };
    const double x = meaning(window.Right - window.Left, window.Width, std::abs(across));
    const double y = meaning(window.Bottom - window.Top, window.Height, std::abs(upwards));
    const auto text = [](double value, const std::string& of) {
        return Format(value, value < 10 ? "0.00" : value < 100 ? "0.0" : "0") + of;
    };
    std::string scale;
    if (x > 0) scale = text(x, length) + " horizontally";
    if (y > 0) scale += (scale.empty() ? "" : ", ") + text(y, unit) + " vertically";
    if (!scale.empty()) scale = "1 cm = " + scale;
    return scale;
}

std::vector<std::string> Page_Title(const Session& session, Page page, const Frame& window,
                                    double pixels_a_millimetre) {
    const Project& project = session.Work.Project;
    std::string name = "Line " + project.ProjectName;
    switch (page) {
        case Page::Curves:
            name += !Grm_Picture_Stands(session.Work)             ? ", travel times"
                    : session.Work.Grm.Drawn == DisplayMode::GrmV ? ", GRM velocity function"
                                                                  : ", GRM time depth";
            break;
        case Page::Profile:
            name += ", depths";
            break;
        case Page::Record:
            name += ", record " + CStr(int{session.Work.Record.Record});
            break;
        case Page::Section:
            name += ", velocity section";
            break;
    }
    std::vector<std::string> texts = {name};
    const std::string scale = Page_Scale(session, page, window, pixels_a_millimetre);
    if (!scale.empty()) texts.push_back(scale);
    texts.push_back(Local_Time_Text(std::chrono::system_clock::now(), "%Y-%m-%d"));
    return texts;
}

bool Scale_May_Change(Session& session, Page page, double width, double height) {
    const std::string fault = Is_Report(session, page) ? session.Report.Scale_Fault(width, height) : "";
    return fault.empty() ||
           session.Outside.Ask.Ask_Yes(fault + ". Draw it so ?", session.Work.AppTitle, Icon::Warning);
}

namespace {

void Draw_Section_Page(Session& session, const PagePictures& pictures) {
    if (!session.Report.Shown()) {
        Draw_Section(session.Work, session.Section.Scale(),
                     {pictures.Main, pictures.Below, pictures.Beside, pictures.Room});
        return;
    }
    if (!Page_Can_Be_Drawn(session, Page::Section)) {
        pictures.Main.Clear();
        return;
    }
    session.Report.View.Today = Local_Time_Text(std::chrono::system_clock::now(), "%Y-%m-%d");
    Draw_Report(session.Work, session.Report.View, session.Section.Scale(), pictures.Main, pictures.OnPaper);
}

}  // namespace

void Draw_Page(Session& session, Page page, const PagePictures& pictures) {
    switch (page) {
        case Page::Curves: {
            const CurvePictures curves{pictures.Main, &pictures.Below, &pictures.Beside, pictures.OnPaper};
            if (Grm_Picture_Stands(session.Work)) {
                Draw_Grm_On(session.Work, curves);
            } else {
                Draw_Curves_On(session.Work, curves);
            }
            break;
        }
        case Page::Profile:
            Paint_Profile(session.Work, pictures.Main, pictures.Beside);
            break;
        case Page::Record:
            Draw_Traces(session.Work, pictures.Main, Su_Path(session.Work.Project),
                        Curve_Colours(session.Work), pictures.Picks);
            Draw_Time_Scale(session.Work.Record, pictures.Beside);
            Draw_Record_Header(session.Work, pictures.Below, Su_Path(session.Work.Project));
            break;
        case Page::Section:
            Draw_Section_Page(session, pictures);
            break;
    }
}

}  // namespace tarnvik
