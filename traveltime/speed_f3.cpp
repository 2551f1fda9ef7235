#include "traveltime/speed_f3.h"

#include <algorithm>
#include <utility>

#include "core/fault.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "traveltime/confirm.h"
#include "traveltime/curve_axes.h"
#include "traveltime/curve_overlays.h"
#include "traveltime/rubber_band.h"

namespace tarnvik {

namespace {

constexpr double least_usual_velocity = 250;

}  // namespace

SpeedF3::SpeedF3(Workspace& workspace, Ports& ports, FileRoutines files)
    : Work(workspace), Outside(ports), Files(std::move(files)) {}

void SpeedF3::Load() {
    Work.Mode.Take(Dialog::SpeedF3, DisplayMode::Vitesse2);
    ShotEntries = Numbers_Up_To(Work.Project.NbShots);
    const int shot = Work.Velocity.CurrentShot;
    Shot = shot >= 1 && shot <= Work.Project.NbShots ? CStr(shot) : std::string();
    Layer.clear();
    Velocity.clear();
    Intercept.clear();
    Band.reset();
    Work.Curves.Overlays[Dialog::SpeedF3].Moving = [this] { return Marks_Of_Band(); };
    Outside.Show.Show_Fields();
}

void SpeedF3::Close() {
    Band.reset();
    Forget_Overlay(Work, Outside, Dialog::SpeedF3);
    Work.Curves.DragStartX = 0;
    Outside.Show.Close_Dialog(Dialog::SpeedF3);
    Work.Mode.Release(Dialog::SpeedF3);
    Outside.Show.Show_Curves();
}

void SpeedF3::Enter() {
    Work.Mode.Take(Dialog::SpeedF3, DisplayMode::Vitesse2);
}

std::vector<Mark> SpeedF3::Marks_Of_Band() const {
    const double factor = Work.Curves.TimeFactor;
    if (!Band || !(factor > 0)) return {};
    Mark line;
    line.X1 = Band->X1;
    line.Y1 = Band->T1 / factor;
    line.X2 = Band->X2;
    line.Y2 = Band->T2 / factor;
    line.InColour = Work.Settings.VelocityLineColor;
    line.Width = std::max<int>(1, Work.Settings.VelocityLineWidth);
    return {line};
}

void SpeedF3::Drop_Band() {
    Band.reset();
    Show_Moving_Marks(Work, Outside);
}

void SpeedF3::Take_Band(const HandBand& band) {
    Band = band;
    Show_Moving_Marks(Work, Outside);
    if (const auto velocity = Band_Velocity(band.DownDistance, band.DownTime, band.Distance, band.Time)) {
        Work.Fields.Text1 = Velocity_Text(Work.Settings, *velocity);
        Velocity = Format(*velocity, "##000");
    }
    Show_Intercept();
    Outside.Show.Show_Fields();
}

void SpeedF3::Shot_Changed() {
    Show_Intercept();
    Outside.Show.Show_Fields();
}

void SpeedF3::Show_Intercept() {
    const int shot = CInt(Val(Shot)).value_or(0);
    if (!Band || shot < 1 || shot > Work.Project.NbShots) return;
    const auto intercept = Band_Intercept(Band->DownDistance, Band->DownTime, Band->Distance, Band->Time,
                                          Work.Project.ShotDistance(shot));
    if (intercept) Intercept = Format(*intercept, "##00.0");
}

bool SpeedF3::Refuse(const char* text) {
    Outside.Ask.Say(text, Work.AppTitle, Icon::Critical);
    return false;
}

bool SpeedF3::Check() {
    VelocityWork& work = Work.Velocity;
    const int shot = CInt(Val(Shot)).value_or(0);
    const auto velocity = CInt(Val(Velocity));
    LayerToSave = CInt(Val(Layer)).value_or(0);
    const double intercept = Val(Intercept);
    if (LayerToSave < 1 || LayerToSave > Project::MaxLayers) return Refuse("Layer number missing...");
    if (shot < 1 || shot > Work.Project.NbShots) return Refuse("Wrong Shot number ...");
    // No project can hold it.
    if (!velocity) return Refuse("Calculation not possible");
    // Told only: a velocity this low is recorded all the same.
    if (*velocity < least_usual_velocity) Refuse("Velocity under 250 m/s are unusual !!!");
    if (LayerToSave >= 2 && Work.Mode.Current() != DisplayMode::Grm && intercept == 0)
        return Refuse("Intercept time missing...");
    const Project& project = Work.Project;
    const int side = Side_Of_Band(work.ShotSide, Band.value_or(HandBand{}), project.ShotDistance(shot),
                                  project.LineLength);
    // Nothing has told a side yet: no line was drawn.
    if (side == 0) return Refuse("Slope missing...");
    work.CurrentShot = static_cast<std::int16_t>(shot);
    work.ShotSide = static_cast<std::int16_t>(side);
    work.VelocityResult = VelocityToSave = *velocity;
    work.InterceptResult = intercept;
    return true;
}

bool SpeedF3::Command1() {
    if (!Check()) return false;
    const VelocityWork& work = Work.Velocity;
    const std::string end = "\r\n";
    const std::string shot = CStr(static_cast<int>(work.CurrentShot));
    const std::string question = "Data for Shot number " + shot + end + "Intercept time           " +
                                 CStr(work.InterceptResult) + end + "Layer number             " +
                                 CStr(LayerToSave) + end + "Apparent velocity            " +
                                 CStr(static_cast<int>(VelocityToSave));
    bool saved = false;
    if (Outside.Ask.Ask_Yes(question, Work.AppTitle)) {
        EditScope edit(Work, "Velocity of shot " + shot + ", layer " + CStr(LayerToSave));
        Record_Velocity(Work.Project, work.CurrentShot, LayerToSave, work.ShotSide, VelocityToSave,
                        work.InterceptResult);
        edit.End();
        saved = Files.SaveProject && Files.SaveProject(Work, Outside);
        Work.Mode.Take(Dialog::SpeedF3, DisplayMode::Vitesse2);
    }
    Outside.Show.Show_Fields();
    return saved;
}

}  // namespace tarnvik
