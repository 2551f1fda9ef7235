#include "core/display_mode.h"

#include <array>
#include <utility>

namespace tarnvik {

namespace {

using enum DisplayMode;

constexpr std::array<std::pair<DisplayMode, std::string_view>, 18> words = {{
    {None, ""},
    {Dromo, "DROMO"},
    {Vitesse, "Vitesse"},
    {Vitesse2, "Vitesse2"},
    {Velocity, "Velocity"},
    {Fantom, "Fantom"},
    {Delay, "DELAY"},
    {Abc, "ABC"},
    {Quick, "quick"},
    {QuickOver, "dromo"},
    {Calcul, "Calcul"},
    {Grm, "GRM"},
    {GrmV, "GRMV"},
    {Profil, "Profil"},
    {Profil2, "Profil2"},
    {Profil3, "Profil3"},
    {Profil4, "Profil4"},
    {Both, "BI"},
}};

}  // namespace

std::string_view Word_Of(DisplayMode mode) {
    for (const auto& [entry, word] : words) {
        if (entry == mode) return word;
    }
    return {};
}

std::optional<DisplayMode> Mode_Of_Word(std::string_view word) {
    for (const auto& [mode, entry] : words) {
        if (entry == word) return mode;
    }
    return std::nullopt;
}

bool Is_Profile(DisplayMode mode) {
    return mode == Profil || mode == Profil2 || mode == Profil3 || mode == Profil4;
}

void PictureMode::Take(Dialog dialog, DisplayMode mode) {
    Release(dialog);
    Holders.push_back({dialog, mode});
}

void PictureMode::Release(Dialog dialog) {
    std::erase_if(Holders, [dialog](const Holder& holder) { return holder.Owner == dialog; });
}

}  // namespace tarnvik
