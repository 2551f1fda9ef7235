#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarnvik {

/// A band pass with zero phase by its four corners in Hz, none below the one before: nothing passes up to
/// F1, sin^2 rises from there to F2, all passes up to F3, cos^2 falls from there to F4.
struct BandPass {
    double F1 = 0;
    double F2 = 0;
    double F3 = 0;
    double F4 = 0;
    bool operator==(const BandPass&) const = default;

    /// Amplitude factor at a frequency in Hz, 0 to 1.
    double Response(double frequency) const;
    /// Width of the narrower slope that is there, Hz; 0 where one is a step.
    double Narrowest_Slope() const;
};

/// The hum of the power net: its frequency in Hz and how many multiples of it above go as well.
struct HumChoice {
    double Frequency = 50;
    int Harmonics = 0;
    bool operator==(const HumChoice&) const = default;
};

/// What is done with a trace, in this order.
struct FilterChoice {
    bool RemoveMean = false;
    bool RemoveDrift = false;  ///< the straight line that fits the trace best
    std::optional<HumChoice> Hum;
    std::optional<BandPass> Band;
    std::optional<double> Mute;  ///< zero up to this time after time zero, ms
    std::optional<double> Agc;   ///< length of the window, ms
    bool Balance = false;        ///< root mean square 1
    bool Reverse = false;        ///< the polarity
    bool operator==(const FilterChoice&) const = default;

    bool Does_Nothing() const { return *this == FilterChoice(); }
    bool Needs_Interval() const { return Hum || Band || Mute || Agc; }
};

inline constexpr int most_harmonics = 20;

/// From zero at the end of a mute the samples rise to their full size over this time, ms.
inline constexpr double mute_taper = 2;

/// Why a choice cannot be applied to traces of `samples` samples every `interval_us` microseconds, in words
/// for the user; empty when it can. An interval of 0 is none.
std::string Refusal(const FilterChoice& choice, int samples, double interval_us);

/// A band pass that is offered by name.
struct BandPreset {
    const char* Name;
    BandPass Band;
};

/// The presets for a sampling, as far as its Nyquist frequency lets them. The first one is always there and
/// the usual one: it moves no first break by more than a sample.
std::vector<BandPreset> Band_Presets(double interval_us);

/// Half of the sampling frequency, Hz.
constexpr double Nyquist(double interval_us) {
    return 5e5 / interval_us;
}

}  // namespace tarnvik
