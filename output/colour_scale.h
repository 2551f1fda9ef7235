#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/text_grid.h"

namespace tarnvik {

/// Colours by velocity: bands from one level to the next, or even passages between steps.
class ColourScale {
  public:
    struct Step {
        double Velocity = 0;
        Colour InColour = 0;
        bool operator==(const Step&) const = default;
    };

    ColourScale() = default;
    ColourScale(std::vector<Step> steps, bool in_bands);

    /// Below the first step the colour is the first one, above the last step the last one.
    Colour Of(double velocity) const;
    bool In_Bands() const { return InBands; }
    /// In rising order of the velocities.
    const std::vector<Step>& Steps() const { return Rising; }

  private:
    std::vector<Step> Rising;
    bool InBands = false;
};

/// Red, green and blue, 0 to 255, as a colour number.
constexpr Colour Rgb(int red, int green, int blue) {
    return red + green * 256 + blue * 65536;
}

/// Nine steps of the scale viridis from dark violet to yellow: its lightness rises evenly, so that equal
/// differences look equal and a grey print keeps the order (van der Walt and Smith 2015).
inline constexpr std::array<Colour, 9> even_colours = {
    Rgb(68, 1, 84),    Rgb(71, 44, 122), Rgb(59, 81, 139),  Rgb(44, 113, 142), Rgb(33, 144, 141),
    Rgb(39, 173, 129), Rgb(92, 200, 99), Rgb(170, 220, 50), Rgb(253, 231, 37)};
/// The same of the scale cividis, blue to yellow, which looks alike to eyes that do not tell red from green
/// (Nunez, Anderton and Renslow 2018).
inline constexpr std::array<Colour, 9> colour_blind_colours = {
    Rgb(0, 34, 78),     Rgb(33, 56, 111),   Rgb(76, 84, 108),  Rgb(99, 104, 112), Rgb(125, 124, 120),
    Rgb(155, 146, 118), Rgb(187, 172, 106), Rgb(221, 201, 83), Rgb(254, 232, 56)};

/// A scale of the program's own from velocity 0 to `max_velocity`.
ColourScale Even_Scale(const std::array<Colour, 9>& colours, double max_velocity);

/// A scale read from a file, or what is wrong with it.
struct ColourScaleReading {
    ColourScale Scale;
    std::string Fault;  ///< empty when it could be read
};

/// A colour scale file, told by its first word. Levels ("LVL", "LVL2", "LVL3"): a line for each velocity, its
/// fields separated by blanks, texts in double quotes, the fill colour second of the colours ("Red" or
/// "R255 G0 B0"); a velocity and nothing else gets a colour of the even scale. Comments begin with a single
/// quote. A colour map ("ColorMap"): lines of per cent, red, green, blue, the per cents from velocity 0 to
/// `max_velocity`.
ColourScaleReading Read_Colour_Scale(std::string_view bytes, double max_velocity);

/// True for a colour on which white letters are read more easily than black ones.
bool Is_Dark(Colour colour);

/// A colour by its English name or in the form "R255 G128 B0"; nothing for other words.
std::optional<Colour> Named_Colour(std::string_view text);

}  // namespace tarnvik
