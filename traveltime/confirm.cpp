#include "traveltime/confirm.h"

#include <utility>

#include "core/text/number.h"

namespace tarnvik {

Confirm::Confirm(Workspace& workspace, Ports& ports, SpeedF& speed, FileRoutines files)
    : Work(workspace), Outside(ports), Speed(speed), Files(std::move(files)) {}

void Confirm::Load() {
    Shot = Speed.Shot;
    Layer = Speed.Layer;
    Intercept = Speed.Intercept;
    Velocity = CStr(Int(Val(Speed.Velocity)));
    ProjectFile = Work.Project.CurrentFile;
    Outside.Show.Show_Fields();
}

/// The side of the shot typed, from the receivers in SpeedF, whose boxes are corrected where they name one
/// beyond the line.
int Confirm::Side_Of_Recording() {
    const Project& project = Work.Project;
    const auto distance_of = [&project](std::string& box) {
        if (Val(box) > project.NbReceivers) box = CStr(project.NbReceivers);
        const int receiver = CInt(Val(box)).value_or(0);
        return project.ReceiverData.Has(ReceiverDistance, receiver)
                   ? project.ReceiverData(ReceiverDistance, receiver)
                   : 0.0F;
    };
    const double first = distance_of(Speed.FirstReceiver);
    const double last = distance_of(Speed.LastReceiver);
    const int shot = Work.Velocity.CurrentShot;
    if (!project.ShotDistance.Has(shot)) return Work.Velocity.ShotSide;
    return Recording_Side(Work.Velocity.ShotSide, project.ShotDistance(shot), first, last,
                          project.LineLength);
}

void Confirm::Command1() {
    const auto layer = [this] { return CInt(Val(Layer)).value_or(0); };
    // A layer that no project can hold is asked for again like a missing one.
    while (layer() < 1 || layer() > Project::MaxLayers) {
        Layer = Outside.Ask.Input(" Layer number (up to 5) is missing, correct please", Work.AppTitle, "2");
    }
    VelocityWork& work = Work.Velocity;
    work.InterceptResult = Val(Intercept);
    Store_If_It_Fits(work.CurrentShot, Val(Shot));
    work.VelocityResult = Val(Velocity);
    work.ShotSide = static_cast<std::int16_t>(Side_Of_Recording());

    EditScope edit(Work, "Velocity of shot " + CStr(work.CurrentShot) + ", layer " + CStr(layer()));
    Record_Velocity(Work.Project, work.CurrentShot, layer(), work.ShotSide, work.VelocityResult,
                    work.InterceptResult);
    edit.End();
    if (Files.SaveProject && Files.SaveProject(Work, Outside)) Speed.Recorded();
    Outside.Show.Close_Dialog(Dialog::confirm);
    Outside.Show.Show_Fields();
}

void Confirm::Command2() {
    Outside.Show.Close_Dialog(Dialog::confirm);
}

int Recording_Side(int side, double shot_distance, double first, double last, double line_length) {
    if (shot_distance > first && shot_distance > last) side = 1;
    if (shot_distance < first && shot_distance < last) side = 24;
    if (shot_distance > first && shot_distance < last) side = 36;
    if (shot_distance < first && shot_distance > last) side = 36;
    if (shot_distance <= 0 || shot_distance >= line_length) side = 36;
    return side;
}

void Record_Velocity(Project& project, int shot, int layer, int side, double velocity, double intercept) {
    if (shot < 1 || layer < 1 || !project.VelocityA.Has(shot, layer)) return;
    const bool side_a = side < 24 || side == 36;
    const bool side_b = side == 24 || side == 36;
    if (side_a) Store_If_It_Fits(project.VelocityA(shot, layer), velocity);
    if (side_b) Store_If_It_Fits(project.VelocityB(shot, layer), velocity);
    if (layer == 1) return;
    if (side_a) project.InterceptA(shot, layer - 1) = intercept;
    if (side_b) project.InterceptB(shot, layer - 1) = intercept;
}

}  // namespace tarnvik
