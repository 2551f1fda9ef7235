#include "traveltime/speed_f2.h"

#include <utility>

#include "core/end_shots.h"
#include "core/fault.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "traveltime/curve_overlays.h"
#include "traveltime/curves.h"
#include "traveltime/shot_grid.h"

namespace tarnvik {

namespace {

constexpr const char* no_calculation = "Calculation not possible";
constexpr const char* wrong_shot = "Impossible, wrong Shot number...";
constexpr double point_radius = 0.3;

}  // namespace

SpeedF2::SpeedF2(Workspace& workspace, Ports& ports, FileRoutines files)
    : Work(workspace), Outside(ports), Files(std::move(files)) {}

void SpeedF2::Load() {
    const Project& project = Work.Project;
    Work.Mode.Take(Dialog::SpeedF2, DisplayMode::Velocity);
    ShotEntries = Numbers_Up_To(project.NbShots);
    ReceiverEntries = Numbers_Up_To(project.NbReceivers);
    // The shots at the two ends see the whole line reversed.
    int first = 1;
    int last = project.NbShots;
    Step_Over_Offset_Shots(project, first, last);
    FirstShot = first < last ? CStr(first) : std::string();
    LastShot = first < last ? CStr(last) : std::string();
    FirstReceiver = "1";
    LastReceiver = CStr(project.NbReceivers);
    LastEntered = ReceiverBox::First;
    Velocity.clear();
    Correlation.clear();
    Fitted = {};
    Work.Curves.Overlays[Dialog::SpeedF2].Standing = [this](Picture& picture) { Draw_On(picture); };
    Outside.Show.Show_Fields();
}

void SpeedF2::Close() {
    Fitted = {};
    Show_Alone(Work.Curves, 0);
    Forget_Overlay(Work, Outside, Dialog::SpeedF2);
    Work.Curves.DragStartX = 0;
    Outside.Show.Close_Dialog(Dialog::SpeedF2);
    Work.Mode.Release(Dialog::SpeedF2);
    Outside.Show.Show_Curves();
}

void SpeedF2::Enter_Receiver(ReceiverBox box) {
    LastEntered = box;
    Work.Mode.Take(Dialog::SpeedF2, DisplayMode::Velocity);
}

void SpeedF2::Take_Receiver(int receiver) {
    (LastEntered == ReceiverBox::First ? FirstReceiver : LastReceiver) = CStr(receiver);
    Outside.Show.Show_Fields();
    Outside.Show.Bring_To_Front(Dialog::SpeedF2);
}

bool SpeedF2::Refuse(const char* text, Icon icon) {
    Outside.Ask.Say(text, Work.AppTitle, icon);
    return false;
}

bool SpeedF2::Shots_And_Receivers_Fit(const DifferenceQuestion& question) {
    const auto on_line = [this](int receiver) {
        return receiver >= 1 && receiver <= Work.Project.NbReceivers;
    };
    if (!on_line(question.First)) return Refuse("Wrong 1st receiver number", Icon::Critical);
    if (!on_line(question.Last)) return Refuse("Wrong 2nd receiver number", Icon::Critical);
    const int shots = Work.Project.NbShots;
    const int a = question.ShotA;
    const int b = question.ShotB;
    if (a > shots || b > shots || a == b) return Refuse(wrong_shot, Icon::Warning);
    if (a == 0 || b == 0) return Refuse("Value missing...", Icon::Warning);
    if (question.First == question.Last) return Refuse("Same receiver or Shot, impossible...", Icon::None);
    return true;
}

bool SpeedF2::Command2() {
    bool computed = false;
    try {
        DifferenceQuestion question;
        question.ShotA = CInt_Or_Fault(Val(FirstShot));
        question.ShotB = CInt_Or_Fault(Val(LastShot));
        question.First = CInt_Or_Fault(Int(Val(FirstReceiver)));
        question.Last = CInt_Or_Fault(Int(Val(LastReceiver)));
        for (const std::string& text : Eliminated) {
            if (Eliminate) question.Eliminated.push_back(CInt(Val(text)).value_or(0));
        }
        computed = Shots_And_Receivers_Fit(question) && Compute(question);
    } catch (const Fault&) {
        Refuse(no_calculation, Icon::Critical);
    }
    if (computed) Work.Mode.Take(Dialog::SpeedF2, DisplayMode::Velocity);
    Outside.Show.Show_Fields();
    return computed;
}

bool SpeedF2::Compute(const DifferenceQuestion& question) {
    if (question.ShotA < 1 || question.ShotB < 1) throw Fault("no such shot");
    VelocityWork& work = Work.Velocity;
    DifferenceLine line;
    line.Correlation = work.Correlation;
    bool fitted = false;
    try {
        fitted = Droite_TMoins(Work.Project, question, line);
    } catch (const Fault&) {
        // One common pick alone, or times that give no velocity.
    }
    work.Correlation = line.Correlation;
    if (!fitted) return Refuse("Impossible calculation...", Icon::Critical);
    work.VelocityResult = line.Velocity;
    Fitted = std::move(line);
    Velocity = CStr(Fitted.Velocity);
    Correlation = CStr(Fitted.Correlation);
    // The picture shows the two curves and the line between them.
    Show_Alone(Work.Curves, question.ShotA, question.ShotB);
    if (Work.Curves.FrameDrawn == 1) {
        Outside.Show.Repaint_Page(Page::Curves);
    } else {
        Outside.Show.Show_Curves();
    }
    return true;
}

void SpeedF2::Draw_On(Picture& picture) const {
    if (Fitted.Points.empty()) return;
    const double factor = Work.Curves.TimeFactor;
    const auto height = [factor](double time) {
        return Height_Of_Half_Difference(DifferenceMode::Curves, time, factor);
    };
    const double radius = point_radius / (Work.Curves.ZoomX > 0 ? Work.Curves.ZoomX : 1);
    for (const HalfDifference& point : Fitted.Points)
        picture.Circle(point.X, height(point.Time), radius, colours::Black);
    picture.Set_Draw_Width(2);
    picture.Line(Fitted.X1, height(Fitted.T1 / 2), Fitted.X2, height(Fitted.T2 / 2), colours::Black);
    picture.Set_Draw_Width(1);
}

bool SpeedF2::Command3() {
    const auto number = [](const std::string& text) -> int { return CInt(Val(text)).value_or(0); };
    /// Asks for a number that is missing; nothing when the box was cancelled.
    const auto ask = [&](int& value, const char* prompt, const std::string& initial) {
        if (value >= 1) return true;
        const std::string typed = Outside.Ask.Input(prompt, Work.AppTitle, initial);
        value = number(typed);
        return !Trim(typed).empty();
    };
    const int shots = Work.Project.NbShots;
    int layer = number(Layer);
    if (!ask(layer, "Value missing, please enter Layer number", "2")) return false;
    if (layer < 1 || layer > Project::MaxLayers) return Refuse("Layer number missing...", Icon::Critical);
    const double velocity = Val(Velocity);
    if (velocity == 0) return Refuse("You must 1st calcul true Velocity", Icon::Critical);
    int first = number(RecordFrom);
    int last = number(RecordTo);
    if (!ask(first, "Value missing: Enter 1st Shot number", "1")) return false;
    if (!ask(last, "Value missing: Enter Last Shot number", CStr(shots))) return false;
    // Kept: the message speaks of layers and means shots.
    if (first > shots || last > shots) return Refuse("Too many Layers...", Icon::Critical);
    if (first < 1 || last < 1) return Refuse(wrong_shot, Icon::Warning);
    // Nearly level differences give a velocity that no project can hold.
    if (!CInt(Int(velocity))) return Refuse(no_calculation, Icon::Critical);
    Layer = CStr(layer);
    RecordFrom = CStr(first);
    RecordTo = CStr(last);
    Step_Over_Offset_Shots(Work.Project, first, last);
    if (first > last) return Refuse(wrong_shot, Icon::Warning);
    const bool saved = Save(layer, velocity, first, last);
    Outside.Show.Show_Fields();
    return saved;
}

bool SpeedF2::Save(int layer, double velocity, int first, int last) {
    Project& project = Work.Project;
    EditScope edit(Work,
                   "True velocity of layer " + CStr(layer) + ", shots " + CStr(first) + " to " + CStr(last));
    for (int shot = first; shot <= last; ++shot)
        project.VelocityA(shot, layer) = project.VelocityB(shot, layer) = CInt_Or_Fault(Int(velocity));
    edit.End();
    if (!Files.SaveProject || !Files.SaveProject(Work, Outside)) return false;
    Work.Fields.Status = "Velocity " + CStr(Int(velocity)) + " recorded as layer " + CStr(layer) +
                         " of shots " + CStr(first) + " to " + CStr(last);
    return true;
}

void Step_Over_Offset_Shots(const Project& project, int& first, int& last) {
    if (first > last) std::swap(first, last);
    while (first <= last && project.ShotDistance(first) < 0)
        ++first;
    while (first <= last && project.ShotDistance(last) > project.LineLength)
        --last;
}

}  // namespace tarnvik
