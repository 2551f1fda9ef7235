#include "traveltime/speed_f.h"

#include <utility>

#include "core/fault.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "traveltime/curves.h"
#include "traveltime/regression_vitesse.h"

namespace tarnvik {

namespace {

constexpr std::size_t correlation_shown = 4;

std::vector<std::string> Numbers_Up_To(int last) {
    std::vector<std::string> entries;
    for (int number = 1; number <= last; ++number)
        entries.push_back(CStr(number));
    return entries;
}

/// One receiver alone is a stretch only beside a shot at the end of the line.
bool One_Receiver_Anchored(const Project& project, int receiver, double shot_distance) {
    return (receiver == 1 && shot_distance == 0) ||
           (Rounded(shot_distance) == Rounded(project.LineLength) && receiver == project.NbReceivers);
}

/// The shot lies inside the stretch.
bool Shot_Inside(const Project& project, const CurveStretch& stretch) {
    const double shot = stretch.ShotDistance;
    if (shot < 0 || Rounded(shot) > Rounded(project.LineLength)) return false;
    return stretch.First.Distance < shot && shot < stretch.Last.Distance;
}

}  // namespace

SpeedF::SpeedF(Workspace& workspace, Ports& ports, FileRoutines files)
    : Work(workspace), Outside(ports), Files(std::move(files)) {}

void SpeedF::Load() {
    Work.Mode.Take(Dialog::SpeedF, DisplayMode::Vitesse);
    ShotEntries = Numbers_Up_To(Work.Project.NbShots);
    ReceiverEntries = Numbers_Up_To(Work.Project.NbReceivers);
    const int shot = Work.Velocity.CurrentShot;
    Combo2 = shot >= 1 && shot <= Work.Project.NbShots ? CStr(shot) : std::string();
    Combo3 = "1";
    Combo4 = CStr(Work.Project.NbReceivers);
    LastEntered = ReceiverBox::From;
    Show_Layer("1");
    Outside.Show.Show_Fields();
}

void SpeedF::Close() {
    Outside.Show.Close_Dialog(Dialog::SpeedF);
    Work.Mode.Release(Dialog::SpeedF);
    Outside.Show.Show_Curves();
}

void SpeedF::Show_Layer(const std::string& layer) {
    Combo1 = layer;
    SaveEnabled = true;
    const double number = Val(layer);
    if (number >= 2) Check2 = false;
    InterceptShown = number > 1;
}

void SpeedF::Enter_Receiver(ReceiverBox box) {
    LastEntered = box;
    Work.Mode.Take(Dialog::SpeedF, DisplayMode::Vitesse);
}

void SpeedF::Combo1_Changed() {
    Show_Layer(Combo1);
    Outside.Show.Show_Fields();
}

void SpeedF::Combo2_Changed() {
    if (Check3 || Trim(Combo2).empty()) return;
    Dessine_Cadre(Work, Outside);
    Colour red = colours::Red;
    Dessine_Tir(Work, Outside, CInt(Val(Combo2)).value_or(0), red, 0, Work.Curves.TimeFactor,
                Work.Project.LineLength);
}

void SpeedF::Check2_Clicked() {
    if (Check2) Show_Layer("1");
    Outside.Show.Show_Fields();
}

void SpeedF::Command1() {
    Outside.Show.Open_Dialog(Dialog::confirm, true);
}

void SpeedF::Command2() {
    if (!Project_Holds_Times(Work, Outside, Files.LoadProject)) return;
    Outside.Show.Show_Curves();
}

void SpeedF::Command3() {
    Close();
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
        Combo3 = "1";
    }
    if (first > receivers) {
        first = receivers;
        Combo3 = CStr(receivers);
    }
    if (last > receivers) {
        last = receivers;
        Combo4 = CStr(receivers);
    }
}

