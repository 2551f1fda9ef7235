// Fcalcul: what stands in the fields, and how it comes from and goes into the values of the shot.

#include <algorithm>
#include <cmath>

#include "core/fault.h"
#include "core/text/number.h"
#include "depth/fcalcul.h"
#include "depth/refractor_means.h"

namespace tarnvik {

namespace {

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
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
    ResultsShown = false;
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
    if (Shot() == 0) throw Fault("no such shot");
    Complete_Velocities(Values);
    const int layers = Layers_Of(Values);
    Layers = CStr(layers);
    VisibleLayers = layers;
    ShotDepth = CStr(Values.Depth);
    Altitude = CStr(Values.Elevation);
    Show_Side_Rows(layers);
    if (results == Results::Empty) {
        Empty_Results();
        return;
    }
    Show_Results(layers);
}

void Fcalcul::Show_Side_Rows(int layers) {
    for (int layer = 1; layer <= layers; ++layer) {
        VelocityA[At(layer)] = CStr(static_cast<int>(Values.VelocityA[At(layer)]));
        VelocityB[At(layer)] = CStr(static_cast<int>(Values.VelocityB[At(layer)]));
    }
    for (int refractor = 1; refractor < layers; ++refractor) {
        const std::size_t row = At(refractor);
        InterceptA[row] = CStr(Values.InterceptA[row]);
        InterceptB[row] = CStr(Values.InterceptB[row]);
        CritDistA[row] = CStr(Values.CritDistA[row]);
        CritDistB[row] = CStr(Values.CritDistB[row]);
        MeanIntercept[row] = CStr(Mean_Of_Sides(Values.InterceptA[row], Values.InterceptB[row], 0));
        MeanCritDist[row] = CStr(Mean_Of_Sides(Values.CritDistA[row], Values.CritDistB[row], 0));
    }
}

void Fcalcul::Show_Results(int layers) {
    DepthWork& work = Work.Depth;
    Empty_Results();
    for (int layer = 1; layer <= layers; ++layer) {
        if (work.TrueV[At(layer)] > 0) TrueV[At(layer)] = CStr(Int(work.TrueV[At(layer)]));
    }
    DepthWork::PerRefractor rounded = work.Thick;
    // One that cannot be shown must not stand in the way of the next computation.
    work.Thick = {};
    for (double& thickness : rounded)
        thickness = Shown_Thickness(thickness);
    work.Thick = rounded;
    double depth = 0;
    for (int layer = 1; layer < layers; ++layer) {
        const double thickness = work.Thick[At(layer)];
        if (thickness > 0) Thick[At(layer)] = CStr(thickness);
        depth += thickness;
        Depth[At(layer)] = CStr(depth);
    }
    ResultsShown = true;
}

/// The thicknesses that the project holds for a shot which intercept times give none for, or which have come
/// from its critical distances: they are not taken away by looking at the shot, nor by saving what is shown.
void Fcalcul::Show_Stored_Thicknesses() {
    const DepthWork::PerRefractor& stored = Values.Thickness;
    const auto layers = At(Layers_Of(Values));
    if (std::all_of(stored.begin(), stored.end(), [](double thickness) { return !(thickness > 0); })) return;
    if (Computed) {
        const auto critical = Depths_By_Critical_Distance(Values);
        constexpr double hundredth = 0.006;
        const auto same = [&](const DepthWork::PerRefractor& other) {
            for (std::size_t row = 1; row < layers; ++row) {
                if (std::abs(other[row] - stored[row]) > hundredth) return false;
            }
            return true;
        };
        if (same(Work.Depth.Thick) || !critical || !same(*critical)) return;
    }
    const LayerTexts true_v = Computed ? TrueV : LayerTexts{};
    Work.Depth.Thick = stored;
    try {
        Show_Results(static_cast<int>(layers));
    } catch (const Fault&) {
        Empty_Results();
        return;
    }
    TrueV = true_v;
    Caption = Computed ? "Critical Distance method" : "";
}

void Fcalcul::Take_Fields() {
    const Project& project = Work.Project;
    if (Shot() == 0) return;
    // What does not fit its place keeps what the project holds.
    Values = Values_Of_Shot(project, Shot());
    Values.Elevation = Val(Altitude);
    Values.Depth = Val(ShotDepth);
    for (std::size_t layer = 1; layer <= Project::MaxLayers; ++layer) {
        Store_If_It_Fits(Values.VelocityA[layer], Val(VelocityA[layer]));
        Store_If_It_Fits(Values.VelocityB[layer], Val(VelocityB[layer]));
    }
    for (std::size_t row = 1; row <= Project::MaxRefractors; ++row) {
        Values.InterceptA[row] = Val(InterceptA[row]);
        Values.InterceptB[row] = Val(InterceptB[row]);
        Values.CritDistA[row] = Val(CritDistA[row]);
        Values.CritDistB[row] = Val(CritDistB[row]);
        if (ResultsShown) Values.Thickness[row] = Val(Thick[row]);
    }
}

}  // namespace tarnvik
