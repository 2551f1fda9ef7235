#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "processing/filters/filter_choice.h"

namespace tarnvik {

/// Takes hum off traces of one length: sinusoids of the power net's frequency and its multiples, fitted to
/// the whole trace by least squares and subtracted. Records of a fifth of a second are too short for a notch
/// in the spectrum: one of 2 Hz would ring through all of them.
///
/// The fit leans on the quiet parts. Parts of a trace, a quarter of a period long, count with the weight
/// 1 / (1 + (e / 2 s)^4), e being the root mean square of what the fit leaves there over a period and s that
/// of the quietest quarter of the trace, and the fit is repeated until it stands. So the signal behind the
/// first break does not pass for hum, and no hum appears before it.
///
/// Where no part is quiet (hum and noise alone) the weights are those of a Hann window over the trace, of
/// length T. A sinusoid at d / T beside a hum line then comes through and takes with it, at the hum's
/// frequency, its own size times |sin(pi d) / (pi d (1 - d^2))|: half at 1, nothing at 2, below 1 % from 3.5
/// on. Nearer than 1 / T the two cannot be told apart. So the notch is 4 / T wide between its zeros.
class HumRemover {
  public:
    /// A choice that Refusal let through. Multiples at or above the Nyquist frequency are left out.
    HumRemover(const HumChoice& hum, std::size_t samples, double interval_us);

    /// `samples` are finite and as many as told.
    void Apply(std::span<float> samples);

  private:
    void Prepare(std::span<const float> samples);
    void Measure_Blocks(std::span<const double> fit);
    void Weigh(double quiet);
    bool Solve(std::span<double> fit) const;
    void Subtract(std::span<float> samples, std::span<const double> fit, double size) const;
    std::span<const float> Wave(std::size_t which) const { return {&Waves[which * Samples], Samples}; }

    std::size_t Samples;
    std::size_t Unknowns;   ///< cosine and sine of each line, and a constant at the end
    std::size_t BlockSize;  ///< samples of a part
    std::size_t Blocks;
    std::size_t Reach;           ///< parts on either side that make a period
    std::size_t Quiet;           ///< place of the quietest quarter's end among the parts by size
    std::vector<float> Waves;    ///< one behind the other
    std::vector<double> Grams;   ///< by part: products of the waves, lower triangle
    std::vector<double> Window;  ///< Hann, by part

    std::vector<double> Products;  ///< by part: of the trace with each wave
    std::vector<double> Squares;   ///< by part: of the trace
    std::vector<double> Left;      ///< by part: what a fit leaves, root mean square over a period
    std::vector<double> Weights;   ///< by part
};

}  // namespace tarnvik
