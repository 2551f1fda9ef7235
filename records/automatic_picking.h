#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace tarnvik {

/// What the automatic picking reads of a file of traces. Traces count from 1.
class TraceSource {
  public:
    virtual ~TraceSource() = default;
    /// `trid` of a trace; nothing where it cannot be read.
    virtual std::optional<std::int16_t> Identification(int trace) = 0;
    /// Fills samples 1 to `target.size()`; what cannot be read keeps the value that the target holds.
    virtual void Read_Samples(int trace, std::span<float> target) = 0;
};

/// Parameters of one run over one record. Lengths and places in samples.
struct AutomaticPickingParameters {
    int FirstTrace = 1;
    int LastTrace = 0;
    int ReferenceTrace = 0;  ///< where the run starts; 0 or outside the record means FirstTrace
    int NbSamples = 0;
    double SampleInterval = 0;  ///< microseconds
    int FirstStart = 0;         ///< the reference trace is searched from the sample behind this one
    int StartShift = 0;         ///< from a pick to the start of the search on the next trace
    int WindowLength = 0;
    int HalfCycle = 0;        ///< length of the positive half cycle of a break
    double MinAmplitude = 0;  ///< fraction of the trace's maximum, 0 none
    double PickShift = 0;     ///< ms added to every pick
    bool Negative = false;    ///< search the negated samples
    bool Absolute = false;    ///< search the absolute samples; after Negative
};

struct AutomaticPicks {
    /// Pick words (tenths of a millisecond) of traces FirstTrace to LastTrace; empty where the trace keeps
    /// the word it has: never reached, or the pick does not fit the word.
    std::vector<std::optional<std::int16_t>> Words;
    int ReferenceTrace = 0;
    int ProcessedTrace = 0;  ///< the last one in work, 0 for none
};

/// Picks the first break of every trace of a record: from the reference trace to the last one, then from the
/// reference trace to the first one, each trace searched in a window that follows the pick before. A break
/// is the first sample, at least MinAmplitude of the trace's maximum, from which the trace stays at or above
/// zero for a half cycle. A trace without one is picked at the sample behind its window. A dead trace takes
/// over the pick of the trace processed before it. Nothing is picked without samples or in a record of one
/// trace, whose reference trace ends both ways.
AutomaticPicks Pick_Record(const AutomaticPickingParameters& parameters, TraceSource& source);

/// Replaces a pick word lower than both its neighbours by their mean, from left to right in place, so that a
/// repaired word counts for the next step. High spikes are left.
void Repair_Low_Spikes(std::span<std::int16_t> words);

}  // namespace tarnvik
