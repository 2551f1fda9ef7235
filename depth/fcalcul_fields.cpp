// Fcalcul: what stands in the fields, and how it comes from and goes into the project.

#include <utility>

#include "core/fault.h"
#include "core/text/number.h"
#include "depth/fcalcul.h"
#include "depth/refractor_means.h"
#include "depth/shot_velocities.h"

namespace tarnvik {

namespace {

constexpr std::int16_t usual_v1 = 300;
constexpr std::int16_t usual_v2 = 700;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

/// Layers 1 and 2 always have a velocity: the usual one where both sides have none, the other side's where
/// one has none.
void Complete_Velocities(Project& project, int shot) {
    for (const auto& [layer, usual] : {std::pair{1, usual_v1}, std::pair{2, usual_v2}}) {
        std::int16_t& side_a = project.VelocityA(shot, layer);
        std::int16_t& side_b = project.VelocityB(shot, layer);
        if (side_a == 0 && side_b == 0) side_a = side_b = usual;
        if (side_a == 0 && side_b >= 1) side_a = side_b;
        if (side_b == 0 && side_a >= 1) side_b = side_a;
    }
}

double Sum(const Fcalcul::LayerTexts& side) {
    return Val(side[1]) + Val(side[2]) + Val(side[3]);
}

}  // namespace

bool Fcalcul::No_Data(bool both_sides) const {
    return Sum(VelocityA) == 0 && (!both_sides || Sum(VelocityB) == 0);
}

std::string* Fcalcul::Field_Of(AwaitedField field) {
    using Family = AwaitedField::Family;
    const bool side_a = field.On == AwaitedField::Side::A;
    const int rows = field.Of == Family::Velocity ? Project::MaxLayers : Project::MaxRefractors;
    if (field.Row < 1 || field.Row > rows) return nullptr;
    switch (field.Of) {
        case Family::Velocity:
            return &(side_a ? VelocityA : VelocityB)[At(field.Row)];
        case Family::Intercept:
            return &(side_a ? InterceptA : InterceptB)[At(field.Row)];
        case Family::CriticalDistance:
            return &(side_a ? CritDistA : CritDistB)[At(field.Row)];
    }
    return nullptr;
}

void Fcalcul::Empty_Results() {
    TrueV = {};
    Thick = {};
    Depth = {};
}

void Fcalcul::Empty_Rows() {
    VelocityA = {};
    VelocityB = {};
    InterceptA = {};
    InterceptB = {};
    MeanIntercept = {};
    CritDistA = {};
    CritDistB = {};
    MeanCritDist = {};
    Empty_Results();
}

void Fcalcul::Affiche_Tir(Results results) {
    Project& project = Work.Project;
    const int shot = Shot();
    if (shot == 0) throw Fault("no such shot");
    Complete_Velocities(project, shot);
    int layers = 0;
    DepthWork::PerLayer velocities{};
    Shot_Velocities(project, shot, layers, velocities);
    Layers = CStr(layers);
    VisibleLayers = layers;
    ShotDepth = CStr(project.ShotDepth(shot));
    Altitude = CStr(project.ShotElevation(shot));
    Show_Side_Rows(layers);
    if (results == Results::Empty) {
        Empty_Results();
        return;
    }
    Show_Results(layers);
}

void Fcalcul::Show_Side_Rows(int layers) {
    const Project& project = Work.Project;
    const int shot = Shot();
    for (int layer = 1; layer <= layers; ++layer) {
        VelocityA[At(layer)] = CStr(static_cast<int>(project.VelocityA(shot, layer)));
        VelocityB[At(layer)] = CStr(static_cast<int>(project.VelocityB(shot, layer)));
    }
    for (int refractor = 1; refractor < layers; ++refractor) {
        const std::size_t row = At(refractor);
        InterceptA[row] = CStr(project.InterceptA(shot, refractor));
        InterceptB[row] = CStr(project.InterceptB(shot, refractor));
        CritDistA[row] = CStr(project.CritDistA(shot, refractor));
        CritDistB[row] = CStr(project.CritDistB(shot, refractor));
        double mean = 0;
        Moyenne_Intercept(project, shot, refractor, mean);
        MeanIntercept[row] = CStr(mean);
        mean = 0;
        Moyenne_Critique(project, shot, refractor, mean);
        MeanCritDist[row] = CStr(mean);
    }
}

void Fcalcul::Show_Results(int layers) {
    DepthWork& work = Work.Depth;
    Empty_Results();
    for (int layer = 1; layer <= layers; ++layer) {
        if (work.TrueV[At(layer)] > 0) TrueV[At(layer)] = CStr(Int(work.TrueV[At(layer)]));
    }
    DepthWork::PerRefractor rounded = work.Thick;
    for (double& thickness : rounded)
        thickness = CInt_Or_Fault(100 * thickness) / 100.0;
    work.Thick = rounded;
    double depth = 0;
    for (int layer = 1; layer < layers; ++layer) {
        const double thickness = work.Thick[At(layer)];
        if (thickness > 0) Thick[At(layer)] = CStr(thickness);
        depth += thickness;
        Depth[At(layer)] = CStr(depth);
    }
}

void Fcalcul::Enregistre_Tir(Thicknesses thicknesses) {
    Project& project = Work.Project;
    const int shot = Shot();
    if (shot == 0) return;
    project.ShotElevation(shot) = Val(Altitude);
    project.ShotDepth(shot) = Val(ShotDepth);
    for (int layer = 1; layer <= Project::MaxLayers; ++layer) {
        Store_If_It_Fits(project.VelocityA(shot, layer), Val(VelocityA[At(layer)]));
        Store_If_It_Fits(project.VelocityB(shot, layer), Val(VelocityB[At(layer)]));
    }
    for (int refractor = 1; refractor <= Project::MaxRefractors; ++refractor) {
        const std::size_t row = At(refractor);
        project.InterceptA(shot, refractor) = Val(InterceptA[row]);
        project.InterceptB(shot, refractor) = Val(InterceptB[row]);
        project.CritDistA(shot, refractor) = Val(CritDistA[row]);
        project.CritDistB(shot, refractor) = Val(CritDistB[row]);
        if (thicknesses == Thicknesses::Stored) project.ShotThickness(shot, refractor) = Val(Thick[row]);
    }
}

}  // namespace tarnvik
