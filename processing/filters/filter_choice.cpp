#include "processing/filters/filter_choice.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/text/number.h"

namespace tarnvik {

namespace {

/// From 0 to 1 as `part` goes from 0 to 1.
double Rise(double part) {
    const double sine = std::sin(part * std::numbers::pi / 2);
    return sine * sine;
}

std::string Corners(const BandPass& band) {
    return CStr(band.F1) + ", " + CStr(band.F2) + ", " + CStr(band.F3) + ", " + CStr(band.F4) + " Hz";
}

std::string Band_Refusal(const BandPass& band, double nyquist) {
    const std::string named = "band pass " + Corners(band) + ": ";
    for (const double corner : {band.F1, band.F2, band.F3, band.F4}) {
        if (!std::isfinite(corner) || corner < 0) return named + "a corner is a frequency of 0 Hz or above";
    }
    if (band.F1 > band.F2 || band.F2 > band.F3 || band.F3 > band.F4)
        return named + "the corners must not fall, each is as high as the one before or higher";
    if (band.F4 > nyquist)
        return named + "the last corner is above the Nyquist frequency of these traces, " + CStr(nyquist) +
               " Hz";
    if (band.F1 == band.F4) return named + "nothing lies between the corners";
    return {};
}

std::string Hum_Refusal(const HumChoice& hum, double nyquist, double length_ms) {
    const std::string named = "notch at " + CStr(hum.Frequency) + " Hz: ";
    if (!(hum.Frequency > 0) || !(hum.Frequency < nyquist))
        return named + "it must lie between 0 and the Nyquist frequency of these traces, " + CStr(nyquist) +
               " Hz";
    if (hum.Harmonics < 0 || hum.Harmonics > most_harmonics)
        return named + "harmonics are 0 to " + CStr(most_harmonics);
    if (hum.Frequency * length_ms < 1000)
        return named + "the traces are " + CStr(length_ms) + " ms long, shorter than one period of it";
    return {};
}

}  // namespace

double BandPass::Response(double frequency) const {
    if (frequency < F1 || frequency > F4) return 0;
    if (frequency < F2) return Rise((frequency - F1) / (F2 - F1));
    if (frequency <= F3) return 1;
    return Rise((F4 - frequency) / (F4 - F3));
}

double BandPass::Narrowest_Slope() const {
    // Without a low or a high corner there is no slope on that side.
    return F2 > 0 ? std::min(F2 - F1, F4 - F3) : F4 - F3;
}

std::string Refusal(const FilterChoice& choice, int samples, double interval_us) {
    if (choice.Does_Nothing()) return "there is nothing to do: no filter is chosen";
    if (choice.Needs_Interval() && !(interval_us > 0))
        return "dt, the sample interval, is 0: no filter that goes by time or frequency can be used";
    const double nyquist = Nyquist(interval_us);
    const double length = samples * interval_us / 1000;
    if (choice.Hum) {
        const std::string wrong = Hum_Refusal(*choice.Hum, nyquist, length);
        if (!wrong.empty()) return wrong;
    }
    if (choice.Band) {
        const std::string wrong = Band_Refusal(*choice.Band, nyquist);
        if (!wrong.empty()) return wrong;
    }
    if (choice.Mute && !std::isfinite(*choice.Mute)) return "mute: the time is no number";
    if (choice.Agc && !(*choice.Agc * 1000 >= 2 * interval_us && std::isfinite(*choice.Agc)))
        return "AGC: the window of " + CStr(*choice.Agc) + " ms is shorter than two samples";
    return {};
}

std::vector<BandPreset> Band_Presets(double interval_us) {
    const double nyquist = interval_us > 0 ? Nyquist(interval_us) : 0;
    // A sharp onset spreads by about one period of the upper corners, so they go with the sampling: then an
    // onset stays within one sample of its place.
    const double low = std::min(4.0, nyquist / 50);
    std::vector<BandPreset> presets = {{"First breaks", {low, 2 * low, 0.4 * nyquist, 0.8 * nyquist}}};
    for (const BandPreset& preset :
         {BandPreset{"Noisy records", {8, 16, 150, 250}}, BandPreset{"Near offsets", {10, 20, 350, 500}},
          BandPreset{"Far offsets", {4, 8, 80, 120}}, BandPreset{"Against ground roll", {30, 45, 250, 350}},
          BandPreset{"High cut only", {0, 0, 150, 250}},
          BandPreset{"Low cut only", {4, 8, nyquist, nyquist}}}) {
        if (preset.Band.F4 <= nyquist && preset.Band.F2 < preset.Band.F3) presets.push_back(preset);
    }
    return presets;
}

}  // namespace tarnvik
