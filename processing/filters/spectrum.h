#pragma once

#include <complex>
#include <cstddef>
#include <span>
#include <vector>

#include "processing/filters/fast_transform.h"

namespace tarnvik {

/// How the ends of a row are brought down before it is transformed: not at all, by cosines over a tenth of it
/// at either end, or by a Hann window over all of it. The indices stand for the user's choice.
enum class Taper { None = 0, Ends = 1, Hann = 2 };

/// A spectrum of samples of any unit: a sinusoid of amplitude A stands as a peak of height A.
struct Spectrum {
    double Step = 0;                ///< Hz from one value to the next; the first stands at 0 Hz
    std::vector<double> Amplitude;  ///< in the samples' unit
    std::vector<double> Phase;      ///< degrees, -180 to 180, of a cosine that begins at the first sample
};

/// Computes spectra of rows of one length.
class SpectrumMaker {
  public:
    /// Rows of `samples` every `interval_us`; values stand at least `finer` times closer than the reciprocal
    /// of the row's length, which is what a spectrum resolves.
    SpectrumMaker(std::size_t samples, double interval_us, Taper taper, int finer);

    /// Of the row less its mean. Samples that are no number count as bridged.
    Spectrum Of(std::span<const float> row);
    /// Mean amplitude of all rows so far, and the phase of their sum.
    Spectrum Mean_Of_All() const;

  private:
    std::size_t Samples;
    double Step;
    FastTransform Transform;
    std::vector<float> Window;
    double Scale = 1;  ///< from the transform to amplitudes
    std::vector<float> Mended;
    std::vector<double> AmplitudeSum;
    std::vector<std::complex<double>> Sum;
    int Rows = 0;
};

/// Where a spectrum is strong, Hz: its peak above 0 Hz, and around it the band in which it is no more than 6
/// dB below (half the amplitude), its ends between the values by a straight line. An end that the spectrum
/// does not reach is its own. All 0 of a spectrum of zeros.
struct StrongBand {
    double Peak = 0;
    double PeakAmplitude = 0;
    double Low = 0;
    double High = 0;
};
StrongBand Strong_Band(const Spectrum& spectrum);

/// Highest frequency at which a spectrum has more than a fiftieth of its largest amplitude, and a quarter
/// above it: what is worth being looked at.
double Noteworthy_End(const Spectrum& spectrum);

/// Amplitude against a reference in dB, at least `lowest`.
double Decibels(double amplitude, double reference, double lowest);

}  // namespace tarnvik
