#include "depth/true_velocity.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/fault.h"

namespace tarnvik {

namespace {

/// Mean over the two branches of the critical angle between an upper velocity and an apparent lower one.
double Mean_Angle(double upper, double lower_a, double lower_b) {
    return 0.5 * ArcSinus(Divide(upper, lower_a)) + 0.5 * ArcSinus(Divide(upper, lower_b));
}

}  // namespace

double ArcSinus(double ratio) {
    if (!(ratio > 0)) return 0;
    if (ratio >= 1) throw Fault("no critical angle");
    return std::atan(std::sqrt(ratio * ratio / (1 - ratio * ratio)));
}

std::string Layer_Order_Message(int layer) {
    return "Layer " + std::to_string(layer) + " Velocity must be  greater ...";
}

int Layer_Out_Of_Order(int layers, const ApparentVelocities& apparent) {
    if (apparent.A[2] < apparent.V1) return 2;
    for (const DepthWork::PerLayer* side : {&apparent.A, &apparent.B}) {
        for (std::size_t layer = 3; layer <= Project::MaxLayers; ++layer) {
            if (layers >= static_cast<int>(layer) && (*side)[layer - 1] > (*side)[layer])
                return static_cast<int>(layer);
        }
    }
    return 0;
}

void True_Velocities(int layers, const ApparentVelocities& apparent, DepthWork::PerLayer& velocity,
                     DepthWork::LayerMatrix& angle) {
    const auto count = static_cast<std::size_t>(std::clamp(layers, 0, Project::MaxLayers));
    const auto mean_angle = [&apparent](double upper, std::size_t layer) {
        return Mean_Angle(upper, apparent.A[layer], apparent.B[layer]);
    };
    for (std::size_t layer = 2; layer <= count; ++layer)
        angle[layer][1] = mean_angle(apparent.V1, layer);
    velocity[1] = apparent.V1;
    for (std::size_t layer = 2; layer <= count; ++layer)
        velocity[layer] = Divide(velocity[1], std::sin(angle[layer][1]));
    for (std::size_t layer = 3; layer <= count; ++layer) {
        for (std::size_t upper = 2; upper < layer; ++upper)
            angle[layer][upper] = mean_angle(velocity[upper], layer);
    }
}

ApparentVelocities Apparent_Velocities_Of(const Project& project, int shot) {
    ApparentVelocities apparent;
    const auto sum = static_cast<float>(project.VelocityA(shot, 1) + project.VelocityB(shot, 1));
    apparent.V1 = sum / 2;
    for (std::size_t layer = 2; layer <= Project::MaxLayers; ++layer) {
        apparent.A[layer] = project.VelocityA(shot, static_cast<int>(layer));
        apparent.B[layer] = project.VelocityB(shot, static_cast<int>(layer));
    }
    return apparent;
}

bool Vitesse_Vraie_Commune(Workspace& workspace, Ports& ports, int shot, int layers,
                           ApparentVelocities apparent) {
    const DisplayMode mode = workspace.Mode.Current();
    const bool quick = mode == DisplayMode::Quick;
    const auto refuse = [&](const std::string& text) {
        if (quick) {
            workspace.Velocity.QuickStatus = text;
            ports.Show.Show_Fields();
        } else {
            ports.Ask.Say(text, workspace.AppTitle, Icon::Critical);
        }
        return false;
    };
    if (layers == 0 && mode == DisplayMode::Calcul) return refuse("Layer number missing");
    if (layers > Project::MaxLayers) return refuse("Too many Layers..");
    if (mode == DisplayMode::Abc) apparent = Apparent_Velocities_Of(workspace.Project, shot);

    DepthWork& depth = workspace.Depth;
    const int wrong = Layer_Out_Of_Order(layers, apparent);
    if (wrong == 2) depth.TrueV[1] = apparent.V1;
    if (wrong != 0) {
        // A wrong layer 2 is no VelocityFault outside quick_interpret: the caller goes on with former angles.
        if (wrong > 2 || quick) depth.VelocityFault = true;
        return refuse(Layer_Order_Message(wrong));
    }
    True_Velocities(layers, apparent, depth.TrueV, depth.AngleCritique);
    return true;
}

}  // namespace tarnvik
