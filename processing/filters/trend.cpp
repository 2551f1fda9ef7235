#include "processing/filters/trend.h"

#include <algorithm>
#include <cmath>

namespace tarnvik {

double Mean(std::span<const float> samples) {
    if (samples.empty()) return 0;
    double sum = 0;
    for (const float value : samples)
        sum += value;
    return sum / static_cast<double>(samples.size());
}

float Largest_Size(std::span<const float> samples, double from) {
    double largest = 0;
    for (const float value : samples)
        largest = std::max(largest, std::abs(value - from));
    return As_Sample(largest);
}

double Root_Mean_Square(std::span<const float> samples) {
    if (samples.empty()) return 0;
    double sum = 0;
    for (const float value : samples)
        sum += double{value} * value;
    return std::sqrt(sum / static_cast<double>(samples.size()));
}

void Remove_Mean(std::span<float> samples) {
    const double mean = Mean(samples);
    for (float& value : samples)
        value = As_Sample(value - mean);
}

void Remove_Line(std::span<float> samples) {
    const double mean = Mean(samples);
    const double middle = (static_cast<double>(samples.size()) - 1) / 2;
    double products = 0;
    double squares = 0;
    double place = -middle;
    for (const float value : samples) {
        products += place * (value - mean);
        squares += place * place;
        place += 1;
    }
    const double slope = squares > 0 ? products / squares : 0;
    place = -middle;
    for (float& value : samples) {
        value = As_Sample(value - mean - slope * place);
        place += 1;
    }
}

void Balance_Amplitudes(std::span<float> samples) {
    const double size = Root_Mean_Square(samples);
    if (!(size > 0)) return;
    for (float& value : samples)
        value = static_cast<float>(value / size);
}

int Bridge_Gaps(std::span<float> samples) {
    const auto is_number = [](float value) { return std::isfinite(value); };
    int bridged = 0;
    auto at = std::find_if_not(samples.begin(), samples.end(), is_number);
    while (at != samples.end()) {
        const auto end = std::find_if(at, samples.end(), is_number);
        const auto gap = end - at;
        const bool before = at != samples.begin();
        const bool behind = end != samples.end();
        const double from = before ? double{*(at - 1)} : behind ? double{*end} : 0.0;
        const double to = behind ? double{*end} : from;
        for (auto i = at; i != end; ++i) {
            const double part = static_cast<double>(i - at + 1) / static_cast<double>(gap + 1);
            *i = static_cast<float>(from + (to - from) * part);
        }
        bridged += static_cast<int>(gap);
        at = std::find_if_not(end, samples.end(), is_number);
    }
    return bridged;
}

}  // namespace tarnvik
