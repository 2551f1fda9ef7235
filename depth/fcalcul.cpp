#include "depth/fcalcul.h"

#include <algorithm>
#include <utility>

#include "core/fault.h"
#include "core/text/number.h"
#include "traveltime/fitted_lines.h"
#include "traveltime/regression_vitesse.h"

namespace tarnvik {

namespace {

bool Offset_Shot(const Project& project, int shot) {
    const double distance = project.ShotDistance(shot);
    return distance < 0 || distance > project.LineLength;
}

}  // namespace

Fcalcul::Fcalcul(Workspace& workspace, Ports& ports, FileRoutines files)
    : Work(workspace), Outside(ports), Files(std::move(files)) {}

void Fcalcul::Say(const std::string& text, Icon icon) {
    Outside.Ask.Say(text, Work.AppTitle, icon);
}

int Fcalcul::Shot() const {
    if (!OffsetText.empty()) return 0;  // its number stands there, but nothing is shown or stored for it
    const int shot = CInt(Val(ShotLabel)).value_or(0);
    return shot >= 1 && shot <= Work.Project.NbShots && Work.Project.ShotDistance.Has(shot) ? shot : 0;
}

bool Fcalcul::End_Shot() const {
    if (Shot() == 0) return false;
    const double distance = Work.Project.ShotDistance(Shot());
    return distance == 0 || distance == Work.Project.LineLength;
}

void Fcalcul::Load() {
    Take_Picture();
    Work.Depth.AngleCritique = {};
    Work.Depth.VelocityFault = false;
    Label17 = "1 - ";
    Label18 = " Rec. " + CStr(Work.Project.NbReceivers);
    Empty_Fields();
    Unsaved = Unsaved && !Work.Edits.Is_Saved();
    HScroll1.Value = Work.Velocity.CurrentShot;
    HScroll1_Changed();
}

void Fcalcul::Close() {
    Forget_Wrong_Receivers(Work);
    Forget_Fitted_Lines(Work.Curves);
    Work.Velocity.Awaited.reset();
    Outside.Show.Close_Dialog(Dialog::Fcalcul);
    Work.Mode.Release(Dialog::Fcalcul);
    Outside.Show.Show_Curves();
}

void Fcalcul::Take_Picture() {
    Work.Mode.Take(Dialog::Fcalcul, DisplayMode::Calcul);
}

void Fcalcul::Enter_Field(AwaitedField field) {
    if (Field_Of(field) == nullptr) return;
    Work.Velocity.Awaited = field;
    Take_Picture();
}

void Fcalcul::Enter_Mean_Field() {
    Say("You must correct the upper line");
}

void Fcalcul::Field_Changed() {
    Take_Picture();
}

void Fcalcul::Layers_Changed() {
    const double layers = Val(Layers);
    if (layers == 2 || layers == 3 || layers == 4 || layers == 5) {
        VisibleLayers = static_cast<int>(layers);
    } else {
        Say("Impossible layer value");
    }
    Outside.Show.Show_Fields();
}

/// Nothing of any shot stands in the dialog.
void Fcalcul::Empty_Fields() {
    for (std::string* field : {&ShotLabel, &Altitude, &ShotDepth, &Layers, &Caption})
        field->clear();
    Empty_Rows();
    VisibleLayers = 2;
}

bool Fcalcul::Refused_As_Offset_Shot() {
    const int shot = HScroll1.Value;
    if (!Work.Project.ShotDistance.Has(shot) || !Offset_Shot(Work.Project, shot)) {
        OffsetText.clear();
        return false;
    }
    OffsetText = "Offset shot, no depth computation possible ";
    // The numbers of the shot before must not stand beside its message.
    Empty_Fields();
    ShotLabel = CStr(shot);
    Outside.Show.Show_Fields();
    return true;
}

/// Display without results, so that nothing of a former computation stands beside the shot's own values.
void Fcalcul::Display_Only() {
    try {
        Affiche_Tir(Results::Empty);
    } catch (const Fault&) {
        Empty_Results();
    }
}

std::string Fcalcul::Named_By_Shot(const std::string& what) const {
    return what + " of shot " + CStr(Shot());
}

/// The one place where the dialog changes the project.
void Fcalcul::Store(const std::string& edit_name, const ShotValues& values) {
    const EditScope edit(Work, edit_name);
    Store_Values(Work.Project, Shot(), values);
}

void Fcalcul::Enregistre_Tir() {
    if (Shot() == 0) return;
    Take_Fields();
    Store(Named_By_Shot("Values"), Values);
    Work.Section.Source = SectionSource::Shots;
}

void Fcalcul::Save() {
    Enregistre_Tir();
    if (Files.SaveProject && Files.SaveProject(Work, Outside)) Unsaved = false;
}

bool Fcalcul::Display_Shot(int shot) {
    Work.Velocity.Awaited.reset();
    Computed = false;
    Corrected = false;
    const int shots = Work.Project.NbShots;
    HScroll1.Min = 1;
    HScroll1.Max = std::max(1, shots);
    HScroll1.Value = std::clamp(shot, HScroll1.Min, HScroll1.Max);
    if (shots < 1) {
        OffsetText.clear();
        Empty_Fields();
        return false;
    }
    Work.Velocity.CurrentShot = static_cast<std::int16_t>(HScroll1.Value);
    if (Refused_As_Offset_Shot()) return false;
    ShotLabel = CStr(HScroll1.Value);
    // Whatever a shot does not fill must not keep what the shot before had there: it would be stored with it.
    Empty_Rows();
    Work.Depth.Thick = {};
    Values = Shot() == 0 ? ShotValues{} : Values_Of_Shot(Work.Project, Shot());
    Display_Only();
    return true;
}

void Fcalcul::HScroll1_Changed() {
    if (!Display_Shot(HScroll1.Value)) return;
    if (!No_Data(true)) Calcul_Par_Intercept();
    Show_Stored_Thicknesses();
    // What the user has just answered is his work; the rest of the display stores nothing.
    if (Corrected) {
        Take_Fields();
        ShotValues corrected = Values;
        corrected.Thickness = Values_Of_Shot(Work.Project, Shot()).Thickness;
        Store(Named_By_Shot("Intercept times"), corrected);
    }
    if (Check1) Save();
    Outside.Show.Show_Fields();
}

void Fcalcul::Command1() {
    Work.Velocity.Awaited.reset();
    if (Refused_As_Offset_Shot() || Shot() == 0) return;
    Work.Velocity.CurrentShot = static_cast<std::int16_t>(Shot());
    Take_Fields();
    // The thicknesses of the display before are stored, the new ones by the save.
    const DepthWork::PerRefractor before = Values.Thickness;
    Unsaved = true;
    Display_Only();
    if (!No_Data(true)) Calcul_Par_Intercept();
    Take_Fields();
    if (!Check1) Values.Thickness = before;
    Store(Named_By_Shot("Intercept depth"), Values);
    if (Check1 && Files.SaveProject && Files.SaveProject(Work, Outside)) Unsaved = false;
    Outside.Show.Show_Fields();
}

std::optional<AwaitedField> Fcalcul::Next_Layer(AwaitedField field) {
    const bool below_velocity = field.Of != AwaitedField::Family::Velocity;
    const int layer = field.Row + (below_velocity ? 2 : 1);
    if (Shot() == 0 || layer > Project::MaxLayers) return std::nullopt;
    if (layer > VisibleLayers) {
        Layers = CStr(layer);
        VisibleLayers = layer;
        Outside.Show.Show_Fields();
    }
    return AwaitedField{AwaitedField::Family::Velocity, layer, field.On};
}

void Fcalcul::Command2() {
    if (!Project_Holds_Times(Work, Outside, Files.LoadProject)) return;
    Forget_Fitted_Lines(Work.Curves);
    Outside.Show.Show_Curves();
}

void Fcalcul::Command3() {
    Work.Velocity.Awaited.reset();
    if (Refused_As_Offset_Shot() || Shot() == 0) return;
    Work.Velocity.CurrentShot = static_cast<std::int16_t>(Shot());
    Unsaved = true;
    std::optional<ShotValues> to_store;
    try {
        Compute_By_Critical_Distance(to_store);
    } catch (const Fault&) {
        Say("Impossible calcul...");
    }
    if (to_store) Store(Named_By_Shot("Critical distance depth"), *to_store);
    Outside.Show.Show_Fields();
}

void Fcalcul::Command4() {
    if (Refused_As_Offset_Shot() || Shot() == 0) return;
    if (No_Data(false)) {
        Say(" No data..");
        return;
    }
    Save();
    Outside.Show.Show_Fields();
}

}  // namespace tarnvik
