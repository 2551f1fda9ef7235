#include "app/delay_commands.h"

#include "app/dialog_commands.h"
#include "app/session.h"
#include "app/view_commands.h"
#include "traveltime/shot_grid.h"

namespace tarnvik {

namespace {

bool Has_Intercepts(const Project& project) {
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        for (int refractor = 1; refractor <= Project::MaxRefractors; ++refractor) {
            if (project.InterceptA(shot, refractor) != 0 || project.InterceptB(shot, refractor) != 0)
                return true;
        }
    }
    return false;
}

}  // namespace

void Show_Delay_Dialog(Session& session) {
    Open_Over_Curves(session, Dialog::DelayF);
}

void Show_Abc_Dialog(Session& session) {
    if (!Has_Intercepts(session.Work.Project)) {
        session.Outside.Ask.Say("You must first determine intercept Times", session.Work.AppTitle);
        return;
    }
    session.Outside.Show.Open_Dialog(Dialog::ABCGridF, false);
}

void Edit_Delays(Session& session) {
    session.Outside.Show.Open_Dialog(Dialog::ABCGridF, false);
    session.Abc.AbcOption = ABCGridF::grid_values;
    session.Abc.Option_Changed();
}

void Toggle_Delay_Curve(Session& session) {
    if (session.Delay.Delay_Curve_Shown()) {
        session.Delay.Hide_Delay_Curve();
        session.Outside.Show.Repaint_Page(Page::Curves);
        session.Outside.Show.Show_Fields();
        return;
    }
    if (!session.Delay.Show_Delay_Curve()) return;
    session.Outside.Show.Select_Tab(Tab::Curves);
    // A profile that holds the picture gives way.
    if (session.Work.Curves.FrameDrawn == 1) {
        session.Outside.Show.Repaint_Page(Page::Curves);
    } else {
        session.Outside.Show.Show_Curves();
    }
    session.Outside.Show.Show_Fields();
}

void Show_Curves_And_Delay(Session& session) {
    if (!session.Delay.Show_Delay_Curve()) return;
    Show_Alone(session.Work.Curves, 0);
    Clear_Selection(session.Work.Curves);
    session.Outside.Show.Select_Tab(Tab::Curves);
    session.Outside.Show.Show_Curves();
    session.Outside.Show.Show_Fields();
}

}  // namespace tarnvik
