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
    // A window that begins with a block is that block, which the growing sum behind it tells alone.
    for (std::size_t block = 0; block < padded; block += width)
        to_end[block] = 0;
    const auto level = [&](std::size_t first, std::size_t end, auto samples_within) {
        for (std::size_t i = first; i < end; ++i) {
            const double energy = to_end[i] + from_start[i + width - 1];
            const double within = samples_within(i);
            if (energy > 0) samples[i] = static_cast<float>(samples[i] * std::sqrt(within / energy));
        }
    };
    const auto at_an_edge = [count, half](std::size_t i) {
        const std::size_t begin = i < half ? 0 : i - half;
        return static_cast<double>(std::min(count, i + half + 1) - begin);
    };
    // Away from the ends each window is whole.
    const std::size_t whole_from = std::min(half, count);
    const std::size_t whole_end = std::max(whole_from, count - half);
    level(0, whole_from, at_an_edge);
    level(whole_from, whole_end, [width](std::size_t) { return static_cast<double>(width); });
    level(whole_end, count, at_an_edge);
}

}  // namespace tarnvik
