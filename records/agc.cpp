#include "records/agc.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tarnvik {

void Level_Amplitudes(std::span<float> samples, int window) {
    if (window < 2 || samples.empty()) return;
    const std::size_t count = samples.size();
    // The square of every sample added up: the energy of any stretch is a difference of two.
    std::vector<double> energy(count + 1);
    for (std::size_t i = 0; i < count; ++i) {
        const double value = samples[i];
        energy[i + 1] = energy[i] + (std::isfinite(value) ? value * value : 0);
    }
    // Below this share of the whole a difference is only the rounding of the sums.
    const double nothing = energy[count] * 1e-14;
    const auto half = static_cast<std::size_t>(window / 2);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t begin = i < half ? 0 : i - half;
        const std::size_t end = std::min(count, i + half + 1);
        const double mean = (energy[end] - energy[begin]) / static_cast<double>(end - begin);
        if (mean > nothing) {
            samples[i] = static_cast<float>(samples[i] / std::sqrt(mean));
        } else if (std::isfinite(samples[i])) {
            samples[i] = 0;
        }
    }
}

}  // namespace tarnvik
