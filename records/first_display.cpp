#include "records/first_display.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "records/record_display.h"
#include "records/su_file.h"

namespace tarnvik {

namespace {

/// Root mean square that a usual trace shall have on the picture, as a share of the way to its neighbour.
constexpr double good_share = 0.7;
constexpr std::int64_t most_traces = 1000;  ///< looked at

}  // namespace

double Gain_For(std::span<const double> shares) {
    std::vector<double> sorted(shares.begin(), shares.end());
    std::erase_if(sorted, [](double share) { return !(share > 0); });
    if (sorted.empty()) return 1;
    const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
    std::nth_element(sorted.begin(), middle, sorted.end());
    const double wanted = good_share / *middle;
    double chosen = 1;
    for (const double gain : {1.5, 2.0, 3.0, 5.0, 7.0, 10.0, 15.0, 20.0, 30.0, 50.0}) {
        if (gain <= wanted * 1.2) chosen = gain;
    }
    return chosen;
}

bool Choose_First_Display(Workspace& workspace, const std::string& path) {
    RecordView& view = workspace.Record;
    SuTraces file(path);
    const int count = file.Nb_Samples();
    const std::int64_t first = std::max(1, view.FirstTrace);
    const std::int64_t last = std::min<std::int64_t>(
        {std::int64_t{view.LastTrace}, std::int64_t{file.Nb_Traces().value_or(0)}, first + most_traces - 1});
    if (!file.Is_Open() || count < 1 || first > last) return false;
    std::vector<float> samples(static_cast<std::size_t>(count));
    std::vector<double> shares;
    const auto from = static_cast<std::size_t>(std::clamp<int>(view.FirstSample, 1, count) - 1);
    const auto to = view.LastSample > view.FirstSample
                        ? static_cast<std::size_t>(std::min<int>(view.LastSample, count))
                        : samples.size();
    for (std::int64_t trace = first; trace <= last; ++trace) {
        const SuTraces::Trace read = file.Read_Trace(trace, samples);
        if (read.Identification == dead_trace || read.SamplesRead < count) continue;
        double largest = 0;
        double energy = 0;
        for (std::size_t i = from; i < to; ++i) {
            const double value = std::abs(samples[i]);
            if (!std::isfinite(value)) continue;
            largest = std::max(largest, value);
            energy += value * value;
        }
        if (largest > 0) shares.push_back(std::sqrt(energy / static_cast<double>(to - from)) / largest);
    }
    view.Style = VariableArea;
    view.EqualiseTraces = true;
    view.EqualiseInSight = true;
    view.ClipAmplitude = true;
    view.AmplitudeGain = Gain_For(shares);
    return true;
}

}  // namespace tarnvik
