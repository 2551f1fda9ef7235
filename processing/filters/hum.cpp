#include "processing/filters/hum.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "processing/filters/trend.h"

namespace tarnvik {

namespace {

constexpr std::size_t most_blocks = 400;
constexpr int most_rounds = 12;
constexpr double settled = 1e-4;      ///< change of the fit, in parts of its size
constexpr double even_at_most = 2.5;  ///< loud against quiet parts of a trace without signal
constexpr double least_quiet_periods = 2;

constexpr std::size_t Triangle(std::size_t row, std::size_t column) {
    return row * (row + 1) / 2 + column;
}

/// Sum of products, in lanes that the processor adds side by side.
template <class Value>
double Product(const Value* a, const Value* b, std::size_t count) {
    constexpr std::size_t lanes = 8;
    double sums[lanes] = {};
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        for (std::size_t lane = 0; lane < lanes; ++lane)
            sums[lane] += double{a[i + lane]} * b[i + lane];
    }
    double sum = 0;
    for (; i < count; ++i)
        sum += double{a[i]} * b[i];
    for (const double one : sums)
        sum += one;
    return sum;
}

int Lines_Below_Nyquist(const HumChoice& hum, double interval_us) {
    int lines = 0;
    while (lines <= hum.Harmonics && hum.Frequency * (lines + 1) < Nyquist(interval_us))
        ++lines;
    return lines;
}

}  // namespace

HumRemover::HumRemover(const HumChoice& hum, std::size_t samples, double interval_us) : Samples(samples) {
    const int lines = Lines_Below_Nyquist(hum, interval_us);
    Unknowns = 2 * static_cast<std::size_t>(lines) + 1;
    Waves.resize(Unknowns * Samples);
    const double step = 2 * std::numbers::pi * hum.Frequency * interval_us * 1e-6;
    for (int line = 0; line < lines; ++line) {
        float* cosine = &Waves[2 * static_cast<std::size_t>(line) * Samples];
        float* sine = cosine + Samples;
        for (std::size_t i = 0; i < Samples; ++i) {
            const double angle = step * (line + 1) * static_cast<double>(i);
            cosine[i] = static_cast<float>(std::cos(angle));
            sine[i] = static_cast<float>(std::sin(angle));
        }
    }
    std::fill_n(&Waves[(Unknowns - 1) * Samples], Samples, 1.0F);

    const double period = 1e6 / (hum.Frequency * interval_us);  // samples
    const double quarter = std::max(period / 4, static_cast<double>(Samples) / most_blocks);
    BlockSize = std::max<std::size_t>(static_cast<std::size_t>(std::ceil(quarter)), 1);
    Blocks = (Samples + BlockSize - 1) / BlockSize;
    Reach = static_cast<std::size_t>(std::lround(period / static_cast<double>(BlockSize) / 2));
    const double quiet = std::clamp(least_quiet_periods * period / static_cast<double>(Samples), 0.25, 0.75);
    Quiet = static_cast<std::size_t>(quiet * static_cast<double>(Blocks - 1));

    const std::size_t entries = Triangle(Unknowns, 0);
    Grams.resize(Blocks * entries);
    Window.resize(Blocks);
    for (std::size_t block = 0; block < Blocks; ++block) {
        const std::size_t first = block * BlockSize;
        const std::size_t count = std::min(BlockSize, Samples - first);
        for (std::size_t row = 0; row < Unknowns; ++row) {
            for (std::size_t column = 0; column <= row; ++column)
                Grams[block * entries + Triangle(row, column)] =
                    Product(&Wave(row)[first], &Wave(column)[first], count);
        }
        const double place =
            (static_cast<double>(first) + static_cast<double>(count) / 2) / static_cast<double>(Samples);
        const double sine = std::sin(std::numbers::pi * place);
        Window[block] = sine * sine;
    }
    Products.resize(Blocks * Unknowns);
    Squares.resize(Blocks);
    Left.resize(Blocks);
    Weights.resize(Blocks);
}

void HumRemover::Prepare(std::span<const float> samples) {
    for (std::size_t block = 0; block < Blocks; ++block) {
        const std::size_t first = block * BlockSize;
        const std::size_t count = std::min(BlockSize, Samples - first);
        for (std::size_t i = 0; i < Unknowns; ++i)
            Products[block * Unknowns + i] = Product(&samples[first], &Wave(i)[first], count);
        Squares[block] = Product(&samples[first], &samples[first], count);
    }
}