bool SpeedF::Compute() {
    const Project& project = Work.Project;
    VelocityWork& work = Work.Velocity;
    const auto refuse = [this](const char* text, Icon icon) {
        Outside.Ask.Say(text, Work.AppTitle, icon);
        return false;
    };
    work.CurrentShot = CInt_Or_Fault(Int(Val(Combo2)));
    const int shot = work.CurrentShot;
    if (shot < 1) throw Fault("no such shot");
    int first = CInt_Or_Fault(Val(Combo3));
    int last = CInt_Or_Fault(Val(Combo4));
    std::vector<int> eliminated;
    for (const std::string& text : Eliminated) {
        if (Check1) eliminated.push_back(CInt(Val(text)).value_or(0));
    }
    Correct_Receivers(first, last);

    const double shot_distance = project.ShotDistance(shot);
    bool anchored = first == last;
    if (anchored && !One_Receiver_Anchored(project, first, shot_distance))
        return refuse("Impossible: Wrong receivers", Icon::Critical);
    const CurveStretch stretch = Stretch_Of_Shot(project, shot, first, last, eliminated);
    anchored = anchored || Shot_Inside(project, stretch);
    if (anchored) Show_Layer("1");

    work.ShotSide = static_cast<std::int16_t>(Side_Of_Stretch(shot_distance, stretch.First.Distance));
    Picture& end = Outside.Show.Canvas_Of(Canvas::SpeedEnd);
    end.Clear();
    end.Print(work.ShotSide == 1 ? "1" : CStr(project.NbReceivers), colours::Black);
    if (Check2 && anchored) {
        return refuse("Impossible, the shot must be before or after selected receivers...", Icon::Critical);
    }

    StretchVelocity result{work.VelocityResult, work.InterceptResult, work.Correlation};
    const auto keep_results = [&work, &result] {
        work.VelocityResult = result.Velocity;
        work.InterceptResult = result.Intercept;
        work.Correlation = result.Correlation;
    };
    try {
        bool fitted = true;
        if (anchored) {
            fitted = Direct_Velocity(stretch, result);
        } else if (Check2) {
            Line_Through_Shot_Velocity(stretch, result);
        } else {
            fitted = Least_Squares_Velocity(stretch, result);
        }
        keep_results();
        if (!fitted && anchored) return refuse("Impossible...", Icon::Critical);
        if (!fitted) return refuse("Impossible calculation...", Icon::None);
    } catch (const Fault&) {
        keep_results();  // what was found before the fault is new
        throw;
    }
    Show_Results(result);
    return true;
}

void SpeedF::Show_Results(const StretchVelocity& result) {
    VelocityWork& work = Work.Velocity;
    work.InterceptResult = Int(10 * work.InterceptResult) / 10;
    Text5 = CStr(work.InterceptResult);
    Text4 = CStr(work.VelocityResult);
    Text6 = Left(Str(work.Correlation), correlation_shown);
    if (Work.Curves.FrameDrawn == 0) Dessine_Cadre(Work, Outside);
    Colour red = colours::Red;
    Dessine_Tir(Work, Outside, work.CurrentShot, red, 0, Work.Curves.TimeFactor, Work.Project.LineLength);
    if (result.X1 == result.X2) return;  // the direct method fits no line
    Draw_Fitted_Line(Work, Outside, result, Shot_Position_Ecran(Work.Project, work.CurrentShot), Check2);
}

void SpeedPointer::Release(const PointerEvent& event) {
    const int receivers = Work.Project.NbReceivers;
    if (receivers < 1) return;
    Work.Curves.DragStartX = 0;
    const int receiver = static_cast<int>(Receiver_At(event.X, receivers, PointerMoment::Release));
    Work.Curves.MouseReceiver = static_cast<std::int16_t>(receiver);
    std::string& box = Form.LastEntered == SpeedF::ReceiverBox::From ? Form.Combo3 : Form.Combo4;
    box = CStr(receiver);
    Outside.Show.Show_Fields();
    Outside.Show.Bring_To_Front(Dialog::SpeedF);
}

}  // namespace tarnvik
