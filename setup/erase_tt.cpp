#include "setup/erase_tt.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/text/letters.h"
#include "core/text/number.h"
#include "records/set_pick.h"
#include "setup/build_grid.h"
#include "setup/trigger_correction.h"
#include "traveltime/curve_overlays.h"
#include "traveltime/curves.h"
#include "traveltime/shot_grid.h"

namespace tarnvik {

namespace {

constexpr const char* wrong_shot = "Wrong Shot number";
constexpr const char* unsaved_question = "Save trace translation ?";

std::string Tenths(double ms) {
    return CStr(Rounded(ms * 10) / 10);
}

}  // namespace

Erase_TT::Erase_TT(Workspace& workspace, Ports& ports, FileRoutines files)
    : Work(workspace), Outside(ports), Files(std::move(files)) {}

void Erase_TT::Load() {
    Work.Mode.Take(Dialog::Erase_TT, DisplayMode::Dromo);
    IsOpen = true;
    Unsaved = false;
    ProjectShown = Work.Project.CurrentFile;
    ShotEntries = Numbers_Up_To(Work.Project.NbShots);
    const int shot = Work.Velocity.CurrentShot;
    Shot = CStr(shot >= 1 && shot <= Work.Project.NbShots ? shot : 1);
    Shift = "0";
    FixedShot = CInt(Val(Shot)).value_or(0);
    TranslationShift = 0;
    Work.Curves.Overlays[Dialog::Erase_TT].Moving = [this] {
        return TranslationShift == 0 ? std::vector<Mark>() : Marks_Of_Moving_Curve(Work, Curve());
    };
    if (OnlySelected) Check1_Clicked();
    Show_Moving_Marks(Work, Outside);
    Outside.Show.Show_Fields();
}

void Erase_TT::Close() {
    if (!IsOpen) return;
    Offer_To_Save();
    IsOpen = false;
    TranslationShift = 0;
    if (OnlySelected) tarnvik::Show_Alone(Work.Curves, 0);
    Forget_Overlay(Work, Outside, Dialog::Erase_TT);
    Outside.Show.Close_Dialog(Dialog::Erase_TT);
    Work.Mode.Release(Dialog::Erase_TT);
    Outside.Show.Show_Curves();
}

bool Erase_TT::Belongs_To_Project() const {
    const int shot = CInt(Val(Shot)).value_or(0);
    return ProjectShown == Work.Project.CurrentFile && shot >= 1 && shot <= Work.Project.NbShots;
}

void Erase_TT::Offer_To_Save() {
    if (!std::exchange(Unsaved, false) || !Belongs_To_Project()) return;
    if (Outside.Ask.Ask_Yes(unsaved_question, Work.AppTitle)) Save_TT_Translation();
}

MovingCurve Erase_TT::Curve() const {
    MovingCurve curve;
    if (!IsOpen || !Belongs_To_Project()) return curve;
    curve.Shot = FixedShot;
    if (Work.Curves.TimeFactor > 0) curve.Shift = TranslationShift / Work.Curves.TimeFactor;
    Colour own = 0;
    Shot_Colour(Work, curve.Shot, own);
    // Apart from the curve where it stands, which stays in sight.
    const bool alone = Work.Curves.ShotAlone == curve.Shot;
    curve.InColour = own == colours::Blue && !alone ? colours::Red : colours::Blue;
    return curve;
}

void Erase_TT::Step(double ms) {
    Shift = CStr(Val(Shift) + ms);
    Move_TT();
}

void Erase_TT::Step_On_Screen(bool up, bool quick) {
    const double later = quick ? -quick_step : -slow_step;
    Step(up != Work.Curves.ZeroOnTop ? later : -later);
}

void Erase_TT::Take_Shift(double ms) {
    Shift = CStr(ms);
    Move_TT();
}

void Erase_TT::Choose(int shot) {
    if (Shot == CStr(shot)) return;
    Shot = CStr(shot);
    Shot_Changed();
}

void Erase_TT::Shot_Changed() {
    const int shot = CInt(Val(Shot)).value_or(0);
    if (shot == FixedShot) return;
    const std::string chosen = Shot;
    // The shift was meant for the shot before.
    Shot = CStr(int{FixedShot});
    Offer_To_Save();
    Shot = chosen;
    Shift = "0";
    Move_TT();
    Outside.Show.Show_Fields();
}

void Erase_TT::Show_Alone() {
    const int shot = OnlySelected ? FixedShot : 0;
    if (Work.Curves.ShotAlone == shot) return;
    Work.Curves.ShotAlone = shot;
    Outside.Show.Repaint_Page(Page::Curves);
}

void Erase_TT::Check1_Clicked() {
    Show_Alone();
}

void Erase_TT::Move_TT() {
    const int shot = CInt(Val(Shot)).value_or(0);
    if (shot < 1 || shot > Work.Project.NbShots) {
        Outside.Ask.Say(wrong_shot, Work.AppTitle, Icon::Critical);
        return;
    }
    FixedShot = static_cast<std::int16_t>(shot);
    TranslationShift = Val(Shift);
    Unsaved = TranslationShift != 0;
    if (OnlySelected) Show_Alone();
    Show_Moving_Marks(Work, Outside);
    Outside.Show.Show_Fields();
}

bool Erase_TT::Save_Enabled() const {
    return Val(Shift) != 0;
}

std::string Erase_TT::Samples_Text() const {
    const int interval = Work.Record.SampleInterval;
    const double shift = Val(Shift);
    const auto samples = Samples_Of_Shift(shift, interval);
    if (shift == 0 || Work.Project.SuFile.empty() || Work.Record.NbTraces < 1 || !samples) return {};
    const int count = std::abs(*samples);
    return "Samples: " + CStr(count) + (*samples < 0 ? " earlier" : " later") + " (" +
           CStr(count * interval / 1000.0) + " ms)";
}

void Erase_TT::Command3() {
    Save_TT_Translation();
}

void Erase_TT::Command4() {
    Outside.Ask.Say(
        "TIME BREAK CORRECTION info\r\n"
        "   This module allows the user to move \r\n"
        "   UP or DOWN a selected travel time \r\n"
        "  You can also type the shift value, double click to move the travel time\r\n"
        "   This option is useful to correct trigger problems ",
        Work.AppTitle, Icon::Information);
}

/// A correction that was cut short, or recorded while the project was not, must not be done a second time
/// without a word.
bool Erase_TT::Asked_Again(const TriggerPlan& plan) {
    const double before = Shifted_Already(Work, plan);
    if (before == 0) return true;
    const std::string shot = CStr(plan.Shot);
    return Outside.Ask.Ask_Yes(
        "The field records of shot " + shot + " are shifted by " + Tenths(before) +
            " ms already, but the picks of the project are not: a correction was not saved with the project."
            "\r\n\"Load FBP from SU header\" takes the shifted picks over.\r\n\r\nShift the records by " +
            CStr(plan.Shift) + " ms once more ?",
        Work.AppTitle, Icon::Warning);
}

void Erase_TT::Record(const TriggerPlan& plan) {
    // What an origin tells of a pick stays true.
    PickSetter picks(Work, std::nullopt);
    for (std::size_t place = 0; place < plan.Times.size(); ++place) {
        const PickPlace pick{plan.Shot, static_cast<int>(place) + 1};
        const float time = static_cast<float>(plan.Times[place]);
        if (Work.Project.ShotTimes(pick.Shot, pick.Receiver) != time)
            picks.Set_Time(pick, plan.Times[place], PickDigits::All);
    }
    // The curve stands where it was carried to.
    Shift = "0";
    TranslationShift = 0;
    Unsaved = false;
}

void Erase_TT::Tell_Recorded(const TriggerPlan& plan) {
    std::string& status = Work.Fields.Status;
    status = "Shot " + CStr(plan.Shot) + " shifted by " + CStr(plan.Shift) + " ms";
    if (!plan.NoRecords.empty()) {
        status += ", picks only";
        return;
    }
    const auto missing = std::count(plan.Traces.begin(), plan.Traces.end(), 0);
    if (missing > 0)
        status += "; " + CStr(static_cast<int>(missing)) + " of its traces are not in " + Work.Project.SuFile;
}

bool Erase_TT::Save_TT_Translation() {
    const double shift = Val(Shift);
    if (shift == 0) return false;
    const TriggerPlan plan = Plan_Trigger_Correction(Work, CInt(Val(Shot)).value_or(0), shift);
    if (!plan.Refusal.empty()) {
        Outside.Ask.Say(plan.Refusal, Work.AppTitle, Icon::Critical);
        return false;
    }
    if (!plan.NoRecords.empty()) Outside.Ask.Say(plan.NoRecords, Work.AppTitle, Icon::Warning);
    if (!Outside.Ask.Ask_Yes("Record the new First Break Time ?", Work.AppTitle) || !Asked_Again(plan))
        return false;
    {
        EditScope edit(Work, "Trigger correction of shot " + CStr(plan.Shot));
        if (plan.NoRecords.empty()) {
            const std::string reason = Shift_Records(Work, plan);
            if (!reason.empty()) {
                edit.Give_Up();
                Outside.Ask.Say(reason + "\r\nNothing has been recorded, all stays as it was.", Work.AppTitle,
                                Icon::Critical);
                return false;
            }
        }
        Record(plan);
    }
    if (Files.SaveProject(Work, Outside)) Forget_Shift_Note(Work, plan.Shot);
    Tell_Recorded(plan);
    const bool below_0 = std::any_of(plan.Times.begin(), plan.Times.end(), [](double t) { return t < 0; });
    if (below_0) Tell_Times_Below_0(Work);
    Show_Moving_Marks(Work, Outside);
    Outside.Show.Show_Fields();
    return true;
}

}  // namespace tarnvik
