#include "traveltime/regression_vitesse.h"

#include <algorithm>
#include <utility>

#include "core/fault.h"
#include "core/text/number.h"
#include "traveltime/curves.h"

namespace tarnvik {

namespace {

/// A receiver line on which a stretch is to be fitted, after the correction of its ends.
struct ShotStretch {
    int First = 0;
    int Last = 0;
    double ShotDistance = 0;
    bool ThroughShot = false;
    bool Direct = false;
};

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
    const std::string text = "Impossible: Wrong receivers " + CStr(first) + "," + CStr(last);
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

bool Lies_Between(double value, double low, double high) {
    return value >= low && value <= high;
}

/// One receiver alone is a stretch when the shot lies beside it. The ends of the line stand for the
/// neighbours that the end receivers lack.
bool One_Receiver_Accepted(const Project& project, int receiver, double shot_distance) {
    const auto place = [&project](int r) -> double {
        if (r < 1) return 0;
        if (r > project.NbReceivers) return project.LineLength;
        return project.ReceiverData(ReceiverDistance, r);
    };
    const double whole = Int(shot_distance);
    return Lies_Between(whole, place(receiver), place(receiver + 1)) ||
           Lies_Between(whole, place(receiver - 1), place(receiver)) ||
           (receiver == 1 && shot_distance == 0) ||
           (receiver == project.NbReceivers && Rounded(shot_distance) == Rounded(project.LineLength));
}

bool Holds_Shot(const Project& project, const ShotStretch& stretch) {
    const double shot = stretch.ShotDistance;
    const double whole = Int(shot);
    const double line_end = Rounded(project.LineLength);
    if (shot < 0 || whole > line_end) return false;
    const double first = project.ReceiverData(ReceiverDistance, stretch.First);
    const double last = project.ReceiverData(ReceiverDistance, stretch.Last);
    if (first < shot && shot < last) return true;
    if (stretch.First != stretch.Last) return false;
    return (stretch.First == 1 && shot == 0) || (stretch.Last == project.NbReceivers && whole == line_end);
}

/// The method told by the line and the place of the shot. False when the picks do not allow it; the message
/// has been given then.
bool Fit(Workspace& workspace, Ports& ports, int shot, const ShotStretch& stretch, StretchVelocity& result) {
    const CurveStretch curve = Stretch_Of_Shot(workspace.Project, shot, stretch.First, stretch.Last);
    workspace.Velocity.ShotSide =
        static_cast<std::int16_t>(Side_Of_Stretch(stretch.ShotDistance, curve.First.Distance));
    if (stretch.Direct) {
        if (Direct_Velocity(curve, result)) return true;
        Report(workspace, ports, "Impossible...", Icon::Critical);
        return false;
    }
    if (stretch.ThroughShot) {
        Line_Through_Shot_Velocity(curve, result);
        return true;
    }
    if (Least_Squares_Velocity(curve, result)) return true;
    Report(workspace, ports, "Impossible calculation...", Icon::None);
    return false;
}

}  // namespace

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
    work.InterceptResult = 0;
    StretchVelocity result;
    result.Correlation = work.Correlation;
    try {
        Correct_Receivers(project.NbReceivers, first, last);
        ShotStretch stretch;
        stretch.First = first;
        stretch.Last = last;
        if (shot < 1) throw Fault("no such shot");
        stretch.ShotDistance = project.ShotDistance(shot);
        const double shot_x = Shot_Position_Ecran(project, shot);
        if (first == last && !One_Receiver_Accepted(project, first, stretch.ShotDistance)) {
            Report_Wrong_Receivers(workspace, ports, first, last);
            return false;
        }
        stretch.ThroughShot = first != last && line == StretchLine::ThroughShot;
        stretch.Direct = first == last || (!stretch.ThroughShot && Holds_Shot(project, stretch));
        const bool fitted = Fit(workspace, ports, shot, stretch, result);
        work.Correlation = result.Correlation;
        if (!fitted) return false;
        velocity = result.Velocity;
        work.InterceptResult = Int(10 * result.Intercept) / 10;

        Colour blue = colours::Blue;
        Dessine_Tir(workspace, ports, shot, blue, 0, workspace.Curves.TimeFactor, project.LineLength);
        Draw_Fitted_Line(workspace, ports, result, shot_x, stretch.ThroughShot);
        return true;
    } catch (const Fault&) {
        work.Correlation = result.Correlation;
        Report(workspace, ports, "Error, calcul not possible...", Icon::None);
        return false;
    }
}

}  // namespace tarnvik
