#include "traveltime/speed_f.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/fault.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "traveltime/curves.h"
#include "traveltime/fitted_lines.h"
#include "traveltime/regression_vitesse.h"
#include "traveltime/shot_grid.h"

namespace tarnvik {

namespace {

constexpr std::size_t correlation_shown = 4;

}  // namespace

SpeedF::SpeedF(Workspace& workspace, Ports& ports, FileRoutines files)
    : Work(workspace), Outside(ports), Files(std::move(files)) {}

void SpeedF::Load() {
    Work.Mode.Take(Dialog::SpeedF, DisplayMode::Vitesse);
    ShotEntries = Numbers_Up_To(Work.Project.NbShots);
    ReceiverEntries = Numbers_Up_To(Work.Project.NbReceivers);
    const int shot = Work.Velocity.CurrentShot;
    Shot = shot >= 1 && shot <= Work.Project.NbShots ? CStr(shot) : std::string();
    FirstReceiver = "1";
    LastReceiver = CStr(Work.Project.NbReceivers);
    LastEntered = ReceiverBox::From;
    Show_Layer("1");
    Outside.Show.Show_Fields();
}

/// The picture shows all curves again, and them alone.
void SpeedF::Clean_Picture() {
    LineOfResult = false;
    Show_Alone(Work.Curves, 0);
    Forget_Fitted_Lines(Work.Curves);
}

void SpeedF::Close() {
    Clean_Picture();
    Outside.Show.Close_Dialog(Dialog::SpeedF);
    Work.Mode.Release(Dialog::SpeedF);
    Outside.Show.Show_Curves();
}

void SpeedF::Show_Layer(const std::string& layer) {
    Layer = layer;
    SaveEnabled = true;
    const double number = Val(layer);
    if (number >= 2) ThroughShot = false;
    InterceptShown = number > 1;
}

void SpeedF::Enter_Receiver(ReceiverBox box) {
    LastEntered = box;
    Work.Mode.Take(Dialog::SpeedF, DisplayMode::Vitesse);
}

void SpeedF::Layer_Changed() {
    Show_Layer(Layer);
    // The line of the result shown is of the layer chosen now.
    if (LineOfResult && !Velocity.empty() && !Work.Curves.Fitted.empty()) {
        Work.Curves.Fitted.back().Layer = CInt(Val(Layer)).value_or(0);
        Outside.Show.Repaint_Page(Page::Curves);
    }
    Outside.Show.Show_Fields();
}

void SpeedF::Shot_Changed() {
    if (AllShots || Trim(Shot).empty()) return;
    const int shot = CInt(Val(Shot)).value_or(0);
    if (shot >= 1 && shot <= Work.Project.NbShots) Show_Alone(Work.Curves, shot);
    Dessine_Cadre(Work, Outside);
    Colour red = colours::Red;
    Dessine_Tir(Work, Outside, shot, red, 0, Work.Curves.TimeFactor, Work.Project.LineLength);
    Show_Fitted_Lines(Work, Outside);
}

void SpeedF::AllShots_Clicked() {
    if (!AllShots) return Shot_Changed();
    Show_Alone(Work.Curves, 0);
    Outside.Show.Repaint_Page(Page::Curves);
}

void SpeedF::Take_Stretch(int shot, int first, int last) {
    Shot = CStr(shot);
    FirstReceiver = CStr(first);
    LastReceiver = CStr(last);
    Command5();
}

void SpeedF::Next_Layer() {
    const int layer = CInt(Val(Layer)).value_or(0);
    Velocity.clear();
    Intercept.clear();
    Correlation.clear();
    Show_Layer(CStr(std::clamp(layer + 1, 1, int{Project::MaxLayers})));
    LastEntered = ReceiverBox::From;
    Outside.Show.Show_Fields();
}

void SpeedF::ThroughShot_Clicked() {
    if (ThroughShot) Show_Layer("1");
    Outside.Show.Show_Fields();
}

void SpeedF::Command1() {
    Outside.Show.Open_Dialog(Dialog::confirm, true);
}

void SpeedF::Command2() {
    if (!Project_Holds_Times(Work, Outside, Files.LoadProject)) return;
    Clean_Picture();
    Outside.Show.Show_Curves();
}

void SpeedF::Command5() {
    try {
        if (Compute()) {
            Work.Mode.Take(Dialog::SpeedF, DisplayMode::Vitesse);
            Outside.Show.Bring_To_Front(Dialog::SpeedF);
        }
    } catch (const Fault&) {
        Outside.Ask.Say("Error, calcul not possible...", Work.AppTitle);
    }
    Outside.Show.Show_Fields();
}

/// The boxes show what was corrected, except a wrong order: that stays as the user chose it.
void SpeedF::Correct_Receivers(int& first, int& last) {
    const int receivers = Work.Project.NbReceivers;
    if (first > last) std::swap(first, last);
    if (first < 1) {
        first = 1;
        FirstReceiver = "1";
    }
    if (first > receivers) {
        first = receivers;
        FirstReceiver = CStr(receivers);
    }
    if (last > receivers) {
        last = receivers;
        LastReceiver = CStr(receivers);
    }
}

/// The end of the line that the times rise from.
void SpeedF::Show_Side() {
    Picture& end = Outside.Show.Canvas_Of(Canvas::SpeedEnd);
    end.Clear();
    end.Print(Work.Velocity.ShotSide == 1 ? "1" : CStr(Work.Project.NbReceivers), colours::Black);
}

/// Tells why there is no velocity.
bool SpeedF::Refuse(StretchRefusal refusal) {
    const auto say = [this](const char* text, Icon icon) {
        Outside.Ask.Say(text, Work.AppTitle, icon);
        return false;
    };
    switch (refusal) {
        case StretchRefusal::WrongReceivers:
            return say("Impossible: Wrong receivers", Icon::Critical);
        case StretchRefusal::HoldsShot:
            return say("Impossible, the shot must be before or after selected receivers...", Icon::Critical);
        case StretchRefusal::NoFirstTime:
            return say("Impossible...", Icon::Critical);
        case StretchRefusal::NoPick:
            return say("Impossible calculation...", Icon::None);
        case StretchRefusal::Fault:
            throw tarnvik::Fault("no velocity");
        case StretchRefusal::None:
            break;
    }
    return true;
}

bool SpeedF::Compute() {
    VelocityWork& work = Work.Velocity;
    work.CurrentShot = CInt_Or_Fault(Int(Val(Shot)));
    StretchQuestion question;
    question.Shot = work.CurrentShot;
    question.First = CInt_Or_Fault(Val(FirstReceiver));
    question.Last = CInt_Or_Fault(Val(LastReceiver));
    question.Line = ThroughShot ? StretchLine::ThroughShot : StretchLine::Free;
    question.Rules = dialog_rules;
    for (const std::string& text : Eliminated) {
        if (Eliminate) question.Eliminated.push_back(CInt(Val(text)).value_or(0));
    }
    Correct_Receivers(question.First, question.Last);

    const StretchAnswer answer = Velocity_Of_Stretch(
        Work.Project, question, {work.VelocityResult, work.InterceptResult, work.Correlation});
    if (answer.Anchored) Show_Layer("1");
    if (answer.Side != 0) {
        work.ShotSide = static_cast<std::int16_t>(answer.Side);
        Show_Side();
    }
    // What was found before a refusal or a fault is new.
    work.VelocityResult = answer.Result.Velocity;
    work.InterceptResult = answer.Result.Intercept;
    work.Correlation = answer.Result.Correlation;
    if (!Refuse(answer.Refusal)) return false;
    Show_Results(answer.Result);
    // The result is a new one: it can be saved, also for the layer that was saved before.
    SaveEnabled = true;
    return true;
}

void SpeedF::Show_Results(const StretchVelocity& result) {
    VelocityWork& work = Work.Velocity;
    work.InterceptResult = Int(10 * work.InterceptResult) / 10;
    Intercept = CStr(work.InterceptResult);
    Velocity = CStr(work.VelocityResult);
    Correlation = Left(Str(work.Correlation), correlation_shown);
    if (Work.Curves.FrameDrawn == 0) Dessine_Cadre(Work, Outside);
    const double shot_x = Shot_Position_Ecran(Work.Project, work.CurrentShot);
    Keep_Fitted_Line(Work, Outside, result, work.CurrentShot, CInt(Val(Layer)).value_or(0),
                     ThroughShot ? std::optional(shot_x) : std::nullopt);
    LineOfResult = result.X1 != result.X2;
    Colour red = colours::Red;
    Dessine_Tir(Work, Outside, work.CurrentShot, red, 0, Work.Curves.TimeFactor, Work.Project.LineLength);
    Show_Fitted_Lines(Work, Outside);
}

void SpeedF::Recorded() {
    LineOfResult = false;
    SaveEnabled = false;
    RecordedResult = Result_Shown();
}

std::string SpeedF::Result_Shown() const {
    return Shot + '|' + Layer + '|' + Velocity + '|' + Intercept;
}

}  // namespace tarnvik