/// What a fit leaves in each part.
void HumRemover::Measure_Blocks(std::span<const double> fit) {
    const std::size_t entries = Triangle(Unknowns, 0);
    std::vector<double> energy(Blocks);
    std::vector<double> pairs(entries);
    for (std::size_t row = 0; row < Unknowns; ++row) {
        for (std::size_t column = 0; column <= row; ++column)
            pairs[Triangle(row, column)] = (row == column ? 1 : 2) * fit[row] * fit[column];
    }
    for (std::size_t block = 0; block < Blocks; ++block) {
        const double left = Squares[block] - 2 * Product(fit.data(), &Products[block * Unknowns], Unknowns) +
                            Product(pairs.data(), &Grams[block * entries], entries);
        energy[block] = std::max(left, 0.0);
    }
    for (std::size_t block = 0; block < Blocks; ++block) {
        const std::size_t begin = block - std::min(block, Reach);
        const std::size_t end = std::min(Blocks, block + Reach + 1);
        double sum = 0;
        for (std::size_t i = begin; i < end; ++i)
            sum += energy[i];
        const std::size_t count = std::min(end * BlockSize, Samples) - begin * BlockSize;
        Left[block] = std::sqrt(sum / static_cast<double>(count));
    }
}

void HumRemover::Weigh(double quiet) {
    for (std::size_t block = 0; block < Blocks; ++block) {
        const double ratio = Left[block] / (2 * quiet);
        Weights[block] = 1 / (1 + ratio * ratio * ratio * ratio);
    }
}

/// The fit by the weights in force; false where they leave it open.
bool HumRemover::Solve(std::span<double> fit) const {
    const std::size_t entries = Triangle(Unknowns, 0);
    std::vector<double> matrix(entries);
    std::fill(fit.begin(), fit.end(), 0.0);
    for (std::size_t block = 0; block < Blocks; ++block) {
        const double weight = Weights[block];
        for (std::size_t i = 0; i < entries; ++i)
            matrix[i] += weight * Grams[block * entries + i];
        for (std::size_t i = 0; i < Unknowns; ++i)
            fit[i] += weight * Products[block * Unknowns + i];
    }
    // Cholesky, in place.
    for (std::size_t row = 0; row < Unknowns; ++row) {
        const double whole = matrix[Triangle(row, row)];
        for (std::size_t column = 0; column <= row; ++column) {
            double value = matrix[Triangle(row, column)];
            for (std::size_t i = 0; i < column; ++i)
                value -= matrix[Triangle(row, i)] * matrix[Triangle(column, i)];
            if (row != column) {
                matrix[Triangle(row, column)] = value / matrix[Triangle(column, column)];
            } else if (value > whole * 1e-9) {
                matrix[Triangle(row, row)] = std::sqrt(value);
            } else {
                return false;
            }
        }
        for (std::size_t i = 0; i < row; ++i)
            fit[row] -= matrix[Triangle(row, i)] * fit[i];
        fit[row] /= matrix[Triangle(row, row)];
    }
    for (std::size_t row = Unknowns; row-- > 0;) {
        for (std::size_t i = row + 1; i < Unknowns; ++i)
            fit[row] -= matrix[Triangle(i, row)] * fit[i];
        fit[row] /= matrix[Triangle(row, row)];
    }
    return true;
}

/// The constant belongs to the fit alone: the trace keeps its mean.
void HumRemover::Subtract(std::span<float> samples, std::span<const double> fit, double size) const {
    std::vector<float> hum(Samples);
    for (std::size_t wave = 0; wave + 1 < Unknowns; ++wave) {
        const auto factor = static_cast<float>(fit[wave]);
        const float* values = Wave(wave).data();
        for (std::size_t i = 0; i < Samples; ++i)
            hum[i] += factor * values[i];
    }
    for (std::size_t i = 0; i < Samples; ++i)
        samples[i] = As_Sample(samples[i] - hum[i] * size);
}

void HumRemover::Apply(std::span<float> samples) {
    const double mean = Mean(samples);
    const float size = Largest_Size(samples, mean);
    if (!(size > 0)) return;
    // As numbers near one: the sums of a trace with a large offset would lose its hum.
    std::vector<float> scaled(Samples);
    for (std::size_t i = 0; i < Samples; ++i)
        scaled[i] = static_cast<float>((samples[i] - mean) / size);
    Prepare(scaled);

    std::vector<double> fit(Unknowns, 0.0);
    std::vector<double> next(Unknowns);
    std::vector<double> by_size(Blocks);
    constexpr double numerically_silent = 1e-7;
    double quiet = 0;
    double loud = 0;
    for (int round = 0; round < most_rounds; ++round) {
        Measure_Blocks(fit);
        by_size = Left;
        std::sort(by_size.begin(), by_size.end());
        quiet = std::max(by_size[Quiet], numerically_silent);
        loud = by_size[(Blocks - 1) * 9 / 10];
        Weigh(quiet);
        if (!Solve(next)) break;
        double change = 0;
        double whole = 0;
        for (std::size_t i = 0; i < Unknowns; ++i) {
            change = std::max(change, std::abs(next[i] - fit[i]));
            whole = std::max(whole, std::abs(next[i]));
        }
        fit = next;
        if (change <= settled * std::max(whole, numerically_silent)) break;
    }
    if (loud <= even_at_most * quiet) {
        Weights = Window;
        if (Solve(next)) fit = next;
    }
    Subtract(samples, fit, size);
}

}  // namespace tarnvik
