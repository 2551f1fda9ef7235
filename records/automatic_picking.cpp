#include "records/automatic_picking.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/text/number.h"
#include "records/header_words.h"

namespace tarnvik {

namespace {

constexpr double nothing_accepted = 99999999;

/// One run. It carries from trace to trace, through both passes, what picks of former runs depend on: the
/// ratio last accepted, a window once shortened at the end of the trace, and the last ratio where a division
/// fails.
class Run {
  public:
    Run(const AutomaticPickingParameters& parameters, TraceSource& source)
        : With(parameters),
          Source(source),
          WindowLength(parameters.WindowLength),
          Samples(static_cast<std::size_t>(parameters.NbSamples) + 1),
          NextNegative(static_cast<std::size_t>(parameters.NbSamples) + 2) {}

    void Start_Pass() { SearchStart = std::int64_t{With.FirstStart} + 1; }
    /// Picks one trace; nothing where its word is to stay.
    std::optional<std::int16_t> Pick(int trace);

  private:
    void Load(int trace);
    std::int64_t Search();
    void Store_Ratio(std::int64_t sample);
    bool Negative_Between(std::int64_t first, std::int64_t last) const;

    const AutomaticPickingParameters& With;
    TraceSource& Source;
    std::int64_t SearchStart = 0;
    std::int64_t WindowLength;
    double LastAccepted = nothing_accepted;
    double Ratio = 0;
    double TraceMax = 0;
    std::int16_t Identification = 0;
    std::int16_t LastWord = 0;
    std::vector<float> Samples;  ///< 0 to NbSamples; element 0 is always 0
    std::vector<std::int64_t> NextNegative;
};

void Run::Load(int trace) {
    Source.Read_Samples(trace, std::span(Samples).subspan(1));
    TraceMax = 0;
    for (float& sample : Samples) {
        if (With.Negative) sample = -sample;
        if (With.Absolute) sample = std::abs(sample);
        if (std::isfinite(sample) && sample > TraceMax) TraceMax = sample;
    }
    // With the next negative sample known, looking ahead costs nothing however long the half cycle is.
    NextNegative.back() = std::numeric_limits<std::int64_t>::max();
    for (auto i = std::ssize(Samples) - 1; i >= 0; --i) {
        const auto at = static_cast<std::size_t>(i);
        NextNegative[at] = Samples[at] < 0 ? i : NextNegative[at + 1];
    }
}

bool Run::Negative_Between(std::int64_t first, std::int64_t last) const {
    first = std::max<std::int64_t>(first, 0);
    return first <= With.NbSamples && NextNegative[static_cast<std::size_t>(first)] <= last;
}

/// Ratio of the sample to the trace's maximum. Where it cannot be computed (maximum 0, sample outside the
/// trace or no number) the last one stays in force.
void Run::Store_Ratio(std::int64_t sample) {
    if (TraceMax == 0 || sample < 0 || sample > With.NbSamples) return;
    const double ratio = Samples[static_cast<std::size_t>(sample)] / TraceMax;
    if (std::isfinite(ratio)) Ratio = ratio;
}

std::int64_t Run::Search() {
    std::int64_t positive_run = 0;
    const std::int64_t end = SearchStart + WindowLength;
    std::int64_t sample = SearchStart;
    for (; sample <= end; ++sample) {
        Store_Ratio(sample);
        if (Ratio < 0) {
            positive_run = 0;
            continue;
        }
        ++positive_run;
        if (Ratio < With.MinAmplitude) continue;
        // A jump to more than ten times the amplitude last accepted is taken for a disturbance. An accepted
        // ratio of 0 therefore shuts out everything but zeros: a run over the same record gives the same
        // picks as it always gave.
        if (LastAccepted < Ratio * 0.1) continue;
        LastAccepted = Ratio;
        if (positive_run >= With.HalfCycle) break;
        const std::int64_t ahead =
            std::min<std::int64_t>(sample + With.HalfCycle - positive_run, With.NbSamples);
        if (!Negative_Between(sample, ahead)) break;
    }
    return sample;
}

std::optional<std::int16_t> Run::Pick(int trace) {
    Identification = Source.Identification(trace).value_or(Identification);
    if (Identification == dead_trace) return LastWord;
    Load(trace);
    if (SearchStart + WindowLength > With.NbSamples) WindowLength = With.NbSamples - SearchStart;
    const std::int64_t sample = Search();
    // From left to right, as the tenths of a millisecond have always been rounded.
    const auto word =
        CInt(static_cast<double>(sample) / 1000 * With.SampleInterval * 10 + With.PickShift * 10);
    SearchStart = sample + With.StartShift;
    if (SearchStart < 0) SearchStart = 1;
    if (word) LastWord = *word;
    return word;
}

}  // namespace

AutomaticPicks Pick_Record(const AutomaticPickingParameters& parameters, TraceSource& source) {
    AutomaticPicks picks;
    const int first = parameters.FirstTrace;
    const int last = parameters.LastTrace;
    if (last < first || parameters.NbSamples <= 0) return picks;
    const bool inside = parameters.ReferenceTrace >= first && parameters.ReferenceTrace <= last;
    const int reference = inside ? parameters.ReferenceTrace : first;
    picks.ReferenceTrace = reference;
    picks.Words.resize(static_cast<std::size_t>(last - first) + 1);

    Run run(parameters, source);
    const auto pick = [&](int trace) {
        picks.ProcessedTrace = trace;
        if (const auto word = run.Pick(trace)) picks.Words[static_cast<std::size_t>(trace - first)] = word;
    };
    run.Start_Pass();
    if (reference != last) {
        for (int trace = reference; trace <= last; ++trace)
            pick(trace);
    }
    run.Start_Pass();
    if (reference != first) {
        for (int trace = reference; trace >= first; --trace)
            pick(trace);
    }
    return picks;
}

void Repair_Low_Spikes(std::span<std::int16_t> words) {
    for (std::size_t i = 0; i + 2 < words.size(); ++i) {
        const int before = words[i];
        const int after = words[i + 2];
        if (words[i + 1] < before && words[i + 1] < after) {
            Store_If_It_Fits(words[i + 1], (before + after) / 2.0);
        }
    }
}

}  // namespace tarnvik
