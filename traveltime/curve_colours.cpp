#include <cmath>

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
