#include "records/agc.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tarnvik {

void Level_Amplitudes(std::span<float> samples, int window) {
    if (window < 2 || samples.empty()) return;
    const std::size_t count = samples.size();
    const auto half = std::min(static_cast<std::size_t>(window / 2), count);
    const std::size_t width = 2 * half + 1;
    // Sums that only grow, from either end of blocks as wide as the window: each window is the end of one
    // block and the start of the next. A difference of sums would lose quiet samples beside loud ones.
    const std::size_t padded = count + 2 * half;
    std::vector<double> from_start(padded);
    std::vector<double> to_end(padded);
    const auto square = [&](std::size_t place) {
        if (place < half || place >= half + count) return 0.0;
        const double value = samples[place - half];
        return std::isfinite(value) ? value * value : 0.0;
    };
    for (std::size_t i = 0; i < padded; ++i)
        from_start[i] = square(i) + (i % width == 0 ? 0 : from_start[i - 1]);
    for (std::size_t i = padded; i-- > 0;)
        to_end[i] = square(i) + (i + 1 == padded || (i + 1) % width == 0 ? 0 : to_end[i + 1]);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t last = i + width - 1;  // of the padded window, which begins at i
        const double energy = i % width == 0 ? from_start[last] : to_end[i] + from_start[last];
        const std::size_t begin = i < half ? 0 : i - half;
        const std::size_t within = std::min(count, i + half + 1) - begin;
        if (energy > 0)
            samples[i] = static_cast<float>(samples[i] / std::sqrt(energy / static_cast<double>(within)));
    }
}

}  // namespace tarnvik
