#include "traveltime/regression_vitesse.h"

#include <algorithm>
#include <string>
#include <utility>

#include "core/fault.h"
#include "core/text/number.h"
#include "traveltime/curves.h"
#include "traveltime/fitted_lines.h"

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

/// Tells why there is no velocity; nothing when there is one.
void Report_Refusal(Workspace& workspace, Ports& ports, StretchRefusal refusal, int first, int last) {
    const std::string text = Refusal_Text(refusal, first, last);
    if (text.empty()) return;
    if (refusal != StretchRefusal::WrongReceivers) {
        const bool critical = refusal == StretchRefusal::NoFirstTime;
        return Report(workspace, ports, text, critical ? Icon::Critical : Icon::None);
    }
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

}  // namespace

void Forget_Wrong_Receivers(Workspace& workspace) {
    if (workspace.Fields.Status.starts_with(wrong_receivers)) workspace.Fields.Status.clear();
}

std::string Refusal_Text(StretchRefusal refusal, int first, int last) {
    switch (refusal) {
        case StretchRefusal::WrongReceivers:
            return wrong_receivers + CStr(first) + "," + CStr(last);
        case StretchRefusal::NoFirstTime:
            return "Impossible...";
        case StretchRefusal::NoPick:
            return "Impossible calculation...";
        case StretchRefusal::Fault:
            return "Error, calcul not possible...";
        case StretchRefusal::HoldsShot:
        case StretchRefusal::None:
            break;
    }
    return {};
}

StretchAnswer Velocity_Without_Dialog(const Project& project, int shot, int& first, int& last,
                                      StretchLine line, const StretchVelocity& former) {
    Correct_Receivers(project.NbReceivers, first, last);
    StretchAnswer answer = Velocity_Of_Stretch(project, {shot, first, last, line, drag_rules, {}}, former);
    const bool found = answer.Refusal == StretchRefusal::None;
    answer.Result.Intercept = found ? Int(10 * answer.Result.Intercept) / 10 : 0;
    return answer;
}

bool Regression_Vitesse(Workspace& workspace, Ports& ports, int shot, int& first, int& last, StretchLine line,
                        double& velocity, int layer) {
    VelocityWork& work = workspace.Velocity;
    const Project& project = workspace.Project;
    Forget_Wrong_Receivers(workspace);
    work.InterceptResult = 0;
    StretchAnswer answer;
    try {
        answer = Velocity_Without_Dialog(project, shot, first, last, line, {.Correlation = work.Correlation});
        work.Correlation = answer.Result.Correlation;
        if (answer.Side != 0) work.ShotSide = static_cast<std::int16_t>(answer.Side);
        if (answer.Refusal == StretchRefusal::None) {
            velocity = answer.Result.Velocity;
            work.InterceptResult = answer.Result.Intercept;
            const double shot_x = Shot_Position_Ecran(project, shot);
            const bool through_shot = line == StretchLine::ThroughShot && first != last;
            Keep_Fitted_Line(workspace, ports, answer.Result, shot, layer,
                             through_shot ? std::optional(shot_x) : std::nullopt);
            Colour blue = colours::Blue;
            Dessine_Tir(workspace, ports, shot, blue, 0, workspace.Curves.TimeFactor, project.LineLength);
            Show_Fitted_Lines(workspace, ports);
        }
    } catch (const Fault&) {
        answer.Refusal = StretchRefusal::Fault;
    }
    Report_Refusal(workspace, ports, answer.Refusal, first, last);
    return answer.Refusal == StretchRefusal::None;
}

}  // namespace tarnvik
