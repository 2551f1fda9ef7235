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
    for (std::size_t i = 0; i < count; ++i) {
        const double value = samples[i];
        from_start[i + half] = std::isfinite(samples[i]) ? value * value : 0.0;
    }
    std::vector<double> to_end = from_start;
    for (std::size_t block = 0; block < padded; block += width) {
        const std::size_t end = std::min(block + width, padded);
        for (std::size_t i = block + 1; i < end; ++i)
            from_start[i] += from_start[i - 1];
        for (std::size_t i = end - 1; i > block; --i)
            to_end[i - 1] += to_end[i];
    }
    std::size_t in_block = 0;  // of the sample whose window begins here
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t last = i + width - 1;  // of the padded window, which begins at i
        const double energy = in_block == 0 ? from_start[last] : to_end[i] + from_start[last];
        if (++in_block == width) in_block = 0;
        const std::size_t begin = i < half ? 0 : i - half;
        const auto within = static_cast<double>(std::min(count, i + half + 1) - begin);
        if (energy > 0) samples[i] = static_cast<float>(samples[i] * std::sqrt(within / energy));
    }
}

}  // namespace tarnvik
