#include "traveltime/regression_vitesse.h"

#include <algorithm>
#include <string>
#include <utility>

#include "core/fault.h"
#include "core/text/number.h"
#include "traveltime/curves.h"

namespace tarnvik {

namespace {

const std::string wrong_receivers = "Impossible: Wrong receivers ";

bool Quick(const Workspace& workspace) {
    return workspace.Mode.Current() == DisplayMode::Quick;
}

void Report(Workspace& workspace, Ports& ports, const std::string& text, Icon icon) {
    if (Quick(workspace)) {
        workspace.Velocity.QuickStatus = text;
        ports.Show.Show_Fields();
    } else {
        ports.Ask.Say(text, workspace.AppTitle, icon);
    }
}

void Report_Wrong_Receivers(Workspace& workspace, Ports& ports, int first, int last) {
    const std::string text = wrong_receivers + CStr(first) + "," + CStr(last);
    workspace.Velocity.QuickStatus = text;
    // Outside quick_interpret nobody sees its label; the main form's status label then tells it too.
    if (!Quick(workspace)) workspace.Fields.Status = text;
    ports.Show.Show_Fields();
}

void Correct_Receivers(int receivers, int& first, int& last) {
    const auto inside = [receivers](int receiver) { return std::max(1, std::min(receiver, receivers)); };
    first = inside(first);
    last = inside(last);
    if (first > last) std::swap(first, last);
}

/// Tells why there is no velocity; nothing when there is one.
void Report_Refusal(Workspace& workspace, Ports& ports, StretchRefusal refusal, int first, int last) {
    switch (refusal) {
        case StretchRefusal::WrongReceivers:
            return Report_Wrong_Receivers(workspace, ports, first, last);
        case StretchRefusal::NoFirstTime:
            return Report(workspace, ports, "Impossible...", Icon::Critical);
        case StretchRefusal::NoPick:
            return Report(workspace, ports, "Impossible calculation...", Icon::None);
        case StretchRefusal::Fault:
            return Report(workspace, ports, "Error, calcul not possible...", Icon::None);
        case StretchRefusal::HoldsShot:
        case StretchRefusal::None:
            return;
    }
}

}  // namespace

void Forget_Wrong_Receivers(Workspace& workspace) {
    if (workspace.Fields.Status.starts_with(wrong_receivers)) workspace.Fields.Status.clear();
}

void Draw_Fitted_Line(Workspace& workspace, Ports& ports, const StretchVelocity& fitted, double shot_x,
                      bool through_shot) {
    const double y1 = Divide(fitted.T1, workspace.Curves.TimeFactor);
    const double y2 = Divide(fitted.T2, workspace.Curves.TimeFactor);
    Picture& dromo = ports.Show.Canvas_Of(Canvas::Dromo);
    const bool side_a = workspace.Velocity.ShotSide == 1;
    if (through_shot && !side_a) dromo.Line(shot_x, 0, fitted.X1, y1, colours::Black);
    // The direct method fits no line: its ends all stay at 0 and there is nothing to see.
    if (fitted.X1 != fitted.X2 || y1 != y2) dromo.Line(fitted.X1, y1, fitted.X2, y2, colours::Black);
    if (through_shot && side_a) dromo.Line(fitted.X2, y2, shot_x, 0, colours::Black);
}

bool Regression_Vitesse(Workspace& workspace, Ports& ports, int shot, int& first, int& last, StretchLine line,
                        double& velocity) {
    VelocityWork& work = workspace.Velocity;
    const Project& project = workspace.Project;
    Forget_Wrong_Receivers(workspace);
    work.InterceptResult = 0;
    Correct_Receivers(project.NbReceivers, first, last);
    StretchAnswer answer;
    try {
        const double shot_x = Shot_Position_Ecran(project, shot);
        answer = Velocity_Of_Stretch(project, {shot, first, last, line, drag_rules, {}},
                                     {.Correlation = work.Correlation});
        work.Correlation = answer.Result.Correlation;
        if (answer.Side != 0) work.ShotSide = static_cast<std::int16_t>(answer.Side);
        if (answer.Refusal == StretchRefusal::None) {
            velocity = answer.Result.Velocity;
            work.InterceptResult = Int(10 * answer.Result.Intercept) / 10;
            Colour blue = colours::Blue;
            Dessine_Tir(workspace, ports, shot, blue, 0, workspace.Curves.TimeFactor, project.LineLength);
            Draw_Fitted_Line(workspace, ports, answer.Result, shot_x,
                             line == StretchLine::ThroughShot && first != last);
        }
    } catch (const Fault&) {
        answer.Refusal = StretchRefusal::Fault;
    }
    Report_Refusal(workspace, ports, answer.Refusal, first, last);
    return answer.Refusal == StretchRefusal::None;
}

}  // namespace tarnvik
