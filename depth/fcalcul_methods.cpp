// Fcalcul: the two methods, with their checks and questions.

#include <string>

#include "core/fault.h"
#include "core/text/number.h"
#include "depth/critical_distance_depth.h"
#include "depth/fcalcul.h"
#include "depth/intercept_depth.h"

namespace tarnvik {

namespace {

constexpr double ms_per_second = 1000;
constexpr int fewest_layers = 2;

double Sum(const DepthWork::PerRefractor& values) {
    return values[1] + values[2] + values[3] + values[4];
}

std::string Intercept_Name(std::size_t refractor) {
    return "IT" + std::to_string(refractor);
}

}  // namespace

void Fcalcul::VitesseVraie() {
    const Project& project = Work.Project;
    const double distance = project.ShotDistance(Shot());
    if (distance < 0 || distance > project.LineLength) return;  // no reversed branch
    const double layers = Int(Val(Layers));
    if (layers > Project::MaxLayers) {
        Say("Too many Layers..", Icon::Critical);
        return;
    }
    const LayerTexts& side_b = VelocityB[2].empty() ? VelocityA : VelocityB;
    ApparentVelocities apparent;
    apparent.V1 = (Val(VelocityA[1]) + Val(VelocityB[1])) / 2;
    for (std::size_t layer = 2; layer <= Project::MaxLayers; ++layer) {
        apparent.A[layer] = Val(VelocityA[layer]);
        apparent.B[layer] = Val(side_b[layer]);
    }
    Work.Depth.TrueV[1] = apparent.V1;
    const int wrong = Layer_Out_Of_Order(static_cast<int>(layers), apparent);
    if (wrong != 0) {
        // A wrong layer 2 is told but ends nothing: the caller goes on with the angles of before, so that a
        // shot with one doubtful velocity still gets its depth.
        if (wrong > 2) Work.Depth.VelocityFault = true;
        Say(Layer_Order_Message(wrong), Icon::Critical);
        return;
    }
    True_Velocities(static_cast<int>(layers), apparent, Work.Depth.TrueV, Work.Depth.AngleCritique);
}

void Fcalcul::Calcul_Par_Intercept() {
    try {
        Compute_By_Intercept();
    } catch (const Fault&) {
        Say("Calculation impossible...");
    }
    Outside.Show.Show_Fields();
}

void Fcalcul::Compute_By_Intercept() {
    Computed = false;
    Corrected = false;
    // While the method is under way the results of the display before stand.
    const Results former = ResultsShown ? Results::Shown : Results::Empty;
    DepthWork& work = Work.Depth;
    Caption = "Intercept Time method";
    const double layers = Int(Val(Layers));
    if (layers > Project::MaxLayers) return Say("Too many Layers.. ");
    if (layers < fewest_layers) return Say("Impossible layer value");
    work.NbLayers = static_cast<int>(layers);
    // A first rough look whether anything was entered: two refractors, both sides.
    work.IT = {0, Val(InterceptA[1]) / ms_per_second, Val(InterceptB[1]) / ms_per_second,
               Val(InterceptA[2]) / ms_per_second, Val(InterceptB[2]) / ms_per_second};
    if (Sum(work.IT) == 0) return;
    if (No_Data(true)) return Say(" No data..");
    Take_Fields();
    Affiche_Tir(former);
    VitesseVraie();
    if (work.VelocityFault) {
        work.VelocityFault = false;
        return;
    }
    for (std::size_t refractor = 1; refractor <= Project::MaxRefractors; ++refractor)
        work.IT[refractor] = Val(MeanIntercept[refractor]) / ms_per_second;
    if (Sum(work.IT) == 0) return Say("Intercepts are missing", Icon::Critical);
    // The means of what was corrected before the user gave up follow their sides.
    if (!Intercepts_In_Order(work.NbLayers)) return Show_Side_Rows(work.NbLayers);

    work.HalfShotDepth = Val(ShotDepth) * 0.5;
    Intercept_Thicknesses({work.NbLayers, work.TrueV, work.AngleCritique, work.IT, work.HalfShotDepth},
                          work.Thick, work.RetardCouche);
    Affiche_Tir(Results::Shown);
    Computed = true;
}

/// Asks for a new value where a refractor's intercept is not below the next one's. False ends the method.
bool Fcalcul::Intercepts_In_Order(int layers) {
    const DepthWork& work = Work.Depth;
    for (std::size_t k = 1; k < Project::MaxRefractors; ++k) {
        if (layers <= static_cast<int>(k) + 1 || work.IT[k] < work.IT[k + 1]) continue;
        const std::string upper = Intercept_Name(k);
        const std::string lower = Intercept_Name(k + 1);
        const std::string chosen =
            Outside.Ask.Input("Intercept Time " + std::to_string(k) + " must be smaller than " + lower +
                                  ", Please correct " + upper + " or " + lower,
                              Work.AppTitle, upper);
        if (chosen != upper && chosen != lower) return false;
        if (!Correct_Intercept(static_cast<int>(chosen == upper ? k : k + 1))) return false;
        Take_Fields();
        Corrected = true;
    }
    return true;
}

bool Fcalcul::Correct_Intercept(int refractor) {
    const auto row = static_cast<std::size_t>(refractor);
    double& intercept = Work.Depth.IT[row];
    const double typed = Val(Outside.Ask.Input("Please enter the new " + Intercept_Name(row) + " value",
                                               Work.AppTitle, CStr(intercept * ms_per_second)));
    if (!(typed > 0)) return false;
    intercept = typed / ms_per_second;
    MeanIntercept[row] = InterceptA[row] = InterceptB[row] = CStr(typed);
    return true;
}

void Fcalcul::Compute_By_Critical_Distance(std::optional<ShotValues>& to_store) {
    Computed = false;
    const Results former = ResultsShown ? Results::Shown : Results::Empty;
    DepthWork& work = Work.Depth;
    const double layers = Int(Val(Layers));
    if (layers > Project::MaxLayers) return Say("Too many Layers.. ");
    if (layers < fewest_layers) return Say("Impossible layer value");
    work.NbLayers = static_cast<int>(layers);
    if (No_Data(false)) return Say(" No data..");
    Caption = "Critical Distance method";
    Take_Fields();
    const ShotValues before = Values;  // with the thicknesses of the display before
    to_store = Values;
    Affiche_Tir(former);
    to_store = Values;
    VitesseVraie();
    if (work.VelocityFault) {
        work.VelocityFault = false;
        return;
    }
    // IT3B goes over IT1A in the project, a fixed step of the method; the next store of the fields undoes it.
    to_store->InterceptA[1] = Val(InterceptB[3]);

    for (std::size_t refractor = 1; refractor <= Project::MaxRefractors; ++refractor)
        work.CD[refractor] = Val(MeanCritDist[refractor]);
    if (Sum(work.CD) == 0) return Say(" No Critical distances..");
    // The second text names CD 2 twice; the wording stays.
    const std::array<const char*, 4> messages{"", " CD 1 must be  smaller as CD 2",
                                              " CD 2 must be  smaller as CD 2",
                                              " CD 3 must be  smaller as CD 4"};
    for (std::size_t k = 1; k < messages.size(); ++k) {
        if (layers > static_cast<double>(k) + 1 && work.CD[k] >= work.CD[k + 1])
            return Say(messages[k], Icon::Critical);
    }
    work.HalfShotDepth = Val(ShotDepth) * 0.5;
    Critical_Distance_Thicknesses(work.NbLayers, work.TrueV, work.CD, work.HalfShotDepth, work.Thick);
    Take_Fields();
    Values.Thickness = before.Thickness;
    to_store = Values;
    Affiche_Tir(Results::Shown);
    Computed = true;
}

}  // namespace tarnvik
