#include "depth/theoric_f.h"

#include <algorithm>

#include "core/fault.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "depth/shot_velocities.h"
#include "depth/true_velocity.h"
#include "traveltime/curve_axes.h"
#include "traveltime/curve_overlays.h"

namespace tarnvik {

namespace {

using PerLayer = std::array<double, Project::MaxLayers + 1>;

constexpr int line_width = 2;
constexpr const char* not_possible = "Error, calcul not possible...";

PerLayer Values_Of(const TheoricF::LayerTexts& texts) {
    PerLayer values{};
    std::transform(texts.begin() + 1, texts.end(), values.begin() + 1,
                   [](const std::string& text) { return Val(text); });
    return values;
}

/// The layers below a shot as the project holds them: true velocities of its two branches, or where they have
/// no critical angles the velocities as they are.
PlaneLayers Model_Of_Shot(const Project& project, int shot) {
    PlaneLayers layers;
    Shot_Velocities(project, shot, layers.Count, layers.Velocity);
    if (layers.Velocity[2] == 0) layers.Count = 1;
    const ApparentVelocities apparent = Apparent_Velocities_Of(project, shot);
    bool both_sides = layers.Count >= 2 && project.VelocityA(shot, 1) != 0 && project.VelocityB(shot, 1) != 0;
    for (std::size_t layer = 2; static_cast<int>(layer) <= layers.Count; ++layer)
        both_sides &= apparent.A[layer] != 0 && apparent.B[layer] != 0;
    if (both_sides && Layer_Out_Of_Order(layers.Count, apparent) == 0) {
        try {
            DepthWork::LayerMatrix angles{};
            PerLayer velocities = layers.Velocity;
            True_Velocities(layers.Count, apparent, velocities, angles);
            layers.Velocity = velocities;
        } catch (const Fault&) {
            // No critical angle.
        }
    }
    for (int layer = 1; layer < layers.Count; ++layer)
        layers.Thickness.at(static_cast<std::size_t>(layer)) = project.ShotThickness(shot, layer);
    return layers;
}

}  // namespace

void TheoricF::Load() {
    Forget_Result();
    Drawn.clear();
    Work.Curves.Overlays[Dialog::Theoric_F] = {[this](Picture& picture) { Draw_Models(picture); }, {}};
    Outside.Show.Show_Fields();
}

void TheoricF::Close() {
    const bool stood = !Drawn.empty();
    Drawn.clear();
    Forget_Overlay(Work, Outside, Dialog::Theoric_F);
    Outside.Show.Close_Dialog(Dialog::Theoric_F);
    if (stood) Outside.Show.Repaint_Page(Page::Curves);
}

void TheoricF::Row_Changed() {
    double depth = 0;
    for (std::size_t layer = 1; layer < Depth.size(); ++layer) {
        depth += Val(Thickness[layer]);
        Depth[layer] = Trim(Thickness[layer]).empty() ? std::string() : CStr(depth);
    }
    Outside.Show.Show_Fields();
}

int TheoricF::Shot_On_Hand() const {
    const int shot = Work.Velocity.CurrentShot;
    const Project& project = Work.Project;
    return shot >= 1 && shot <= project.NbShots && project.ShotThickness.Has(shot, 1) ? shot : 0;
}

void TheoricF::Take_Model() {
    const int shot = Shot_On_Hand();
    const PlaneLayers layers = shot > 0 ? Model_Of_Shot(Work.Project, shot) : PlaneLayers{};
    if (layers.Velocity[1] == 0) {
        Outside.Ask.Say("Shot " + CStr(shot) + " has no velocities yet", Work.AppTitle);
        return;
    }
    ShotLocation = CStr(Work.Project.ShotDistance(shot));
    ShotDepth = CStr(Work.Project.ShotDepth(shot));
    for (std::size_t layer = 1; layer < Velocity.size(); ++layer) {
        const bool in_use = static_cast<int>(layer) <= layers.Count;
        const bool bounded = static_cast<int>(layer) < layers.Count;
        Velocity[layer] = in_use ? CStr(Rounded(layers.Velocity[layer])) : std::string();
        Thickness[layer] = bounded ? CStr(layers.Thickness[layer]) : std::string();
    }
    Row_Changed();
}

TheoricF::Drawing TheoricF::Read_Fields() const {
    constexpr Colour line_colours[] = {colours::Black, colours::Red, colours::Blue};
    Drawing model;
    model.Layers = Layers_Read(Values_Of(Velocity), Values_Of(Thickness));
    model.Shot = Val(ShotLocation);
    model.HalfShotDepth = Val(ShotDepth) * 0.5;
    model.InColour = line_colours[std::clamp(LineType, 0, 2)];
    return model;
}

std::vector<CurveBranch> TheoricF::Branches_Of(const Drawing& model) const {
    return Theoretic_Branches(model.Layers, model.Shot, model.HalfShotDepth,
                              {Work.Project.LineLength, Work.Curves.TimeFactor});
}

void TheoricF::Forget_Result() {
    NbLayers = 0;
    IT.clear();
    Branches.clear();
}

/// False after a message; there is no result then.
bool TheoricF::Compute(const Drawing& model) {
    Forget_Result();
    const PlaneLayers& layers = model.Layers;
    if (const int wrong = Layer_Without_Refraction(layers); wrong != 0) {
        Outside.Ask.Say(Layer_Order_Message(wrong), Work.AppTitle, Icon::Critical);
        return false;
    }
    try {
        Branches = Branches_Of(model);
        const auto intercepts = Intercepts_Of_Layers(layers, model.HalfShotDepth);
        IT.assign(intercepts.begin() + 1, intercepts.begin() + layers.Count);
        NbLayers = layers.Count;
    } catch (const Fault&) {
        Outside.Ask.Say(not_possible, Work.AppTitle, Icon::Critical);
        return false;
    }
    return true;
}

void TheoricF::Command2() {
    const Drawing model = Read_Fields();
    if (!Compute(model)) return;
    if (std::find(Drawn.begin(), Drawn.end(), model) == Drawn.end()) Drawn.push_back(model);
    Outside.Show.Repaint_Page(Page::Curves);
}

void TheoricF::Command3() {
    Drawn.clear();
    Outside.Show.Show_Curves();
}

void TheoricF::Draw_Models(Picture& picture) const {
    picture.Set_Draw_Width(line_width);
    for (const Drawing& model : Drawn) {
        try {
            const std::vector<CurveBranch> branches = Branches_Of(model);
            const double x = model.Shot * curve_picture_width / Work.Project.LineLength;
            picture.Line(x, 0, x, curve_picture_height, model.InColour);
            for (const CurveBranch& branch : branches)
                picture.Line(branch.X1, branch.Y1, branch.X2, branch.Y2, model.InColour);
        } catch (const Fault&) {
            // The line that it was computed for has another length now.
        }
    }
    picture.Set_Draw_Width(1);
}

}  // namespace tarnvik
