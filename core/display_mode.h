#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace tarnvik {

enum class Dialog;

/// What the travel-time picture shows and what a press on it means. The words stand in DisplayMode of the
/// program's texts and of tarnvik-batch.
enum class DisplayMode {
    None,       ///< "": nothing reacts
    Dromo,      ///< "DROMO": the curves, the normal state
    Vitesse,    ///< "Vitesse": SpeedF
    Vitesse2,   ///< "Vitesse2": SpeedF3
    Velocity,   ///< "Velocity": SpeedF2
    Fantom,     ///< "Fantom": FantomF
    Delay,      ///< "DELAY": DelayF
    Abc,        ///< "ABC": ABCGridF
    Quick,      ///< "quick": quick_interpret
    QuickOver,  ///< "dromo": after quick_interpret has closed; no handler knows it, nothing reacts until the
                ///< next command
    Calcul,     ///< "Calcul": Fcalcul
    Grm,        ///< "GRM": time-depth display of GRM
    GrmV,       ///< "GRMV": velocity display of GRM
    Profil,     ///< "Profil": profile with the depths under the shots
    Profil2,    ///< "Profil2": and ABC depths
    Profil3,    ///< "Profil3": and ABC and GRM depths
    Profil4,    ///< "Profil4": and GRM depths
    Both,       ///< "BI": curves and profile together
};

/// The word of a mode, and the mode of a word; nothing for a word that is none.
std::string_view Word_Of(DisplayMode mode);
std::optional<DisplayMode> Mode_Of_Word(std::string_view word);

/// True for Profil, Profil2, Profil3 and Profil4.
bool Is_Profile(DisplayMode mode);

/// Who has the picture. Commands choose what it displays; a dialog that takes it keeps it until it releases
/// it, whatever is drawn, saved, enlarged or scrolled meanwhile. Of several dialogs the one that took it last
/// has it, and the one before gets it back.
class PictureMode {
  public:
    /// What a press means now: the mode of the dialog that has the picture, or else what is displayed.
    DisplayMode Current() const { return Holders.empty() ? Displayed : Holders.back().Mode; }
    /// What the last command displayed, whoever has the picture.
    DisplayMode On_Display() const { return Displayed; }
    /// A command displays something else.
    void Display(DisplayMode mode) { Displayed = mode; }

    /// The dialog takes the picture, or takes it back from one that took it later.
    void Take(Dialog dialog, DisplayMode mode);
    /// The dialog closes.
    void Release(Dialog dialog);
    bool Held_By(Dialog dialog) const { return !Holders.empty() && Holders.back().Owner == dialog; }

  private:
    struct Holder {
        Dialog Owner;
        DisplayMode Mode;
    };
    DisplayMode Displayed = DisplayMode::Dromo;
    std::vector<Holder> Holders;
};

}  // namespace tarnvik
