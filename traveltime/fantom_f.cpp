#include "traveltime/fantom_f.h"

#include <algorithm>
#include <utility>

#include "core/fault.h"
#include "core/project_file.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "traveltime/curve_drawing.h"
#include "traveltime/curve_overlays.h"
#include "traveltime/curves.h"
#include "traveltime/shot_grid.h"

namespace tarnvik {

namespace {

constexpr double steps_per_unit = 10;  // of the scroll bar
constexpr int fixed_width = 2;

bool Is_Shot(const Project& project, int shot) {
    return shot >= 1 && shot <= project.NbShots && project.ShotDistance.Has(shot);
}

int Whole_Number(const std::string& text) {
    return CInt(Val(text)).value_or(0);
}

}  // namespace

FantomF::FantomF(Workspace& workspace, Ports& ports, FileRoutines files)
    : Work(workspace), Outside(ports), Files(std::move(files)) {}

void FantomF::Load() {
    Take_Picture();
    ColoursByVelocity = std::exchange(Work.Settings.ColorChoice, false);
    ShotEntries = Numbers_Up_To(Work.Project.NbShots);
    const int shot = Work.Velocity.CurrentShot;
    FixedShot = Is_Shot(Work.Project, shot) ? CStr(shot) : std::string();
    MovingShot.clear();
    InterceptNumber.clear();
    InterceptTime.clear();
    ShiftText.clear();
    Slope = 0;
    Work.Velocity.ShotSide = 0;
    VScroll1 = {0, range_low, range_high};
    Fixed = 0;
    Moving = {};
    HasRecorded = false;
    Work.Curves.Overlays[Dialog::FantomF] = {
        [this](Picture& picture) { Draw_Fixed(picture); },
        [this] { return Marks_Of_Moving_Curve(Work, Moving); },
    };
    if (ColoursByVelocity) Outside.Show.Repaint_Page(Page::Curves);
    Outside.Show.Show_Fields();
}

void FantomF::Close() {
    Fixed = 0;
    Moving = {};
    Forget_Overlay(Work, Outside, Dialog::FantomF);
    Outside.Show.Close_Dialog(Dialog::FantomF);
    Work.Mode.Release(Dialog::FantomF);
    Work.Curves.DragStartX = 0;
    Show_Alone(Work.Curves, 0);
    if (std::exchange(ColoursByVelocity, false)) Work.Settings.ColorChoice = true;
    Outside.Show.Show_Curves();
}

/// The shot that a box names; a wrong one is told, and the nearest one counts.
int FantomF::Correct_Shot(std::string& box) {
    const double typed = Val(box);
    const double shot = std::clamp<double>(Rounded(typed), 1, Work.Project.NbShots);
    if (Rounded(typed) != shot) Outside.Ask.Say("Wrong shot Number", Work.AppTitle);
    box = CStr(static_cast<int>(shot));
    return static_cast<int>(shot);
}

/// At equal places neither side is the better one: the choice stays.
void FantomF::Follow_Places() {
    const Project& project = Work.Project;
    if (!Is_Shot(project, Fixed) || !Is_Shot(project, Moving.Shot)) return;
    const double fixed = project.ShotDistance(Fixed);
    const double moving = project.ShotDistance(Moving.Shot);
    if (fixed == moving) return;
    Slope = fixed > moving ? slope_right : slope_left;
    Slope_Changed();
}

void FantomF::Hide_Pair() {
    VScroll1.Value = 0;
    ShiftText.clear();
    if (Fixed == 0) return;
    Fixed = 0;
    Moving = {};
    Outside.Show.Repaint_Page(Page::Curves);
    Show_Moving_Marks(Work, Outside);
}

void FantomF::Pair_Changed() {
    if (Fixed != 0 && FixedShot == CStr(Fixed) && MovingShot == CStr(Moving.Shot)) return;
    if (Trim(FixedShot).empty() || Trim(MovingShot).empty()) {
        Hide_Pair();
        return Outside.Show.Show_Fields();
    }
    Slide_To(0);
}

void FantomF::VScroll1_Changed() {
    Slide_To(VScroll1.Value / steps_per_unit);
}

void FantomF::Slope_Changed() {
    Work.Velocity.ShotSide = static_cast<std::int16_t>(Slope);
}

void FantomF::Take_Picture() {
    Work.Mode.Take(Dialog::FantomF, DisplayMode::Fantom);
}

void FantomF::Slide_To(double shift) {
    if (Work.Project.NbShots < 1) return;
    Take_Picture();
    const int fixed = Correct_Shot(FixedShot);
    const int moving = Correct_Shot(MovingShot);
    const bool other_fixed = std::exchange(Fixed, fixed) != fixed;
    Moving.Shot = moving;
    Moving.Shift = std::clamp(shift, range_low / steps_per_unit, range_high / steps_per_unit);
    VScroll1 = {static_cast<int>(Rounded(Moving.Shift * steps_per_unit)), range_low, range_high};
    ShiftText = Format(-Moving.Shift * Work.Curves.TimeFactor, "0.0") + " ms";
    if (other_fixed) {
        if (Work.Curves.ShotAlone != 0) Work.Curves.ShotAlone = fixed;
        Outside.Show.Repaint_Page(Page::Curves);
    }
    Show_Moving_Marks(Work, Outside);
    Follow_Places();
    Outside.Show.Show_Fields();
}

/// The fixed curve over all others, so that it is seen which one the branch is laid on.
void FantomF::Draw_Fixed(Picture& picture) const {
    const Project& project = Work.Project;
    if (!Is_Shot(project, Fixed)) return;
    CurveStyle style;
    style.InColour = colours::Red;
    style.TimeFactor = Work.Curves.TimeFactor;
    style.LineLength = project.LineLength;
    style.ZoomX = Work.Curves.ZoomX;
    style.Numbers = false;
    Keep_To_Window(style, Work.Curves);
    picture.Set_Draw_Width(fixed_width);
    try {
        Draw_Curve_On(picture, project, Work.Settings, Fixed, style);
    } catch (const Fault&) {
        // A line without a length has no curves.
    }
    picture.Set_Draw_Width(1);
}

void FantomF::Take_Time(double y) {
    constexpr double hundredths = 100;
    InterceptTime = CStr(Rounded(hundredths * Work.Curves.PickFactor * y) / hundredths);
    Outside.Show.Show_Fields();
}

void FantomF::Command6() {
    Fixed = 0;
    Moving.Shot = 0;
    // Whatever paints the picture from now on leaves the other curves aside.
    const int fixed = Whole_Number(FixedShot);
    if (Is_Shot(Work.Project, fixed)) Work.Curves.ShotAlone = fixed;
    Dessine_Cadre(Work, Outside);
    Show_Moving_Marks(Work, Outside);
}

void FantomF::Refuse(const std::string& text) {
    Outside.Ask.Say(text, Work.AppTitle, Icon::Critical);
}

bool FantomF::Confirmed(int shot, int number, double intercept) {
    const std::string line_end = "\r\n";
    return Outside.Ask.Ask_Yes("Data for Shot number " + CStr(shot) + line_end + "Intercept number        " +
                                   CStr(number) + line_end + "Intercept time (ms)    " + CStr(intercept) +
                                   line_end + "Slope inclination from receiver " + CStr(Slope) + line_end +
                                   "OK to save Data ",
                               Work.AppTitle);
}

void FantomF::Command2() {
    HasRecorded = false;
    const double intercept = Work.Velocity.InterceptResult = Val(InterceptTime);
    const int shot = Whole_Number(FixedShot);
    if (Is_Shot(Work.Project, shot)) Work.Velocity.CurrentShot = static_cast<std::int16_t>(shot);
    const int number = Whole_Number(InterceptNumber);
    if (number < 1 || number > Project::MaxRefractors) return Refuse("Intercept Time number missing...");
    if (Slope == 0) return Refuse("Slope missing...");
    if (intercept == 0) return Refuse("Intercept Time missing...");
    if (!Is_Shot(Work.Project, shot)) return Refuse("Shot number missing...");
    if (!CInt(intercept * file_refractor_scale))
        return Refuse("Intercept time too large: a project file holds up to 3276.7 ms");
    if (!Confirmed(shot, number, intercept)) return;

    const bool left = Slope == slope_left;
    EditScope edit(Work,
                   "Intercept " + CStr(number) + " of shot " + CStr(shot) + (left ? ", side A" : ", side B"));
    (left ? Work.Project.InterceptA : Work.Project.InterceptB)(shot, number) = intercept;
    edit.End();
    HasRecorded = Files.SaveProject && Files.SaveProject(Work, Outside);
    Outside.Show.Show_Fields();
}

void FantomF::Shots_Changed() {
    ShotEntries = Numbers_Up_To(Work.Project.NbShots);
    if (Fixed > Work.Project.NbShots || Moving.Shot > Work.Project.NbShots) Hide_Pair();
}

}  // namespace tarnvik
