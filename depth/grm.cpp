#include "depth/grm.h"

#include <algorithm>
#include <utility>

#include "core/fault.h"
#include "core/text/number.h"
#include "depth/grm_picture.h"

namespace tarnvik {

namespace {

constexpr const char* grm_error = "GRM error";
constexpr int largest_coloured_xy = 16;

GrmFunction Function_Of(DisplayMode mode) {
    return mode == DisplayMode::GrmV ? GrmFunction::Velocity : GrmFunction::TimeDepth;
}

}  // namespace

GRM::GRM(Workspace& workspace, Ports& ports) : Work(workspace), Outside(ports) {}

void GRM::Say(const std::string& text, Icon icon) {
    Outside.Ask.Say(text, Work.AppTitle, icon);
}

bool GRM::Delay_Times_Known() {
    const Project& project = Work.Project;
    double sum = 0;
    for (int receiver = 1; receiver <= project.NbReceivers && project.GrmData.Has(2, receiver); ++receiver)
        sum += project.GrmData(1, receiver) + project.GrmData(2, receiver);
    if (sum != 0) return true;
    Say("First, you must determine Delay Times");
    return false;
}

void GRM::Load() {
    if (!Delay_Times_Known()) return Close();
    GrmOption = VelocityFunction;
    Work.Mode.Take(Dialog::GRM, Mode_Of_Option());
    Minimum = "2";
    Maximum = CStr(std::min(Largest_XY(Work.Project.NbReceivers), largest_coloured_xy));
    Outside.Show.Show_Fields();
}

void GRM::Forget_Curves() {
    Work.Grm.Drawn = DisplayMode::None;
    Work.Grm.Curves.clear();
    Unlight_Grm_Point(Outside);
}

void GRM::Close() {
    Forget_Curves();
    Outside.Show.Close_Dialog(Dialog::GRM);
    Work.Mode.Release(Dialog::GRM);
    Outside.Show.Show_Curves();
}

void GRM::Give_Up_Picture() {
    Forget_Curves();
}

DisplayMode GRM::Mode_Of_Option() const {
    return GrmOption == VelocityFunction ? DisplayMode::GrmV : DisplayMode::Grm;
}

void GRM::XY_Bounds(int& least, int& most) {
    const double half_of_all = Work.Project.NbReceivers / 2.0;
    const std::string largest = CStr(Largest_XY(Work.Project.NbReceivers));
    const std::string too_large = "XY Maximum " + largest + " Receivers...";
    if (Val(Minimum) < 2) {
        Say("XY Minimum 2 Receivers...");
        Minimum = "2";
    }
    if (Val(Maximum) > half_of_all) {
        Say(too_large);
        Maximum = largest;
    }
    if (Val(Minimum) > half_of_all) {
        Say(too_large);
        Minimum = largest;
    }
    if (Val(Minimum) > Val(Maximum)) Minimum = Maximum;
    least = CInt_Or_Fault(Val(Minimum));
    most = CInt_Or_Fault(Val(Maximum));
}

/// The curves of the option into the picture; false after "GRM error".
bool GRM::Compute() {
    const DisplayMode mode = Mode_Of_Option();
    bool broken = Work.Project.LineLength == 0;
    try {
        XY_Bounds(Least, Most);
        GrmCurves found = Curves_Of_Grm(Work.Project, Function_Of(mode), Least, Most,
                                        Work.Velocity.VelocityResult, Val(ReferenceVelocity));
        broken |= found.Broken;
        Work.Velocity.VelocityResult = found.Velocity;
        Work.Grm.Curves = std::move(found.Curves);
        Work.Grm.CurveStep = Int(Val(TimeShift));
        Work.Grm.Drawn = mode;
        Work.Mode.Take(Dialog::GRM, mode);
        Unlight_Grm_Point(Outside);
        Outside.Show.Select_Tab(Tab::Curves);
        Outside.Show.Show_Curves();
    } catch (const Fault&) {
        broken = true;
    }
    if (broken) Say(grm_error, Icon::Critical);
    Outside.Show.Show_Fields();
    return !broken;
}

void GRM::Command1() {
    GrmPrinting = false;
    if (GrmOption == DepthComputation) {
        Outside.Show.Open_Dialog(Dialog::GRM_depth, false);
    } else {
        Compute();
    }
}

void GRM::Command2() {
    GrmPrinting = true;
    if (GrmOption == DepthComputation || !Compute()) return;
    if (!Outside.Show.Print_Page(Page::Curves)) Say("The GRAPHIC cannot be printed", Icon::Critical);
}

void GRM::Follow() {
    if (Work.Grm.Drawn == DisplayMode::None) return;
    Work.Grm.Curves = Curves_Of_Grm(Work.Project, Function_Of(Work.Grm.Drawn), Least, Most,
                                    Work.Velocity.VelocityResult, Val(ReferenceVelocity))
                          .Curves;
    Unlight_Grm_Point(Outside);
}

}  // namespace tarnvik
