#pragma once

#include <memory>
#include <optional>
#include <span>

#include "processing/filters/filter_choice.h"

namespace tarnvik {

class BandPassFilter;
class HumRemover;

/// Applies a choice of filters to single traces of one length and sampling, in the order of FilterChoice.
/// Serves one thread at a time.
class TraceFilter {
  public:
    /// A choice that Refusal let through.
    TraceFilter(const FilterChoice& choice, int samples, double interval_us);
    ~TraceFilter();

    /// `samples` as many as told, the first one at `start_ms` after time zero; `reversed` is whether the
    /// polarity of this one turns. Samples that are no number are bridged first (Bridge_Gaps); answers how
    /// many there were.
    int Apply(std::span<float> samples, double start_ms, bool reversed);

  private:
    void Mute(std::span<float> samples, double start_ms) const;

    FilterChoice Choice;
    double IntervalMs;
    int AgcSamples = 0;
    std::unique_ptr<HumRemover> Hum;
    std::unique_ptr<BandPassFilter> Band;
};

}  // namespace tarnvik
