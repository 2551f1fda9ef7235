#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace tarnvik {

/// Resamples traces of one sampling to another by a sinc under a Kaiser window (Kaiser, 1974), 96 samples of
/// the coarser of both intervals long: flat within 0.01 % up to 0.89 of the coarser Nyquist frequency. Where
/// the new interval is the coarser one, all from its Nyquist frequency on is taken out by the same kernel, at
/// least 80 dB.
///
/// Beyond its ends a trace is thought to go on as its point reflection, so that neither value nor slope jump
/// there; new samples outside the trace are 0.
class SincResampler {
  public:
    /// A row of samples: how many, every how many microseconds, and the time of the first in microseconds.
    struct Sampling {
        std::int64_t Samples;
        std::int64_t Interval;
        double Start;
    };
    /// Intervals above 0, 1 sample or more.
    SincResampler(const Sampling& from, const Sampling& to);

    /// `from` and `to` as long as told.
    void Resample(std::span<const float> from, std::span<float> to);

  private:
    const std::vector<float>& Weights(std::int64_t phase);
    void Reflect_Ends(std::span<const float> from);

    Sampling From;
    Sampling To;
    double Cutoff;           ///< in units of the old Nyquist frequency
    std::int64_t HalfWidth;  ///< of the kernel, in old samples
    std::int64_t Offset;     ///< new start after the old one, whole microseconds downwards,
    double Fraction;         ///< and the rest
    std::vector<std::vector<float>> ByPhase;
    std::vector<float> Reflected;
};

}  // namespace tarnvik
