#pragma once

#include <complex>
#include <cstddef>
#include <memory>
#include <span>

namespace tarnvik {

/// Smallest number from `least` on that has no prime factor above 5: transforms of such lengths are fast.
std::size_t Fast_Length(std::size_t least);

/// The Fourier transform of real rows of one length, in single precision, to frequencies and back. It has
/// room for one row: fill Row, call Forward, change Frequencies, call Backward, read Row.
///
/// Objects may be made and used in several threads, each by one thread at a time.
class FastTransform {
  public:
    /// `length` 2 or more.
    explicit FastTransform(std::size_t length);
    ~FastTransform();
    FastTransform(const FastTransform&) = delete;
    FastTransform& operator=(const FastTransform&) = delete;

    std::size_t Length() const { return Count; }
    std::span<float> Row();
    /// Length() / 2 + 1 of them, from 0 to the Nyquist frequency.
    std::span<std::complex<float>> Frequencies();
    /// Row becomes Frequencies, not scaled.
    void Forward();
    /// Frequencies become Row, Length() times what Forward was given. Frequencies are lost.
    void Backward();

  private:
    struct Plans;
    std::size_t Count;
    std::unique_ptr<Plans> Own;
};

}  // namespace tarnvik
