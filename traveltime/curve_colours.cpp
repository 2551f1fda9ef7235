#include <cmath>
#include <iterator>

#include "core/ports/picture.h"
#include "core/text/number.h"
#include "traveltime/curves.h"

namespace tarnvik {

void Couleur_Tir(const Project& project, int shot, Colour& colour) {
    const int shots = project.NbShots;
    if (shots > 11) {
        constexpr Colour by_last_digit[] = {colours::Brown, colours::Blue, colours::Red, colours::Green,
                                            colours::Magenta};
        if (shot >= 0) colour = by_last_digit[shot % 5];
        return;
    }
    // A later match overrides an earlier one: of five shots the first is green, not blue.
    const auto either_end = [shot, shots](int place) { return shot == place || shot == shots + 1 - place; };
    if (either_end(1)) colour = colours::Blue;
    if (either_end(2)) colour = colours::Red;
    if (either_end(3)) colour = colours::Green;
    if (either_end(4)) colour = colours::Magenta;
    if (either_end(5)) colour = colours::Green;
    if (shot == Int(shots / 2.0) + 1) colour = colours::Red;
}

void Shot_Colour(const Workspace& workspace, int shot, Colour& colour) {
    if (!workspace.Curves.DistinctColours) return Couleur_Tir(workspace.Project, shot, colour);
    constexpr auto rgb = [](int red, int green, int blue) { return red + green * 256 + blue * 65536; };
    // Neighbours differ as much as they can, all are dark enough for white paper.
    constexpr Colour distinct[] = {
        rgb(31, 80, 200), rgb(214, 39, 40),  rgb(20, 140, 50), rgb(200, 30, 200),
        rgb(230, 120, 0), rgb(0, 140, 150),  rgb(120, 70, 20), rgb(110, 60, 190),
        rgb(130, 135, 0), rgb(240, 90, 160), rgb(64, 64, 64),  rgb(60, 165, 240),
    };
    constexpr int count = static_cast<int>(std::size(distinct));
    if (shot >= 1) colour = distinct[(shot - 1) % count];
}

Colour Colour_Of_Shot_Alone(const Workspace& workspace) {
    return workspace.Mode.Current() == DisplayMode::Quick ? colours::Blue : colours::Red;
}

Colour Layer_Colour(int layer) {
    constexpr Colour by_layer[] = {colours::Black, 0x0070E0, 0xB06000, 0x9000C0, 0x308C00, 0x004880};
    return layer >= 0 && layer <= Project::MaxLayers ? by_layer[layer] : colours::Black;
}

Colour Couleur_Vitesse(const Settings& settings, double velocity) {
    const double v = std::abs(velocity);
    // The highest limit reached decides, so that limits out of order still give a class.
    for (int k = 5; k >= 1; --k) {
        if (v >= settings.ColorLimits[static_cast<std::size_t>(k - 1)])
            return settings.ClassColor[static_cast<std::size_t>(k)];
    }
    return settings.ClassColor[0];
}

}  // namespace tarnvik
