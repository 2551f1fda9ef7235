#include "processing/move_samples.h"

#include <algorithm>
#include <cstdlib>

namespace tarnvik {

void Move_Samples(std::span<const float> samples, int count, std::span<float> moved) {
    const std::ptrdiff_t length = std::ssize(samples);
    std::fill(moved.begin(), moved.end(), 0.0F);
    const std::ptrdiff_t kept = length - std::abs(count);
    if (kept <= 0) return;
    const auto from = samples.begin() + std::max(-count, 0);
    std::copy(from, from + kept, moved.begin() + std::max(count, 0));
}

bool Pushes_Out_Signal(std::span<const float> samples, int count) {
    const auto out = std::min(static_cast<std::size_t>(std::abs(count)), samples.size());
    const auto gone = count > 0 ? samples.last(out) : samples.first(out);
    return std::any_of(gone.begin(), gone.end(), [](float sample) { return sample != 0; });
}

}  // namespace tarnvik
